#pragma once

#include "host/QXServices.h"

#include <QWidget>

#include <functional>

/// Shows the dialogs and forms of pages as windows of this program.
class TQtDesignServices final : public IQXDesignApplicationServices
{
public:
    /// Expand replaces the variables of the edited project; it throws std::runtime_error with the reason.
    explicit TQtDesignServices(std::function<std::string(std::string_view)> Expand) : FExpand(std::move(Expand)) {}

    [[nodiscard]] std::string ExpandDesignTime(std::string_view Expression) override { return FExpand(Expression); }
    [[nodiscard]] TQXAnswer ShowDialog(const TQXDialog& Dialog) override;
    void ShowForm(TForm& Form) override;

    /// While set, errors are not shown but told here: somebody asks what a page has against its content.
    std::function<void(const std::string& Text)> OnError;

private:
    [[nodiscard]] TQXDialog Located(TQXDialog Dialog) const;

    std::function<std::string(std::string_view)> FExpand;
};
