#pragma once

#include "host/QXServices.h"

/// The design services of a program without a designer: no dialogs and no edited project.
class TConsoleDesignServices final : public IQXDesignApplicationServices
{
public:
    [[nodiscard]] std::string ExpandDesignTime(std::string_view Expression) override;
    [[nodiscard]] TQXAnswer ShowDialog(const TQXDialog&) override { return {}; }
    void ShowForm(TForm& Form) override { Form.Close(false); }
};
