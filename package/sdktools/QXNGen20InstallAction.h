#pragma once

#include "package/sdktools/QXNGen20BaseAction.h"

#include <string>

/// Makes the native images of an assembly.
class TQXNGen20InstallAction final : public TQXNGen20AssemblyAction
{
public:
    TQXNGen20InstallAction();

    static std::string GetActionName() { return "NGen 2.0 Install Native Image"; }
    static int GetHelpTopicID() { return 5120; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DotNetNGenInstall.html"; }

    [[nodiscard]] std::string GetNGenCommand() const override { return "install"; }

    int QueuePriority = 3; ///< 1 is the highest, 3 the lowest

protected:
    void AddArguments(ICommandLineBuilder& Builder) const override;
};
