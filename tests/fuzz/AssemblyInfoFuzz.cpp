#include "tests/fuzz/AssemblyInfoFuzz.h"

#include "package/sourceupdate/QXAssemblyInfoUpdater.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "tests/TempFolder.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <sys/stat.h>
#include <vector>

namespace
{
constexpr std::string_view Extensions[] = {".cs", ".vb", ".cpp", ".pas", ".dpr", ".dpk", ".jsl", ".txt"};
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
    bool operator==(const TLine&) const = default;
};

std::vector<TLine> Lines(std::string_view Bytes)
{
    std::vector<TLine> Result;
    while (!Bytes.empty())
    {
        const std::size_t Size = std::min(Bytes.find_first_of("\r\n"), Bytes.size());
        const std::string_view End = Bytes.substr(Size, Bytes.substr(Size).starts_with("\r\n") ? 2 : 1);
        Result.push_back({Bytes.substr(0, Size), End});
        Bytes.remove_prefix(Size + End.size());
    }
    return Result;
}

/// Gives all declarations one value, if it has one, and remembers what it was asked.
class TOwner final : public IQXAssemblyInfoCallBack
{
public:
    explicit TOwner(std::optional<std::string> ANewValue = {}) : NewValue(std::move(ANewValue)) {}
    void OnProcessFile(const std::string&, IQXAssemblyInfoUpdater&) override {}
    void AssemblyInfoProcessMessage(const std::string&) override {}
    void AssemblyInfoProcessEntry(const std::string&, const std::string& Name, std::string& Value) override
    {
        Seen.emplace_back(Name, Value);
        Changes += NewValue && Value != *NewValue ? 1 : 0;
        Value = NewValue.value_or(Value);
    }

    std::optional<std::string> NewValue;
    std::vector<std::pair<std::string, std::string>> Seen;
    int Changes = 0;
};

/// Lets a file be processed and gives whether it was; one that cannot hold what it is to hold counts as not processed.
bool Process(IQXAssemblyInfoUpdater& Updater, TOwner& Owner, const std::string& Path, bool MayChange)
{
    const auto State = [&Path] {
        struct stat Status = {};
        return std::make_pair(::stat(Path.c_str(), &Status) == 0 ? Status.st_ino : 0, Files::Read(Path));
    };
    const auto Before = State();
    Updater.SetCallBack(Owner);
    bool Result = false;
    try
    {
        Result = Updater.ProcessFile(Path, MayChange);
    }
    catch (const EFileError&)
    {}
    Require((Result && MayChange) || State() == Before, "a file in which nothing changes is left alone");
    Require(!Result || !MayChange || Files::Read(Path + ".bak") == Before.second, "the backup is the old file");
    return Result;
}

/// The declarations that a file holds, as an updater sees them.
TOwner Look(const std::string& Path)
{
    TOwner Finder;
    const auto Updater = NewAssemblyInfoUpdater({.UpdateOnly = true});
    Updater->AddEntry("(", "no name holds this", true);
    (void)Process(*Updater, Finder, Path, false);
    return Finder;
}

void CheckEncoding(std::string_view Before, std::string_view After)
{
    Require(After.find('\0') == After.npos, "no NUL gets into a file");
    Require(After.starts_with(Mark) == Before.starts_with(Mark), "an encoding mark stays");
    Require(!Texts::IsValidUtf8(Before) || Texts::IsValidUtf8(After), "UTF-8 stays UTF-8");
}

/// Every declaration gets a value: as many lines change as values do, and no line end.
void CheckUpdate(const std::string& Path, const std::string& Before, const std::string& Value)
{
    TOwner Owner(Value);
    if (!Process(*NewAssemblyInfoUpdater({.UpdateOnly = true}), Owner, Path, true))
        return;
    const std::string After = Files::Read(Path);
    CheckEncoding(Before, After);
    const auto Old = Lines(Before);
    const auto New = Lines(After);
    Require(Old.size() == New.size(), "no line comes or goes");
    int Changed = 0;
    for (std::size_t Index = 0; Index < Old.size(); ++Index)
    {
        Require(Old[Index].End == New[Index].End, "a line ends as before");
        Changed += Old[Index].Text != New[Index].Text ? 1 : 0;
    }
    Require(Changed >= Owner.Changes && Changed <= std::ssize(Owner.Seen),
            "what is no declaration stays, and every new value shows");
    const TOwner Again = Look(Path);
    Require(Again.Seen.size() == Owner.Seen.size(), "every declaration is found again");
    for (const auto& [Name, Found] : Again.Seen)
        Require(Found == Value, "every value is found again");
    TOwner Same(Value);
    (void)Process(*NewAssemblyInfoUpdater({.UpdateOnly = true}), Same, Path, true);
    Require(Files::Read(Path) == After, "the same update again changes nothing");
}

/// A declaration that no file has is added in one place, and is found there.
void CheckAddition(IQXAssemblyInfoUpdater& Updater, const std::string& Path, const std::string& Value)
{
    const std::string Before = Files::Read(Path);
    const auto Seen = Look(Path).Seen;
    std::string Name = "Added";
    while (std::any_of(Seen.begin(), Seen.end(), [&](const auto& Other) { return Texts::Same(Name, Other.first); }))
        Name += '+';
    Updater.AddEntry(Name, Value, true);
    TOwner Owner;
    if (!Process(Updater, Owner, Path, true))
        return;
    const std::string After = Files::Read(Path);
    CheckEncoding(Before, After);
    const auto Old = Lines(Before);
    const auto New = Lines(After);
    const auto IsSame = [&](const TLine& Left, const TLine& Right) {
        return Left == Right || (Left.Text == Right.Text && &Left == &Old.back() && Left.End.empty());
    };
    const auto Front = std::mismatch(Old.begin(), Old.end(), New.begin(), New.end(), IsSame).first - Old.begin();
    const auto Back = std::mismatch(Old.rbegin(), Old.rend(), New.rbegin(), New.rend(), IsSame).first - Old.rbegin();
    Require(Front + Back >= std::ssize(Old) && New.size() > Old.size(), "lines are added in one place");
    const auto Place = static_cast<std::size_t>(std::min<std::ptrdiff_t>(Front, std::ssize(Old)));
    const std::string Held = Texts::IsValidUtf8(Before) ? Value : Texts::ToWindows1252(Value).value_or("");
    const auto Holds = [&](const TLine& Line) {
        return Line.Text.find(Name) != Line.Text.npos && Line.Text.find(Held) != Line.Text.npos;
    };
    const auto Start = New.begin() + static_cast<std::ptrdiff_t>(Place == 0 ? 0 : Place - 1);
    Require(std::any_of(Start, New.end(), Holds), "the new declaration is there");
}

/// One file through an updater that may have seen others before.
void CheckFile(IQXAssemblyInfoUpdater& Updater, std::string_view Extension, std::string_view Bytes, unsigned Mode)
{
    static const TTempFolder Folder;
    const std::string Path = (Folder / "Source").append(Extension);
    const std::string Value(Values[Mode / 2 % std::size(Values)]);
    Files::Write(Path, Bytes);
    if (Mode % 2 == 0)
        CheckUpdate(Path, std::string(Bytes), Value);
    CheckAddition(Updater, Path, Value);
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
        CheckFile(*Updater, Extensions[Kind++ % std::size(Extensions)], Bytes, Mode);
        Input.remove_prefix(Bytes.size());
    }
    // New declarations look like those in the other files, but are in the encoding of this one.
    CheckFile(*Updater, Extensions[Kind % std::size(Extensions)], "\xC3\xBC\n", Mode);
}
