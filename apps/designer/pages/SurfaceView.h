#pragma once

#include "apps/designer/pages/TextViews.h"
#include "host/QXBindings.h"
#include "runtime/forms/PageUser.h"

#include <QWidget>

#include <memory>
#include <vector>

/// Shows a page or a form: a widget for each control, in order of creation.
class TSurfaceView final : public QWidget
{
    Q_OBJECT

public:
    TSurfaceView(const TSurface& Surface, TPageUser& User, TShorten Shorten = {});
    ~TSurfaceView() override;

    /// Completes the hint of a control before it is shown.
    std::function<std::string(std::string Hint)> CompleteHint;
    /// Shows all controls as they are now.
    void Sync();
    /// The view of the control that has the focus, or null.
    [[nodiscard]] const TControlView* Focused() const;
    /// The view of a control by its name, or null.
    [[nodiscard]] TControlView* Find(std::string_view Name) const;

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    void Fill(const TContainer& Container, QWidget& Holder);
    std::unique_ptr<TControlView> MakeView(TControl& Control);

    TPageUser& FUser;
    TShorten FShorten;
    std::vector<std::unique_ptr<TControlView>> FViews;
    /// The labels that belong to a control, which come and go with it.
    std::vector<std::pair<QWidget*, const TControlView*>> FLabels;
};
