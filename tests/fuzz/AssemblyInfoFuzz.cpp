#include "tests/fuzz/AssemblyInfoFuzz.h"

#include "package/sourceupdate/QXAssemblyInfoUpdater.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "tests/runtime/TempFolder.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <sys/stat.h>
#include <vector>

namespace
{
struct TKind
{
    std::string_view Extension;
    char Quote = '"';
    std::size_t AddedLines = 3; ///< a new declaration and the lines around it
    std::string_view EndWord = {};
};
constexpr TKind Kinds[] = {{".cs"},
                           {".vb"},
                           {".cpp"},
                           {".pas", '\'', 3, "implementation"},
                           {".dpr", '\'', 3, "begin"},
                           {".dpk", '\'', 3, "end."},
                           {".jsl", '"', 1},
                           {".txt", '"', 1}};
constexpr std::string_view Values[] = {"2.0.0.1", "", "Gr\xC3\xBCn", "\xE4\xB8\xAD"};
constexpr std::string_view Mark = "\xEF\xBB\xBF";

void Require(bool Holds, const char* Promise)
{
    if (!Holds)
        throw std::runtime_error(std::string("broken promise: ") + Promise);
}

struct TLine
{
    std::string_view Text;
    std::string_view End;
};

std::vector<TLine> Lines(std::string_view Bytes)
{
    std::vector<TLine> Result;
    Bytes.remove_prefix(Bytes.starts_with(Mark) ? Mark.size() : 0);
    while (!Bytes.empty())
    {
        const std::size_t Size = std::min(Bytes.find_first_of("\r\n"), Bytes.size());
        const std::string_view End = Bytes.substr(Size, Bytes.substr(Size).starts_with("\r\n") ? 2 : 1);
        Result.push_back({Bytes.substr(0, Size), End});
        Bytes.remove_prefix(Size + End.size());
    }
    return Result;
}

bool IsDeclaration(std::string_view Line)
{
    Line = Text::Trim(Line);
    const bool IsComment = Line.starts_with("/**");
    const std::string_view Word = IsComment ? "@assembly" : "assembly";
    if (!IsComment && !Line.starts_with('[') && !Line.starts_with('<'))
        return false;
    Line = Text::Trim(Line.substr(IsComment ? 3 : 1));
    if (!Text::StartsWithSame(Line, Word))
        return false;
    Line.remove_prefix(Word.size());
    return IsComment ? Text::Trim(Line.substr(0, Line.find(' '))).empty() : Text::Trim(Line).starts_with(':');
}

/// A file before and after a declaration was added to it and those that were there got the same value.
struct TUpdate
{
    const TKind& Kind;
    std::string Value; ///< as the file holds it
    std::vector<TLine> Old;
    std::vector<TLine> New;
    std::size_t Declarations;                ///< that were seen
    std::optional<std::size_t> ChangedLines; ///< if it is known how many there have to be

    void Check() const;
    void CheckChangedLine(std::string_view Before, std::string_view After) const;
};

void TUpdate::Check() const
{
    const auto IsEnd = [&](const TLine& Line) { return Text::Same(Text::Trim(Line.Text), Kind.EndWord); };
    const auto Found = Kind.EndWord.empty() ? Old.end() : std::find_if(Old.begin(), Old.end(), IsEnd);
    const auto End = static_cast<std::size_t>(Found - Old.begin());
    const bool HasAttribute = End != 0 && End != Old.size() && Text::Trim(Old[End - 1].Text).starts_with('[');
    const std::size_t Place = HasAttribute ? End - 1 : End;
    Require(New.size() == Old.size() + Kind.AddedLines, "only one declaration is added, with what is around it");

    std::size_t Seen = 0;
    std::size_t Changed = 0;
    for (std::size_t Index = 0; Index < Old.size(); ++Index)
    {
        const TLine& Before = Old[Index];
        const TLine& After = New[Index < Place ? Index : Index + Kind.AddedLines];
        Require(After.End == Before.End || (Before.End.empty() && Place == Old.size()), "a line ends as before");
        const bool CanChange = Index < End && IsDeclaration(Before.Text);
        Seen += CanChange ? 1U : 0U;
        if (After.Text == Before.Text)
            continue;
        Require(CanChange, "a line that is no declaration stays");
        CheckChangedLine(Before.Text, After.Text);
        ++Changed;
    }
    Require(Seen == Declarations, "every declaration is seen, and nothing else");
    Require(Changed == ChangedLines.value_or(Changed), "every new value shows");
    Require(New[Place + Kind.AddedLines / 2].Text.find(Kind.Quote + Value + Kind.Quote + ')') != std::string::npos,
            "the new declaration is there");
}

/// The value is behind the first parenthesis, and what was behind the last one still is there.
void TUpdate::CheckChangedLine(std::string_view Before, std::string_view After) const
{
    const std::string Plain = '(' + Value + ')';
    const std::string Quoted = Kind.Quote + Value + Kind.Quote + ')';
    After.remove_prefix(std::min(After.find('('), After.size()));
    Require(After.starts_with(Plain) || After.starts_with('(' + Quoted) || After.starts_with("(@" + Quoted),
            "a changed declaration holds the new value");
    Before.remove_prefix(std::min(Before.find('('), Before.size()));
    const std::size_t Close = Before.rfind(')');
    const std::size_t Quote = Before.rfind(Kind.Quote);
    // In a string that does not end, a parenthesis is part of the value.
    const bool IsClosed = Quote == Before.npos || (Quote < Close && Before.find(Kind.Quote) < Quote);
    if (Close == Before.npos || !(IsClosed || After.starts_with(Plain)))
        return;
    const std::string_view Rest = Before.substr(Close + 1);
    // Behind a string, several blanks become one.
    const auto* Start = std::find_if(Rest.begin(), Rest.end(), [](unsigned char Byte) { return Byte > ' '; });
    const std::string Short = (Rest.starts_with(' ') ? " " : "") + std::string(Start, Rest.end());
    Require(After.starts_with(Plain) ? After.substr(Plain.size()) == Rest
                                     : After.ends_with(Rest) || After.ends_with(Short),
            "what follows a declaration stays");
}

/// Gives all declarations one value, if it has one, and remembers what it was asked.
class TOwner final : public IQXAssemblyInfoCallBack
{
public:
    void OnProcessFile(const std::string&, IQXAssemblyInfoUpdater&) override {}
    void AssemblyInfoProcessMessage(const std::string&) override {}
    void AssemblyInfoProcessEntry(const std::string&, const std::string& Name, std::string& Value) override
    {
        Names.push_back(Name);
        Changes += NewValue && Value != *NewValue ? 1U : 0U;
        Value = NewValue.value_or(Value);
    }

