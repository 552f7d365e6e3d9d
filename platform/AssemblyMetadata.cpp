#include "platform/AssemblyMetadata.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>

namespace
{
/// Something lies outside of the file, or is not what it has to be.
class EMetadataError : public std::runtime_error
{
public:
    EMetadataError() : std::runtime_error("the metadata is damaged") {}
};

std::string_view Slice(std::string_view Bytes, std::size_t Offset, std::size_t Size = std::string_view::npos)
{
    if (Offset > Bytes.size() || (Size != std::string_view::npos && Size > Bytes.size() - Offset))
        throw EMetadataError();
    return Bytes.substr(Offset, Size);
}

/// The little-endian number of Size bytes at an offset.
std::uint64_t Number(std::string_view Bytes, std::size_t Offset, std::size_t Size)
{
    const std::string_view Digits = Slice(Bytes, Offset, Size);
    std::uint64_t Result = 0;
    for (std::size_t Index = Size; Index-- > 0;)
        Result = Result << 8U | static_cast<unsigned char>(Digits[Index]);
    return Result;
}

/// The text that ends with a zero byte.
std::string TextAt(std::string_view Bytes, std::size_t Offset)
{
    const std::string_view Rest = Slice(Bytes, Offset);
    const std::size_t End = Rest.find('\0');
    if (End == std::string_view::npos)
        throw EMetadataError();
    return std::string(Rest.substr(0, End));
}

/// Bytes that begin with their length, in one, two or four bytes themselves.
std::string_view BlobAt(std::string_view Bytes, std::size_t Offset)
{
    const auto First = static_cast<std::size_t>(Number(Bytes, Offset, 1));
    const std::size_t Width = (First & 0x80U) == 0 ? 1 : (First & 0x40U) == 0 ? 2 : 4;
    std::size_t Length = First & (Width == 1 ? 0x7FU : Width == 2 ? 0x3FU : 0x1FU);
    for (std::size_t Index = 1; Index < Width; ++Index)
        Length = Length << 8U | static_cast<std::size_t>(Number(Bytes, Offset + Index, 1));
    return Slice(Bytes, Offset + Width, Length);
}

/// The bytes from a relative virtual address on, as far as its section goes.
class TImage
{
public:
    explicit TImage(std::string_view Bytes) : FBytes(Bytes)
    {
        const std::size_t Header = Number(Bytes, 0x3C, 4);
        if (!Bytes.starts_with("MZ") || Slice(Bytes, Header, 4) != std::string_view("PE\0\0", 4))
            throw EMetadataError();
        constexpr std::size_t FileHeader = 24;
        constexpr std::uint64_t Pe32Plus = 0x20B;
        const std::size_t Optional = Header + FileHeader;
        FDirectories = Optional + (Number(Bytes, Optional, 2) == Pe32Plus ? 112 : 96);
        FSections = Optional + Number(Bytes, Header + 20, 2);
        FSectionCount = Number(Bytes, Header + 6, 2);
    }

    [[nodiscard]] std::string_view At(std::uint64_t Address) const
    {
        constexpr std::size_t SectionSize = 40;
        for (std::size_t Index = 0; Index < FSectionCount; ++Index)
        {
            const std::string_view Section = Slice(FBytes, FSections + Index * SectionSize, SectionSize);
            const std::uint64_t Start = Number(Section, 12, 4);
            const std::uint64_t Size = Number(Section, 16, 4);
            if (Address >= Start && Address - Start < Size)
                return Slice(Slice(FBytes, Number(Section, 20, 4), Size), Address - Start);
        }
        throw EMetadataError();
    }

