// Drives the designer as its user does, without a screen.
#pragma once

#include "apps/designer/MainWindow.h"
#include "apps/shared/HostSetup.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

#include <QWidget>

#include <functional>
#include <memory>
#include <string>

/// A main window with a folder of its own, away from the user's settings.
class TDesignerTest : public testing::Test
{
public:
    ~TDesignerTest() override;

protected:
    TDesignerTest();

    [[nodiscard]] TMainWindow& Window() { return *FWindow; }
    [[nodiscard]] TProjectDocument& Document() { return FWindow->Document(); }
    [[nodiscard]] const TTempFolder& Folder() const { return FFolder; }
    /// Writes a project file and opens it.
    void Open(const std::string& Text);
    /// The visible widget of this name; the test fails if there is none.
    QWidget* Find(const std::string& Name);
    /// Replaces the text of a field key by key, or sends a key such as "Alt+Up".
    void Type(const std::string& Name, const std::string& Text);
    void Press(const std::string& Name, const std::string& Key);
    /// A key of a command of the window, with the keyboard where it is.
    void Command(const std::string& Key);
    /// Lets the program live until Condition holds, for a minute at most; gives whether it does.
    static bool WaitUntil(const std::function<bool()>& Condition);
    /// Answers the next question by the button of this text.
    static void AnswerNext(const std::string& Button);

private:
    TTempFolder FFolder;
    std::unique_ptr<THostSetup> FHost;
    std::unique_ptr<TMainWindow> FWindow;
};