    std::optional<std::string> NewValue = {};
    std::vector<std::string> Names = {};
    std::size_t Changes = 0;
};

/// Lets a file be processed and gives whether it was; one that cannot hold what it is to hold counts as not processed.
bool Process(IQXAssemblyInfoUpdater& Updater, const std::string& Path, bool MayChange)
{
    const auto State = [&Path] {
        struct stat Status = {};
        return std::make_pair(::stat(Path.c_str(), &Status) == 0 ? Status.st_ino : 0, Files::Read(Path));
    };
    const auto Before = State();
    bool Result = false;
    try
    {
        Result = Updater.ProcessFile(Path, MayChange);
    }
    catch (const EFileError&)
    {}
    Require((Result && MayChange) || State() == Before, "a file in which nothing changes is left alone");
    return Result;
}

/// One file through an updater that may have seen others before.
void CheckFile(IQXAssemblyInfoUpdater& Updater, const TKind& Kind, std::string_view Bytes, unsigned Mode)
{
    static const TTempFolder Folder;
    const std::string Path = (Folder / "Source").append(Kind.Extension);
    Files::Write(Path, Bytes);
    const bool IsText = !Bytes.starts_with("\xFF\xFE") && !Bytes.starts_with("\xFE\xFF") && !Bytes.empty() &&
                        Bytes != Mark && Bytes.find('\0') == std::string::npos;
    TOwner Finder;
    const auto UpdateOnly = NewAssemblyInfoUpdater({.UpdateOnly = true});
    UpdateOnly->SetCallBack(Finder);
    UpdateOnly->AddEntry("(", "no name holds this", true);
    Require(Process(*UpdateOnly, Path, false) == IsText, "text is processed, and nothing else");

    const std::string Value(Values[Mode / 2 % std::size(Values)]);
    const auto IsThere = [&](const std::string& Name) {
        return std::any_of(Finder.Names.begin(), Finder.Names.end(),
                           [&](const std::string& Other) { return Text::Same(Name, Other); });
    };
    std::string Added = std::string("Added").append(Kind.Extension);
    while (IsThere(Added))
        Added += '+';
    Updater.AddEntry(Added, Value, true);
    const bool ByEntries = Mode % 2 != 0;
    TOwner Owner;
    if (!ByEntries)
        Owner.NewValue = Value;
    for (std::size_t Index = 0; ByEntries && Index < Finder.Names.size(); ++Index)
        Updater.AddEntry(Finder.Names[Index], Value, true);
    Updater.SetCallBack(Owner);
    const bool IsUtf8 = Text::IsValidUtf8(Bytes);
    const std::optional<std::string> Held = IsUtf8 ? Value : Text::ToWindows1252(Value);
    const bool IsProcessed = Process(Updater, Path, true);
    // The form of new declarations, which then comes from another file, may hold what this one cannot, too.
    const bool IsForeignForm = IsText && !IsUtf8 && Finder.Names.empty();
    Require(IsProcessed == (IsText && Held) || IsForeignForm, "a value is refused if a file cannot hold it");
    if (!IsProcessed)
        return;

    const std::string After = Files::Read(Path);
    Require(Files::Read(Path + ".bak") == Bytes, "the backup is the old file");
    Require(After.find('\0') == std::string::npos, "no NUL gets into a file");
    Require(After.starts_with(Mark) == Bytes.starts_with(Mark), "an encoding mark stays");
    Require(!IsUtf8 || Text::IsValidUtf8(After), "UTF-8 stays UTF-8");
    const auto Changes = ByEntries ? std::nullopt : std::optional(Owner.Changes);
    TUpdate{Kind, *Held, Lines(Bytes), Lines(After), Finder.Names.size(), Changes}.Check();
    Require(Process(Updater, Path, false), "text is processed again");
}
} // namespace

void CheckAssemblyInfo(std::string_view Input)
{
    if (Input.size() < 2)
        return;
    std::size_t Kind = static_cast<unsigned char>(Input[0]);
    const auto Mode = static_cast<unsigned char>(Input[1]);
    const auto Updater = NewAssemblyInfoUpdater({});
    for (int File = 1; File <= 3 && Input.size() > 1; ++File)
    {
        Input.remove_prefix(File == 1 ? 2 : 1);
        const std::string_view Bytes = Input.substr(0, Input.find('\x1C'));
        CheckFile(*Updater, Kinds[Kind++ % std::size(Kinds)], Bytes, Mode);
        Input.remove_prefix(Bytes.size());
    }
    // New declarations look like those in the other files, but are in the encoding of this one.
    CheckFile(*Updater, Kinds[Kind % std::size(Kinds)], "\xC3\xBC\n", Mode);
}
