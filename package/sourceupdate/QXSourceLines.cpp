#include "package/sourceupdate/QXSourceLines.h"

#include "platform/Text.h"

#include <algorithm>

namespace
{
constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
} // namespace

void TSourceLines::SetBytes(std::string_view Bytes)
{
    *this = TSourceLines();
    FBytes = Bytes;
    FNext = Bytes.starts_with(Utf8Mark) ? Utf8Mark.size() : 0;
    FFeed = std::min(Bytes.find('\n'), Bytes.size());
}

bool TSourceLines::Next()
{
    if (FNext == FBytes.size())
        return false;
    // Searched for again only when it was passed: a text that knows carriage returns alone may be long.
    if (FFeed < FNext)
        FFeed = std::min(FBytes.find('\n', FNext), FBytes.size());
    const std::string_view Rest = FBytes.substr(FNext, FFeed - FNext);
    FPrevious = FLine;
    FLine = Rest.substr(0, Rest.find('\r'));
    ++FNumber;

    const std::size_t End = FNext + FLine.size();
    const std::string_view Behind = FBytes.substr(End, 2);
    FNext = End + (Behind == "\r\n" ? 2 : std::min<std::size_t>(Behind.size(), 1));
    if (FNext != End)
        FLineEnd = FBytes.substr(End, FNext - End);
    return true;
}

void TSourceLines::ReplaceStart(std::size_t Length, std::string Text)
{
    if (FLine.substr(0, Length) != Text)
        Add({Place(FLine), Length, std::move(Text)});
}

void TSourceLines::Insert(std::optional<std::size_t> Place, std::string_view Line)
{
    const std::string_view LineEnd = FLineEnd.empty() ? "\r\n" : FLineEnd;
    std::string Text;
    // What comes behind a last line without an end gives it one.
    const bool IsFirst = FChanges.empty() || FChanges.back().Start != FBytes.size();
    if (!Place && IsFirst && !FBytes.ends_with('\n') && !FBytes.ends_with('\r'))
        Text = LineEnd;
    Text.append(Line).append(LineEnd);
    Add({Place.value_or(FBytes.size()), 0, std::move(Text)});
}

void TSourceLines::Add(TChange Change)
{
    const auto IsBefore = [](const TChange& New, const TChange& Old) {
        return New.Start < Old.Start || (New.Start == Old.Start && Old.Length != 0);
    };
    FChanges.insert(std::upper_bound(FChanges.begin(), FChanges.end(), Change, IsBefore), std::move(Change));
}

std::vector<std::string_view> TSourceLines::Pieces() const
{
    std::vector<std::string_view> Result;
    Result.reserve(2 * FChanges.size() + 1);
    std::size_t Start = 0;
    for (const TChange& Change : FChanges)
    {
        Result.push_back(FBytes.substr(Start, Change.Start - Start));
        Result.emplace_back(Change.Text);
        Start = Change.Start + Change.Length;
    }
    Result.push_back(FBytes.substr(Start));
    return Result;
}

bool TSourceLines::IsUtf8() const
{
    if (!FIsUtf8)
        FIsUtf8 = Texts::IsValidUtf8(FBytes);
    return *FIsUtf8;
}

std::string TSourceLines::Decode(std::string_view Bytes) const
{
    return Texts::IsAscii(Bytes) || IsUtf8() ? std::string(Bytes) : Texts::FromWindows1252(Bytes);
}

bool TSourceLines::IsSame(std::string_view Bytes, std::string_view Text) const
{
    return Texts::IsAscii(Bytes) || IsUtf8() ? Bytes == Text : Texts::FromWindows1252(Bytes) == Text;
}

std::optional<std::string> TSourceLines::Encode(const std::string& Text) const
{
    return Texts::IsAscii(Text) || IsUtf8() ? std::optional(Text) : Texts::ToWindows1252(Text);
}
