#include "platform/Paths.h"

#include "platform/Text.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace
{
bool HasDrive(std::string_view Path)
{
    const auto IsLetter = [](char Character) {
        return (Character >= 'a' && Character <= 'z') || (Character >= 'A' && Character <= 'Z');
    };
    return Path.size() >= 2 && IsLetter(Path[0]) && Path[1] == ':';
}

bool StartsWithDelimiter(std::string_view Path)
{
    return !Path.empty() && Paths::IsDelimiter(Path.front());
}

/// Where the part that begins at Start ends.
std::size_t PartEnd(std::string_view Path, std::size_t Start)
{
    const std::string_view Rest = Path.substr(std::min(Start, Path.size()));
    return Path.size() -
           static_cast<std::size_t>(Rest.end() - std::find_if(Rest.begin(), Rest.end(), Paths::IsDelimiter));
}

bool IsShare(std::string_view Path, TPathStyle Style)
{
    return Style == TPathStyle::Windows && Path.size() > 2 && Paths::IsDelimiter(Path[0]) &&
           Paths::IsDelimiter(Path[1]) && !Paths::IsDelimiter(Path[2]);
}

/// The length of the root: "/", "C:", "C:\", or "\\server\share\"; 0 for a relative path.
std::size_t RootLength(std::string_view Path, TPathStyle Style)
{
    std::size_t Length = 0;
    if (IsShare(Path, Style))
    {
        const std::size_t ServerEnd = PartEnd(Path, 2);
        Length = ServerEnd < Path.size() ? PartEnd(Path, ServerEnd + 1) : ServerEnd;
    }
    else if (HasDrive(Path))
        Length = 2;
    return StartsWithDelimiter(Path.substr(Length)) ? Length + 1 : Length;
}

/// A path taken apart and normalised.
struct TParts
{
    std::string Root;
    std::vector<std::string_view> Names; ///< views into the path
    bool Trailing = false;
};

std::string NormalRoot(std::string_view Path, TPathStyle Style)
{
    std::string Root(Path.substr(0, RootLength(Path, Style)));
    std::replace_if(Root.begin(), Root.end(), Paths::IsDelimiter, Paths::Delimiter(Style));
    return Root;
}

TParts TakeApart(std::string_view Path, TPathStyle Style)
{
    TParts Result{NormalRoot(Path, Style), {}, false};
    Result.Names.reserve(16);
    const bool Rooted = !Result.Root.empty() && Result.Root.back() != ':';
    for (std::size_t Start = RootLength(Path, Style); Start < Path.size();)
    {
        const std::size_t End = PartEnd(Path, Start);
        const std::string_view Name = Path.substr(Start, End - Start);
        const bool Up = Name == "..";
        if (Up && !Result.Names.empty() && Result.Names.back() != "..")
            Result.Names.pop_back();
        else if (!Name.empty() && Name != "." && !(Up && Rooted))
            Result.Names.push_back(Name);
        Result.Trailing = End < Path.size();
        Start = End + 1;
    }
    return Result;
}

std::string PutTogether(const TParts& Parts, TPathStyle Style)
{
    std::string Result = Parts.Root;
    for (std::size_t Index = 0; Index < Parts.Names.size(); ++Index)
    {
        if (Index != 0)
            Result += Paths::Delimiter(Style);
        Result += Parts.Names[Index];
    }
    if (Result.empty())
        Result += '.';
    if (Parts.Trailing && (Parts.Root.empty() || !Parts.Names.empty()))
        Result += Paths::Delimiter(Style);
    return Result;
}

bool SamePart(std::string_view Left, std::string_view Right, TPathStyle Style)
{
    return Style == TPathStyle::Windows ? Texts::FoldCase(Left) == Texts::FoldCase(Right) : Left == Right;
}

bool SameRoot(std::string_view Left, std::string_view Right, TPathStyle Style)
{
    // The letter of a drive has no case in either style.
    return SamePart(Left, Right, HasDrive(Left) ? TPathStyle::Windows : Style);
}

/// Where the file name begins.
std::size_t NameStart(std::string_view Path)
{
    const auto Found = std::find_if(Path.rbegin(), Path.rend(), Paths::IsDelimiter);
    if (Found != Path.rend())
        return static_cast<std::size_t>(Path.rend() - Found);
    return HasDrive(Path) ? 2 : 0;
}

/// Where the extension begins; the path's end without one.
std::size_t ExtensionStart(std::string_view Path)
{
    const std::size_t Found = Path.rfind('.');
    return Found == std::string_view::npos || Found < NameStart(Path) ? Path.size() : Found;
}
} // namespace

