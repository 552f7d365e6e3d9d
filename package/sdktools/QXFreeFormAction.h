#pragma once

#include "package/plugin/QXActionHelpers.h"

#include <string>

/// What the actions share that pass a user's own arguments to the tool that TBase names.
template <typename TBase> class TQXFreeFormAction : public TBase
{
public:
    TQXFreeFormAction()
    {
        this->Publish("Options", Options, "The tool's arguments, as they would be typed").Expression();
        this->Publish("StartDir", StartDir, "Folder in which the tool starts").Folder().Required("bin");
    }

    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override
    {
        return AddFreeText(*this, Builder, "Options", Options);
    }
    [[nodiscard]] std::string GetStartingDir(const std::string& /*Exe*/) override
    {
        return ExpandStartDir(*this, StartDir);
    }

    std::string Options;
    std::string StartDir;
};