    /// The metadata of the assembly in this image.
    [[nodiscard]] std::string_view Metadata() const
    {
        constexpr std::size_t CliDirectory = 14 * 8;
        const std::string_view Cli = At(Number(FBytes, FDirectories + CliDirectory, 4));
        return Slice(At(Number(Cli, 8, 4)), 0, Number(Cli, 12, 4));
    }

private:
    std::string_view FBytes;
    std::size_t FDirectories = 0;
    std::size_t FSections = 0;
    std::size_t FSectionCount = 0;
};

/// The tables, by number.
enum TTable : std::size_t {
    TypeRef = 0x01,
    MemberRef = 0x0A,
    CustomAttribute = 0x0C,
    Assembly = 0x20,
    AssemblyRef = 0x23,
    TableCount = 64,
};

/// The columns of the tables up to that of the references. "2" and "4" are numbers of so many bytes; "s", "g" and "b"
/// are places among the texts, GUIDs and bytes; "#" and two digits a row of that table; a capital letter a row of one
/// of several tables.
constexpr std::array<std::string_view, AssemblyRef + 1> Columns{
    "2sggg",  "Sss",    "4ssT#04#06", "#04",    "2sb", "#06",       "422sb#08", "#08",   "22s",
    "#02T",   "Psb",    "2Cb",        "AKb",    "Fb",  "2Db",       "24#02",    "4#04",  "b",
    "#02#14", "#14",    "2sT",        "#02#17", "#17", "2sb",       "2#06H",    "#02OO", "s",
    "b",      "2Ms#1A", "4#04",       "44",     "4",   "422224bss", "4",        "444",   "22224bssb"};

/// Rows of one of several tables: how many bits tell which, and the tables.
struct TChoice
{
    char Letter;
    unsigned Bits;
    std::string_view Tables; ///< their numbers as characters
};
using namespace std::string_view_literals;
constexpr std::array Choices{
    TChoice{'T', 2, "\x02\x01\x1B"sv},
    TChoice{'C', 2, "\x04\x08\x17"sv},
    TChoice{'A', 5, "\x06\x04\x01\x02\x08\x09\x0A\x00\x0E\x17\x14\x11\x1A\x1B\x20\x23\x26\x27\x28\x2A\x2C\x2B"sv},
    TChoice{'F', 1, "\x04\x08"sv},
    TChoice{'D', 2, "\x02\x06\x20"sv},
    TChoice{'P', 3, "\x02\x01\x1A\x06\x1B"sv},
    TChoice{'H', 1, "\x14\x17"sv},
    TChoice{'O', 1, "\x06\x0A"sv},
    TChoice{'M', 1, "\x04\x06"sv},
    TChoice{'K', 3, "\x06\x0A"sv},
    TChoice{'S', 2, "\x00\x1A\x23\x01"sv},
};

unsigned HexDigit(char Digit)
{
    return static_cast<unsigned>(Digit >= 'A' ? Digit - 'A' + 10 : Digit - '0');
}

/// The tables of an assembly's metadata and what their rows point to.
class TTables
{
public:
    explicit TTables(std::string_view Metadata)
    {
        if (!Metadata.starts_with("BSJB"))
            throw EMetadataError();
        ReadStreams(Metadata);
        ReadRowCounts();
    }

    [[nodiscard]] std::size_t RowCount(TTable Table) const { return FRowCounts[Table]; }
    /// The value of a column; rows count from 1, as metadata does.
    [[nodiscard]] std::size_t Value(TTable Table, std::size_t Row, std::size_t Column) const
    {
        if (Row == 0 || Row > FRowCounts[Table])
            throw EMetadataError();
        std::size_t Offset = FStarts[Table] + (Row - 1) * FRowSizes[Table];
        std::string_view Rest = Columns[Table];
        while (Column-- > 0)
            Offset += TakeColumn(Rest);
        return Number(FTables, Offset, TakeColumn(Rest));
    }
    [[nodiscard]] std::string Text(TTable Table, std::size_t Row, std::size_t Column) const
    {
        return TextAt(FTexts, Value(Table, Row, Column));
    }
    [[nodiscard]] std::string_view Blob(TTable Table, std::size_t Row, std::size_t Column) const
    {
        const std::size_t Place = Value(Table, Row, Column);
        return Place == 0 ? std::string_view() : BlobAt(FBlobs, Place);
    }

private:
    void ReadStreams(std::string_view Metadata);
    void ReadRowCounts();
    /// Takes the first column from the text and gives its size.
    std::size_t TakeColumn(std::string_view& Rest) const;
    [[nodiscard]] std::size_t ChoiceSize(char Letter) const;
    [[nodiscard]] std::size_t HeapSize(unsigned Bit) const { return (FHeapSizes & Bit) != 0 ? 4 : 2; }

