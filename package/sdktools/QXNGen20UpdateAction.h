#pragma once

#include "package/sdktools/QXNGen20BaseAction.h"

#include <string>

/// Makes the native images anew that are out of date.
class TQXNGen20UpdateAction final : public TQXNGen20BaseAction
{
public:
    TQXNGen20UpdateAction();

    static std::string GetActionName() { return "NGen 2.0 Update Native Images"; }
    static int GetHelpTopicID() { return 5140; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DotNetNGenUpdate.html"; }

    [[nodiscard]] std::string GetNGenCommand() const override { return "update"; }

protected:
    void AddArguments(ICommandLineBuilder& Builder) const override;
};
