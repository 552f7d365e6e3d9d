#pragma once

#include "package/sdktools/QXNGen20BaseAction.h"

#include <string>

/// Deletes the native images of an assembly.
class TQXNGen20UninstallAction final : public TQXNGen20AssemblyAction
{
public:
    TQXNGen20UninstallAction();

    static std::string GetActionName() { return "NGen 2.0 Uninstall Native Image"; }
    static int GetHelpTopicID() { return 5130; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DotNetNGenUninstall.html"; }

    [[nodiscard]] std::string GetNGenCommand() const override { return "uninstall"; }

protected:
    void AddArguments(ICommandLineBuilder& Builder) const override;
};