    std::string_view FTables, FTexts, FBlobs;
    std::uint64_t FHeapSizes = 0;
    std::array<std::size_t, TableCount> FRowCounts{};
    std::array<std::size_t, Columns.size()> FRowSizes{};
    std::array<std::size_t, Columns.size()> FStarts{};
};

void TTables::ReadStreams(std::string_view Metadata)
{
    std::size_t Place = 16 + Number(Metadata, 12, 4);
    const std::size_t Count = Number(Metadata, Place + 2, 2);
    Place += 4;
    for (std::size_t Index = 0; Index < Count; ++Index)
    {
        const std::string Name = TextAt(Metadata, Place + 8);
        const std::string_view Stream = Slice(Metadata, Number(Metadata, Place, 4), Number(Metadata, Place + 4, 4));
        if (Name == "#~" || Name == "#-")
            FTables = Stream;
        else if (Name == "#Strings")
            FTexts = Stream;
        else if (Name == "#Blob")
            FBlobs = Stream;
        Place += 8 + (Name.size() + 4) / 4 * 4;
    }
}

void TTables::ReadRowCounts()
{
    FHeapSizes = Number(FTables, 6, 1);
    const std::uint64_t Present = Number(FTables, 8, 8);
    std::size_t Place = 24;
    for (std::size_t Table = 0; Table < TableCount; ++Table)
        if ((Present >> Table & 1U) != 0)
        {
            FRowCounts[Table] = Number(FTables, Place, 4);
            Place += 4;
        }
    for (std::size_t Table = 0; Table < Columns.size(); ++Table)
    {
        for (std::string_view Rest = Columns[Table]; !Rest.empty();)
            FRowSizes[Table] += TakeColumn(Rest);
        FStarts[Table] = Place;
        Place += FRowCounts[Table] * FRowSizes[Table];
    }
}

std::size_t TTables::TakeColumn(std::string_view& Rest) const
{
    constexpr unsigned Texts = 1;
    constexpr unsigned Guids = 2;
    constexpr unsigned Blobs = 4;
    const char Kind = Rest.front();
    Rest.remove_prefix(1);
    switch (Kind)
    {
    case '2':
        return 2;
    case '4':
        return 4;
    case 's':
        return HeapSize(Texts);
    case 'g':
        return HeapSize(Guids);
    case 'b':
        return HeapSize(Blobs);
    case '#': {
        const std::size_t Table = HexDigit(Rest[0]) * 16 + HexDigit(Rest[1]);
        Rest.remove_prefix(2);
        return FRowCounts[Table] > 0xFFFF ? 4 : 2;
    }
    default:
        return ChoiceSize(Kind);
    }
}

std::size_t TTables::ChoiceSize(char Letter) const
{
    for (const TChoice& Choice : Choices)
        if (Choice.Letter == Letter)
            for (const char Table : Choice.Tables)
                if (FRowCounts[static_cast<unsigned char>(Table)] >= std::size_t{1} << (16 - Choice.Bits))
                    return 4;
    return 2;
}

/// The text that the sources gave an attribute of the assembly, which takes one; empty: they have none.
std::string AttributeText(const TTables& Tables, std::string_view TypeName)
{
    constexpr std::size_t OfAssembly = 1U << 5U | 14U; // its only row, and its place among those that have attributes
    constexpr unsigned KindBits = 3;
    constexpr std::size_t KindMask = 7;
    constexpr std::size_t IsMemberRef = 3;
    constexpr std::size_t IsTypeRef = 1;
    for (std::size_t Row = 1; Row <= Tables.RowCount(CustomAttribute); ++Row)
    {
        const std::size_t Type = Tables.Value(CustomAttribute, Row, 1);
        if (Tables.Value(CustomAttribute, Row, 0) != OfAssembly || (Type & KindMask) != IsMemberRef)
            continue;
        const std::size_t Class = Tables.Value(MemberRef, Type >> KindBits, 0);
        if ((Class & KindMask) == IsTypeRef && Tables.Text(TypeRef, Class >> KindBits, 1) == TypeName)
        {
            const std::string_view Value = Tables.Blob(CustomAttribute, Row, 2);
            return Value.size() < 3 || Value[2] == '\xFF' ? std::string() : std::string(BlobAt(Value, 2));
        }
    }
    return {};
}

TAssemblyMetadata ReadTables(const TTables& Tables)
{
    TAssemblyMetadata Result;
    Result.Name = Tables.Text(Assembly, 1, 7);
    for (const std::size_t Column : {1U, 2U, 3U, 4U})
        Result.Version += (Column == 1 ? "" : ".") + std::to_string(Tables.Value(Assembly, 1, Column));
    Result.PublicKey = Tables.Blob(Assembly, 1, 6);
    Result.KeyFile = AttributeText(Tables, "AssemblyKeyFileAttribute");
    for (std::size_t Row = 1; Row <= Tables.RowCount(AssemblyRef); ++Row)
        Result.References.push_back(Tables.Text(AssemblyRef, Row, 6));
    return Result;
}
} // namespace

std::optional<TAssemblyMetadata> ReadAssemblyMetadata(std::string_view Bytes)
try
{
    return ReadTables(TTables(TImage(Bytes).Metadata()));
}
catch (const EMetadataError&)
{
    return std::nullopt;
}
