#pragma once

#include "host/QXControls.h"

#include <QWidget>

#include <functional>

/// A widget that shows a control of a page. What its user does goes to the control through a TPageUser.
class TControlView
{
public:
    explicit TControlView(TControl& Control) : FControl(Control) {}
    virtual ~TControlView() = default;
    TControlView(const TControlView&) = delete;
    TControlView& operator=(const TControlView&) = delete;

    [[nodiscard]] TControl& Control() const { return FControl; }
    /// The whole of what is shown.
    [[nodiscard]] virtual QWidget& Widget() = 0;
    /// What takes the keyboard.
    [[nodiscard]] virtual QWidget& Field() { return Widget(); }
    /// Shows the control as it is now.
    virtual void Show() = 0;

    /// Shows it, with what all controls have in common. Nothing that the widget tells meanwhile counts as done by its
    /// user.
    void Sync();

protected:
    /// Does what the user asked for, unless the view is being synchronised. A control that takes no such act any more
    /// is shown as it is.
    template <typename TAct> void Act(TAct Do)
    {
        if (!FIsSyncing)
            Guard([&] { Do(); });
    }
    [[nodiscard]] bool IsSyncing() const { return FIsSyncing; }

private:
    void Guard(const std::function<void()>& Do);

    TControl& FControl;
    bool FIsSyncing = false;
};
