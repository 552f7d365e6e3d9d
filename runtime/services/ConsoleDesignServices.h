#pragma once

#include "host/QXServices.h"

/// The design services of a program without a designer: no dialogs and no edited project.
class TConsoleDesignServices final : public IQXDesignApplicationServices
{
public:
    [[nodiscard]] std::string ExpandDesignTime(std::string_view Expression) override;
    [[nodiscard]] bool BrowseForFile(std::string&, std::string_view, std::string_view) override { return false; }
    [[nodiscard]] bool BrowseForDirectory(std::string&, std::string_view) override { return false; }
};
