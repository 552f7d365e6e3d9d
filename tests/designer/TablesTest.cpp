#include "apps/designer/QtText.h"
#include "apps/designer/dialogs/FileDialogs.h"
#include "apps/designer/document/TextChange.h"
#include "apps/designer/run/RunEventReader.h"
#include "tests/DataFile.h"

#include <gtest/gtest.h>

#include <array>

namespace
{
std::string Named(const TLogLine& Line)
{
    constexpr std::array<const char*, 8> Kinds = {"text",         "heading", "process", "output",
                                                  "error output", "warning", "error",   "success"};
    return std::string(Kinds[static_cast<std::size_t>(Line.Kind)]) + ": " + FromQt(Line.Text);
}

std::string Named(const TProblem& Problem)
{
    return std::string(Problem.IsError ? "error " : "warning ") + std::to_string(Problem.Action) + " " +
           FromQt(Problem.Label) + ": " + FromQt(Problem.Text);
}

template <typename T> std::string Joined(const std::vector<T>& Items)
{
    std::string Result;
    for (const T& Item : Items)
        Result += (Result.empty() ? "" : "\n") + Named(Item);
    return Result;
}
} // namespace

TEST(DesignerTables, RunEvents)
{
    CheckTable("designer", "run events", [](const TColumns& Row) {
        TRunEventReader Reader;
        TRunUpdate Update;
        Reader.Read(QByteArray::fromStdString(Row[0] + "\n"), Update);
        return TColumns{Joined(Update.Lines), Joined(Update.Problems)};
    });
}

TEST(DesignerTables, FileFilters)
{
    CheckTable("designer", "file filters", [](const TColumns& Row) {
        return TColumns{FromQt(FileDialogs::NameFilters(ToQt(Row[0])).join(QStringLiteral("; ")))};
    });
}

TEST(DesignerTables, TextChanges)
{
    CheckTable(
        "designer", "text changes",
        [](const TColumns& Row) {
            const TTextChange Change = TTextChange::Between(Row[0], Row[1]);
            EXPECT_EQ(Change.Done(Row[0]), Row[1]);
            EXPECT_EQ(Change.Undone(Row[1]), Row[0]);
            return TColumns{std::to_string(Change.Offset), Change.Removed, Change.Inserted};
        },
        2);
}

TEST(RunEventReader, TakesLinesInAnyPieces)
{
    const QByteArray Events = "{\"event\":\"output\",\"index\":1,\"stream\":\"stdout\",\"text\":\"a.cs(1): error\"}\n"
                              "{\"event\":\"diagnostic\",\"index\":1,\"severity\":\"error\",\"code\":\"CS1\","
                              "\"file\":\"a.cs\",\"line\":1,\"message\":\"m\"}\n";
    for (qsizetype Size = 1; Size < Events.size(); Size += 7)
    {
        TRunEventReader Reader;
        TRunUpdate Update;
        for (qsizetype Begin = 0; Begin < Events.size(); Begin += Size)
            Reader.Read(Events.mid(Begin, Size), Update);
        EXPECT_EQ(Joined(Update.Lines), "error: a.cs(1): error") << Size;
        EXPECT_EQ(Joined(Update.Problems), "error 1 : a.cs:1: CS1 m") << Size;
    }
}

TEST(RunEventReader, CutsWhatIsTooMuch)
{
    TRunEventReader Reader;
    TRunUpdate Update;
    const QByteArray Long = "{\"event\":\"output\",\"text\":\"" + QByteArray(100'000, 'x') + "\"}\n";
    Reader.Read(Long, Update);
    ASSERT_EQ(Update.Lines.size(), 1U);
    EXPECT_LT(Update.Lines[0].Text.size(), TRunEventReader::MaximumLength + 100);
    for (int Count = 0; Count < TRunEventReader::MaximumProblems + 10; ++Count)
        Reader.Read("{\"event\":\"host-error\",\"message\":\"no\"}\n", Update);
    EXPECT_EQ(static_cast<int>(Update.Problems.size()), TRunEventReader::MaximumProblems);
    EXPECT_EQ(static_cast<int>(Update.Lines.size()), TRunEventReader::MaximumProblems + 11);
}
