#include "apps/designer/Theme.h"
#include "apps/designer/run/LogView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTest>

#include <cmath>

namespace
{
std::vector<TLogLine> Lines(int Count, int First = 0)
{
    std::vector<TLogLine> Result;
    for (int Line = First; Line < First + Count; ++Line)
        Result.push_back({Line % 10 == 7 ? TLogLine::TKind::Error : TLogLine::TKind::Output, Line % 10,
                          QStringLiteral("line %1").arg(Line)});
    return Result;
}

class LogView : public testing::Test
{
protected:
    LogView()
    {
        View.resize(400, 200);
        View.show();
        QApplication::processEvents();
    }
    QString Copied()
    {
        View.CopyOut();
        return QApplication::clipboard()->text();
    }
    TLogView View;
};

/// How well two colours can be told apart, from 1 to 21.
double Contrast(const QColor& Left, const QColor& Right)
{
    const auto Luminance = [](const QColor& Colour) {
        const auto Linear = [](double Part) {
            return Part <= 0.03928 ? Part / 12.92 : std::pow((Part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * Linear(Colour.redF()) + 0.7152 * Linear(Colour.greenF()) + 0.0722 * Linear(Colour.blueF());
    };
    const auto [Dark, Light] = std::minmax({Luminance(Left), Luminance(Right)});
    return (Light + 0.05) / (Dark + 0.05);
}
} // namespace

TEST_F(LogView, FollowsTheEndUntilItsUserLooksElsewhere)
{
    View.Add(Lines(100), 0);
    EXPECT_EQ(View.verticalScrollBar()->value(), View.verticalScrollBar()->maximum());
    View.verticalScrollBar()->setValue(10);
    View.Add(Lines(100, 100), 0);
    EXPECT_EQ(View.verticalScrollBar()->value(), 10);
}

TEST_F(LogView, KeepsPlaceAndSelectionWhenLinesGo)
{
    const auto Full = static_cast<int>(TLogBuffer::MaximumLines);
    View.Add(Lines(Full), 0);
    View.SetCurrent(50'000);
    View.Add(Lines(1000, Full), 0);
    EXPECT_EQ(View.Lines().Count(), Full);
    EXPECT_EQ(View.Lines().Gone(), 1000);
    EXPECT_EQ(Copied(), "line 50000");
    View.Add(Lines(Full, Full), 0);
    EXPECT_EQ(View.Current(), -1) << "its line has gone";
}

TEST_F(LogView, IsUsedByKeys)
{
    View.Add(Lines(30), 0);
    View.SetCurrent(3);
    QTest::keyClick(&View, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&View, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Copied(), "line 3\nline 4\nline 5");
    QTest::keyClick(&View, Qt::Key_Home);
    View.FindProblem(1);
    EXPECT_EQ(Copied(), "line 7");
    View.FindProblem(1);
    View.FindProblem(-1);
    EXPECT_EQ(Copied(), "line 7");
    int Chosen = 0;
    QObject::connect(&View, &TLogView::Chosen, [&](int Action) { Chosen = Action; });
    QTest::keyClick(&View, Qt::Key_Return);
    EXPECT_EQ(Chosen, 7);
    EXPECT_TRUE(View.FindText("LINE 2", 1));
    EXPECT_EQ(Copied(), "line 20");
    EXPECT_FALSE(View.FindText("nowhere", 1));
    QTest::keySequence(&View, QKeySequence::SelectAll);
    EXPECT_EQ(Copied().count('\n'), 29);
    View.Clear();
    EXPECT_EQ(View.Current(), -1);
}

TEST(LogBuffer, BoundsTextAsWellAsLines)
{
    TLogBuffer Buffer;
    const QString Long(4000, 'x');
    for (int Count = 0; Count < 10'000; ++Count)
        Buffer.Add({{TLogLine::TKind::Output, 0, Long}});
    EXPECT_LE(Buffer.Count() * Long.size(), TLogBuffer::MaximumCharacters);
    EXPECT_EQ(Buffer.Count() + Buffer.Gone(), 10'000);
    Buffer.Add({}, 5);
    EXPECT_EQ(Buffer.Count() + Buffer.Gone(), 10'005);
}

TEST(Theme, WhatColoursSayIsReadable)
{
    const QPalette Before = QApplication::palette();
    for (const TTheme Theme : {TTheme::Light, TTheme::Dark})
    {
        Themes::Apply(Theme);
        const QPalette Palette = QApplication::palette();
        EXPECT_EQ(Themes::FromName(Themes::Name(Theme)), Theme);
        for (const auto Meaning :
             {Themes::TMeaning::Error, Themes::TMeaning::Warning, Themes::TMeaning::Success, Themes::TMeaning::Quiet})
            for (const auto Ground : {QPalette::Base, QPalette::AlternateBase, QPalette::Window})
                EXPECT_GT(Contrast(Themes::Colour(Meaning, Palette), Palette.color(Ground)), 4.5)
                    << static_cast<int>(Meaning) << " on " << static_cast<int>(Ground);
        EXPECT_GT(Contrast(Palette.color(QPalette::Highlight), Palette.color(QPalette::HighlightedText)), 4.0);
        EXPECT_GT(Contrast(Palette.color(QPalette::ToolTipBase), Palette.color(QPalette::ToolTipText)), 7.0);
    }
    QApplication::setPalette(Before);
}
