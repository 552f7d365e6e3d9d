#include "platform/RegistryExport.h"

#include "platform/Text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace
{
constexpr std::string_view ClassesPath = "HKEY_LOCAL_MACHINE\\Software\\Classes";

struct TRootName
{
    std::string_view Name;
    std::string_view Path;
};
constexpr TRootName RootNames[] = {
    {"HKEY_LOCAL_MACHINE", "HKEY_LOCAL_MACHINE"},
    {"HKEY_CURRENT_USER", "HKEY_CURRENT_USER"},
    {"HKEY_CLASSES_ROOT", ClassesPath},
    {"HKEY_USERS", "HKEY_USERS"},
    {"HKEY_CURRENT_CONFIG", "HKEY_CURRENT_CONFIG"},
    {"HKLM", "HKEY_LOCAL_MACHINE"},
    {"HKCU", "HKEY_CURRENT_USER"},
    {"HKCR", ClassesPath},
    {"HKU", "HKEY_USERS"},
    {"HKCC", "HKEY_CURRENT_CONFIG"},
};

/// Registries allow no deeper keys.
constexpr std::ptrdiff_t MaximumDepth = 512;

/// The numbers of the types that hold one text, as in `hex(2):`.
constexpr unsigned StringType = 1;
constexpr unsigned ExpandableType = 2;
constexpr unsigned BinaryType = 3;

bool IsHexDigit(char Character)
{
    return (Character >= '0' && Character <= '9') || (Character >= 'a' && Character <= 'f') ||
           (Character >= 'A' && Character <= 'F');
}

class TReader
{
public:
    TReader(std::string_view Text, IRegistryExportSink& Sink) : FText(Text), FSink(Sink) {}

    void Read()
    {
        ReadHeader();
        while (FPosition < FText.size())
        {
            FEntryLine = FLine;
            ReadEntry();
            ReadLineEnd();
        }
    }

private:
    [[noreturn]] void Fail(const std::string& Reason) const { throw ERegistryError(FEntryLine, Reason); }

    [[nodiscard]] char Current() const { return FPosition < FText.size() ? FText[FPosition] : '\0'; }
    [[nodiscard]] bool AtLineEnd() const
    {
        return FPosition == FText.size() || FText[FPosition] == '\r' || FText[FPosition] == '\n';
    }
    void SkipBlanks()
    {
        while (Current() == ' ' || Current() == '\t')
            ++FPosition;
    }
    bool Skip(char Character)
    {
        if (Current() != Character || FPosition == FText.size())
            return false;
        ++FPosition;
        return true;
    }
    /// Skips a word in any case.
    bool SkipWord(std::string_view Word)
    {
        if (!Texts::StartsWithSame(FText.substr(FPosition), Word))
            return false;
        FPosition += Word.size();
        return true;
    }
    std::string_view TakeRestOfLine()
    {
        const std::size_t Start = FPosition;
        FPosition = std::min(FText.find_first_of("\r\n", Start), FText.size());
        return FText.substr(Start, FPosition - Start);
    }
    std::string_view TakeHexDigits()
    {
        const std::size_t Start = FPosition;
        while (IsHexDigit(Current()))
            ++FPosition;
        return FText.substr(Start, FPosition - Start);
    }
    /// Goes to the next line, past a comment if one stands here.
    void ReadLineEnd()
    {
        SkipBlanks();
        if (Current() == ';')
            TakeRestOfLine();
        if (!AtLineEnd())
            Fail("unexpected text behind the entry");
        if (FPosition == FText.size())
            return;
        if (Skip('\r'))
            Skip('\n');
        else
            ++FPosition;
        ++FLine;
    }

    void ReadHeader()
    {
        const std::string_view Header = Texts::Trim(TakeRestOfLine());
        FIsOld = Header == "REGEDIT4";
        if (!FIsOld && Header != "Windows Registry Editor Version 5.00")
            Fail("not a registry export: the first line is neither \"REGEDIT4\" nor "
                 "\"Windows Registry Editor Version 5.00\"");
    }

    void ReadEntry()
    {
        SkipBlanks();
        if (Skip('['))
            ReadKey();
        else if (Current() == '"' || Current() == '@')
            ReadValue();
        else if (!AtLineEnd() && Current() != ';')
            Fail("expected a key, a value or a comment");
    }

    void ReadKey()
    {
        std::string_view Path = TakeRestOfLine();
        Path = Path.substr(0, KeyEnd(Path));
        const bool Deletes = Path.starts_with('-');
        if (Deletes)
            Path.remove_prefix(1);
        FHasKey = true;
        if (!Deletes)
            FSink.OnKey(RealPath(Path));
        else if (Path.find('\\') == std::string_view::npos)
            Fail("a root key cannot be deleted");
        else
            FSink.OnDeleteKey(RealPath(Path));
    }

    /// Where the bracket stands that ends a key: the first with nothing but a comment behind it, for names may hold
    /// brackets too.
    [[nodiscard]] std::size_t KeyEnd(std::string_view Line) const
    {
        for (std::size_t End = Line.find(']'); End != std::string_view::npos; End = Line.find(']', End + 1))
        {
            const std::size_t Next = Line.find_first_not_of(" \t", End + 1);
            if (Next == std::string_view::npos || Line[Next] == ';')
                return End;
        }
        Fail("the key has no closing \"]\"");
    }

    [[nodiscard]] std::string RealPath(std::string_view Path) const
    {
        const std::string_view Root = Path.substr(0, Path.find('\\'));
        const auto* Found = std::find_if(std::begin(RootNames), std::end(RootNames),
                                         [&](const TRootName& Item) { return Texts::Same(Item.Name, Root); });
        if (Found == std::end(RootNames))
            Fail("unknown root key \"" + std::string(Root.substr(0, 80)) + "\"");
        if (std::count(Path.begin(), Path.end(), '\\') > MaximumDepth)
            Fail("the key lies more than " + std::to_string(MaximumDepth) + " levels deep");
        return std::string(Found->Path).append(Path.substr(Root.size()));
    }

    void ReadValue()
    {
        if (!FHasKey)
            Fail("a value stands before the first key");
        const std::string Name = Skip('@') ? std::string() : ReadText();
        SkipBlanks();
        if (!Skip('='))
            Fail("expected \"=\" behind the value's name");
        SkipBlanks();
        bool Expandable = false;
        std::optional<std::string> Value = Current() == '"' ? ReadText() : ReadOther(Expandable);
        FSink.OnValue(Name, std::move(Value), Expandable);
    }

    /// A value that is no text in quotes: its text if its type has one, and whether that is to be expanded.
    std::optional<std::string> ReadOther(bool& Expandable)
    {
        if (Skip('-'))
            return std::nullopt;
        if (SkipWord("dword:"))
        {
            SkipBlanks();
            if (const std::size_t Length = TakeHexDigits().size(); Length == 0 || Length > 8)
                Fail("a dword needs one to eight hexadecimal digits");
            return std::nullopt;
        }
        if (!SkipWord("hex"))
            Fail("the value is neither a text nor \"dword:\", \"hex:\" or \"-\"");
        const unsigned Type = ReadHexType();
        Expandable = Type == ExpandableType;
        const bool IsString = Type == StringType || Expandable;
        const std::string Bytes = ReadBytes(IsString);
        if (!IsString)
            return std::nullopt;
        const std::string Value = FIsOld ? Texts::FromWindows1252(Bytes) : Texts::FromUtf16(Bytes, false);
        return Value.substr(0, Value.find('\0'));
    }

    /// The type in `hex:` and `hex(2):`.
    unsigned ReadHexType()
    {
        unsigned Type = BinaryType;
        if (Skip('('))
        {
            const auto Number = Texts::ParseWhole<unsigned>(TakeHexDigits(), 16);
            if (!Number || !Skip(')'))
                Fail("expected a type in parentheses behind \"hex\"");
            Type = *Number;
        }
        if (!Skip(':'))
            Fail("expected \":\" behind \"hex\"");
        return Type;
    }

    /// Bytes parted by commas; a backslash at a line's end continues them on the next. Kept only if asked for.
    std::string ReadBytes(bool Keep)
    {
        std::string Bytes;
        for (;;)
        {
            SkipBlanks();
            if (Skip('\\'))
                ContinueLine();
            if (AtLineEnd() || Current() == ';')
                return Bytes;
            const std::string_view Digits = TakeHexDigits();
            const auto Byte = Texts::ParseWhole<unsigned char>(Digits, 16);
            if (!Byte || Digits.size() > 2)
                Fail("a byte needs one or two hexadecimal digits");
            if (Keep)
                Bytes += static_cast<char>(*Byte);
            SkipBlanks();
            if (!Skip(',') && !AtLineEnd() && Current() != ';' && Current() != '\\')
                Fail("expected a comma between two bytes");
        }
    }

    void ContinueLine()
    {
        SkipBlanks();
        if (!AtLineEnd())
            Fail("expected the line's end behind \"\\\"");
        ReadLineEnd();
        FEntryLine = FLine;
        SkipBlanks();
        if (FPosition == FText.size())
            Fail("the value is cut off");
    }

    /// A text in quotes. A backslash escapes quotes and itself; line ends are part of the text.
    std::string ReadText()
    {
        std::string Result;
        for (++FPosition;;)
        {
            const std::size_t Start = FPosition;
            FPosition = std::min(FText.find_first_of("\"\\\n", Start), FText.size());
            Result.append(FText, Start, FPosition - Start);
            if (FPosition == FText.size())
                Fail("the text has no closing quote");
            const char Stop = FText[FPosition++];
            if (Stop == '"')
                return Result;
            if (Stop == '\n')
                ++FLine;
            else if (Current() == '"' || Current() == '\\')
            {
                Result += FText[FPosition++];
                continue;
            }
            Result += Stop;
        }
    }

    std::string_view FText;
    IRegistryExportSink& FSink;
    std::size_t FPosition = 0;
    int FLine = 1;
    int FEntryLine = 1;
    bool FIsOld = false;
    bool FHasKey = false;
};
} // namespace

std::string_view RegistryRootPath(TRegistryRoot Root)
{
    switch (Root)
    {
    case TRegistryRoot::ClassesRoot:
        return ClassesPath;
    case TRegistryRoot::CurrentUser:
        return "HKEY_CURRENT_USER";
    case TRegistryRoot::LocalMachine:
        break;
    }
    return "HKEY_LOCAL_MACHINE";
}

void ReadRegistryExport(std::string_view Text, IRegistryExportSink& Sink)
{
    TReader(Text, Sink).Read();
}
