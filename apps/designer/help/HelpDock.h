#pragma once

#include <QDockWidget>
#include <QTextBrowser>

#include <string>

/// Shows the page of quick help of the action at hand.
class THelpDock final : public QDockWidget
{
    Q_OBJECT

public:
    explicit THelpDock(QWidget* Parent);
    /// Shows the page of an action class; a word on it if none is installed.
    void Show(const std::string& ClassName);
    [[nodiscard]] QTextBrowser& Browser() { return *FBrowser; }

private:
    QTextBrowser* FBrowser;
    std::string FShown;
};
