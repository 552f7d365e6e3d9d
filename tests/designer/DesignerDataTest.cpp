// Runs the cases of data/, whose README.md tells what can stand there.
#include "apps/designer/QtText.h"
#include "tests/DataFile.h"
#include "tests/designer/DesignerTest.h"

#include <QApplication>
#include <QKeyEvent>

#include <sstream>

namespace
{
class DesignerData : public TDesignerTest, public testing::WithParamInterface<std::string>
{
protected:
    static std::string TextOf(const TDataLine& Line) { return Line.Text.empty() ? Unescape(Line.Rest) : Line.Text; }

    void Select(const std::string& Numbers)
    {
        TPlaces Places;
        std::istringstream Stream(Numbers);
        for (int Number = 0; Stream >> Number;)
            Places.push_back(Number - 1);
        Window().List().Select(Places);
        Window().List().setFocus();
    }

    std::string Problems()
    {
        std::string Result;
        for (const TProblem& Problem : Window().Problems().Problems())
            Result += std::to_string(Problem.Action) + " " + FromQt(Problem.Label) + ": " + FromQt(Problem.Text) + "\n";
        return Result;
    }

    bool Look(const TDataLine& Line)
    {
        if (Line.Word == "text")
            EXPECT_EQ(Document().Text(), TextOf(Line)) << "line " << Line.Line;
        else if (Line.Word == "selected")
            EXPECT_EQ(testing::PrintToString(Window().List().Selected()), Line.Rest) << "line " << Line.Line;
        else if (Line.Word == "problems")
            EXPECT_EQ(Problems(), TextOf(Line)) << "line " << Line.Line;
        else if (Line.Word == "bar")
            EXPECT_EQ(FromQt(Window().Bar().Text()), Line.Rest) << "line " << Line.Line;
        else if (Line.Word == "focus")
            EXPECT_EQ(Find(Line.Rest), QApplication::focusWidget()) << "line " << Line.Line;
        else
            return false;
        return true;
    }

    /// As a keyboard with all letters does.
    static void Write(const QString& Text)
    {
        for (const QChar Letter : Text)
        {
            QKeyEvent Press(QEvent::KeyPress, 0, Qt::NoModifier, Letter);
            QApplication::sendEvent(QApplication::focusWidget(), &Press);
        }
    }

    bool Act(const TDataLine& Line)
    {
        std::istringstream Words(Line.Rest);
        std::string Name;
        std::string Text;
        Words >> Name;
        std::getline(Words >> std::ws, Text);
        if (Line.Word == "project")
            Open(TextOf(Line));
        else if (Line.Word == "select")
            Select(Line.Rest);
        else if (Line.Word == "tab")
            Window().ActionPane().setCurrentIndex(std::stoi(Line.Rest));
        else if (Line.Word == "type")
            Type(Name, Text);
        else if (Line.Word == "press")
            Press(Name, Text);
        else if (Line.Word == "command")
        {
            Command(Line.Rest);
            QApplication::processEvents(); // an editor hands its value over when it has done with the key
        }
        else if (Line.Word == "write")
            Write(ToQt(Line.Rest));
        else if (Line.Word == "answer")
            AnswerNext(Line.Rest);
        else
            return false;
        return true;
    }
};
} // namespace

TEST_P(DesignerData, GivesWhatItSays)
{
    for (const TDataCase& Case : ReadCases(GetParam()))
    {
        SCOPED_TRACE(Case.Name);
        for (const TDataLine& Line : Case.Lines)
            if (!Act(Line) && !Look(Line))
                Case.Fail(Line, "there is no such word");
        Window().Document().StartNew();
    }
}

INSTANTIATE_TEST_SUITE_P(Designer, DesignerData, testing::ValuesIn(FindDataFiles("tests/designer/data")),
                         [](const auto& Info) { return DataFileName(Info.param); });
