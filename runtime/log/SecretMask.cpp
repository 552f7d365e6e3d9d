#include "runtime/log/SecretMask.h"

#include "platform/CommandLines.h"
#include "platform/Text.h"

#include <algorithm>

namespace
{
/// A shorter item of a list is no secret by itself: its text stands everywhere.
constexpr std::size_t ShortestItem = 4;

/// The parts between Separators, trimmed, without the empty ones.
std::vector<std::string_view> Parts(std::string_view Text, std::string_view Separators)
{
    std::vector<std::string_view> Result;
    while (!Text.empty())
    {
        const std::size_t End = std::min(Text.find_first_of(Separators), Text.size());
        if (const std::string_view Part = Texts::Trim(Text.substr(0, End)); !Part.empty())
            Result.push_back(Part);
        Text.remove_prefix(std::min(End + 1, Text.size()));
    }
    return Result;
}

std::string Join(const std::vector<std::string_view>& Parts, char Separator)
{
    std::string Result;
    for (const std::string_view Part : Parts)
        (Result += Part) += Separator;
    Result.pop_back();
    return Result;
}

std::string WithEscapes(const std::string& Text)
{
    return Texts::Replace(Texts::Replace(Texts::Replace(Text, "\\", "\\\\"), "\"", "\\\""), "\t", "\\t");
}

/// As an argument, without the quotes around it.
std::string Argument(std::string_view Text)
{
    const std::string Quoted = CommandLines::Quote(Text, true);
    return Quoted.substr(1, Quoted.size() - 2);
}
} // namespace

void TSecretMask::Add(std::string_view Value)
{
    FFinder.reset();
    for (const std::string_view Line : Parts(Value, "\r\n"))
        AddLine(Line);
}

void TSecretMask::AddLine(std::string_view Line)
{
    AddForms(Line);
    if (Line.size() > 2 && Line.front() == '"' && Line.back() == '"') // tools get it without
        AddForms(Line.substr(1, Line.size() - 2));
    const std::vector<std::string_view> Items = Parts(Line, ";,");
    if (Line.find_first_of(";,") == std::string_view::npos || Items.empty())
        return;
    for (const std::string_view Item : Items)
        if (Item.size() >= ShortestItem)
            AddForms(Item);
    if (Items.size() > 1)
        for (const char Separator : {';', ','})
            AddForms(Join(Items, Separator));
}

void TSecretMask::AddForms(std::string_view Secret)
{
    std::vector<std::string> Forms{std::string(Secret)};
    if (Secret.find_first_of("\\/") != std::string_view::npos)
        Forms.insert(Forms.end(), {Texts::Replace(Secret, "\\", "/"), Texts::Replace(Secret, "/", "\\")});
    for (const std::string& Form : Forms)
    {
        AddEncodings(Form);
        if (Form.find_first_of("\\\"'\t") != std::string::npos)
            for (const std::string& Other : {WithEscapes(Form), Argument(Form), Texts::Replace(Form, "\"", "\"\""),
                                             Texts::Replace(Form, "'", "''")})
                AddEncodings(Other);
    }
}

/// The 8-bit form is what tools write; once it was taken for UTF-8, what is left of it.
void TSecretMask::AddEncodings(const std::string& Secret)
{
    FTexts.push_back(Secret);
    if (Texts::IsAscii(Secret))
        return;
    const bool IsUtf8 = Texts::IsValidUtf8(Secret);
    const std::string Bytes = IsUtf8 ? Texts::ToWindows1252(Secret).value_or(Secret) : Secret;
    FTexts.insert(FTexts.end(), {Bytes, Texts::FromWindows1252(Bytes), Texts::MakeValidUtf8(Bytes)});
}

const TTextFinder& TSecretMask::Finder() const
{
    if (!FFinder)
        FFinder.emplace(FTexts);
    return *FFinder;
}

std::string_view TSecretMask::Apply(std::string_view Text, std::string& Buffer) const
{
    if (IsEmpty())
        return Text;
    const std::vector<TTextFinder::TRange> Found = Finder().Find(Text);
    if (Found.empty())
        return Text;
    std::string Result;
    std::size_t Place = 0;
    for (const TTextFinder::TRange& Range : Found)
    {
        Result.append(Text, Place, Range.Begin - Place).append("***");
        Place = Range.End;
    }
    Buffer = Result.append(Text, Place);
    return Buffer;
}

std::size_t TSecretMask::PlaceToCut(std::string_view Text, std::size_t Length) const
{
    if (IsEmpty())
        return Length;
    const std::string_view Head = Text.substr(0, Length);
    std::size_t Place = Length - Finder().OpenEnd(Head);
    for (const TTextFinder::TRange& Range : Finder().Find(Head))
        if (Range.Begin < Place && Place < Range.End)
            Place = Range.Begin;
    return Place;
}