bool Paths::IsAbsolute(std::string_view Path, TPathStyle Style)
{
    return RootLength(Path, Style) != 0;
}

bool Paths::IsForeign(std::string_view Path, TPathStyle Style)
{
    return Style != TPathStyle::Windows && HasDrive(Path);
}

std::string Paths::Normalise(std::string_view Path, TPathStyle Style)
{
    return Path.empty() ? std::string() : PutTogether(TakeApart(Path, Style), Style);
}

std::string Paths::Join(std::string_view Folder, std::string_view Path, TPathStyle Style)
{
    if (Folder.empty() || IsAbsolute(Path, Style))
        return std::string(Path);
    return WithTrailing(Folder, Style).append(Path);
}

std::string Paths::Expand(std::string_view Path, std::string_view Folder, TPathStyle Style)
{
    return Normalise(Join(Folder, Path, Style), Style);
}

std::string Paths::RelativeTo(std::string_view Path, std::string_view Folder, TPathStyle Style)
{
    TParts Target = TakeApart(Path, Style);
    const TParts Base = TakeApart(Folder, Style);
    auto TargetPart = Target.Names.begin();
    auto BasePart = Base.Names.begin();
    while (TargetPart != Target.Names.end() && BasePart != Base.Names.end() && SamePart(*TargetPart, *BasePart, Style))
    {
        ++TargetPart;
        ++BasePart;
    }
    // What a ".." of the folder leads out of has no name that could be gone back into.
    const bool Nameless = std::find(BasePart, Base.Names.end(), "..") != Base.Names.end();
    if (Nameless || !SameRoot(Target.Root, Base.Root, Style))
        return Normalise(Path, Style);
    Target.Root.clear();
    Target.Names.erase(Target.Names.begin(), TargetPart);
    Target.Names.insert(Target.Names.begin(), static_cast<std::size_t>(Base.Names.end() - BasePart), "..");
    return PutTogether(Target, Style);
}

std::string Paths::Folder(std::string_view Path, TPathStyle /*Style*/)
{
    return std::string(Path.substr(0, NameStart(Path)));
}

std::string Paths::FileName(std::string_view Path, TPathStyle /*Style*/)
{
    return std::string(Path.substr(NameStart(Path)));
}

std::string Paths::BareName(std::string_view Path, TPathStyle /*Style*/)
{
    const std::size_t Start = NameStart(Path);
    return std::string(Path.substr(Start, ExtensionStart(Path) - Start));
}

std::string Paths::Extension(std::string_view Path, TPathStyle /*Style*/)
{
    return std::string(Path.substr(ExtensionStart(Path)));
}

std::string Paths::ChangeExtension(std::string_view Path, std::string_view Extension, TPathStyle /*Style*/)
{
    return std::string(Path.substr(0, ExtensionStart(Path))).append(Extension);
}

std::string Paths::WithTrailing(std::string_view Path, TPathStyle Style)
{
    std::string Result = WithoutTrailing(Path, Style);
    if (Result.empty() || IsDelimiter(Result.back()))
        return Result;
    // The delimiter that stands there stays as it is written.
    return Result += Result.size() < Path.size() ? Path[Result.size()] : Delimiter(Style);
}

std::string Paths::WithoutTrailing(std::string_view Path, TPathStyle Style)
{
    const std::size_t Root = RootLength(Path, Style);
    while (Path.size() > Root && IsDelimiter(Path.back()))
        Path.remove_suffix(1);
    return std::string(Path);
}
