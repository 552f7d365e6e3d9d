#include "package/compiler/QXNameSpaceDetection.h"

#include "host/QXUtilities.h"
#include "platform/Text.h"

namespace
{
/// The next blank-separated word.
std::string Word(std::string_view Text)
{
    return std::string(CreateStringTokeniser(Text)->ReadUntilChar(' '));
}

/// The word of this number, from 1; empty if there are fewer.
std::string Word(std::string_view Text, int Number)
{
    const auto Words = CreateStringTokeniser(Text);
    std::string_view Result;
    while (Number-- > 0)
        Result = Words->ReadUntilChar(' ');
    return std::string(Result);
}

/// What stands behind " class " in any case, with its own case; false if it is not there.
bool FindClass(const std::string& Line, std::string& Rest)
{
    static constexpr std::string_view Keyword = " class ";
    const auto Place = Texts::Lower(Line).find(Keyword);
    if (Place == std::string::npos)
        return false;
    Rest = Line.substr(Place + Keyword.size());
    return true;
}

bool FindVBClass(const std::string& FileName, std::string& Name)
{
    static constexpr std::string_view Keyword = "namespace";
    std::string NameSpace;
    std::string Rest;
    for (const std::string& Item : LoadUnicodeFile(FileName))
    {
        const std::string Line(Texts::Trim(Item));
        if (Line.starts_with('\''))
            continue;
        if (Texts::StartsWithSame(Line, Keyword))
            NameSpace = Word(Line.substr(Keyword.size()));
        else if (FindClass(Line, Rest))
        {
            Name = NameSpace.empty() ? Word(Rest) : NameSpace + '.' + Word(Rest);
            return true;
        }
    }
    return false;
}
} // namespace

bool DetectCSharpNameSpace(const std::string& FileName, std::string& Name)
{
    Name.clear();
    bool HasNameSpace = false;
    std::string Rest;
    for (const std::string& Item : LoadUnicodeFile(FileName))
    {
        const std::string Line = Texts::Replace(Texts::Trim(Item), "\t", " ");
        if (Line.starts_with("//"))
            continue;
        if (!HasNameSpace && Line.find("namespace") != std::string::npos)
        {
            Name = Word(Line, 2);
            HasNameSpace = true;
        }
        else if (HasNameSpace && FindClass(Line, Rest))
        {
            Name.append(".").append(CreateStringTokeniser(Rest)->ReadUntilAny(" :"));
            return true;
        }
    }
    return false;
}

bool DetectVBNameSpace(const std::string& FileName, const std::string& Root, std::string& Name)
{
    Name.clear();
    const bool Found = FindVBClass(FileName, Name);
    if (!Root.empty())
        Name.insert(0, Root + '.');
    return Found;
}

bool DetectJSharpNameSpace(const std::string& FileName, const std::string& Root, std::string& Name)
{
    Name = Root + '.';
    for (const std::string& Item : LoadUnicodeFile(FileName))
    {
        const std::string_view Line = Texts::Trim(Item);
        if (Line.starts_with("//") || Line.find("public class ") == std::string_view::npos)
            continue;
        Name += Word(Line, 3);
        return true;
    }
    return false;
}
