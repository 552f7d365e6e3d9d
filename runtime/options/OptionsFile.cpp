#include "runtime/OptionsFile.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "runtime/HostErrors.h"
#include "runtime/options/OptionsReader.h"
#include "runtime/projects/TextJoiner.h"
#include "runtime/projects/TomlDocument.h"
#include "runtime/projects/TomlEditor.h"
#include "runtime/projects/TomlText.h"
#include "runtime/projects/ValueReader.h"

#include <algorithm>
#include <fmt/format.h>

namespace
{
/// Stored numbers may stand for texts, texts for numbers, and the number of an element for its name.
TGivenValue GivenOption(const TQXProperty& Property, const TTomlNode& Node)
{
    if (Node.Kind == TTomlKind::String)
        return GivenText(Property.Type == TQXPropertyType::Integer ? Property.Type : TQXPropertyType::String,
                         Node.String);
    if (Node.Kind != TTomlKind::Integer || (!Property.IsOrdinal && Property.Type != TQXPropertyType::String))
        return GivenToml(Node);
    const auto Place = static_cast<std::uint64_t>(Node.Integer);
    const bool IsElement = Property.IsOrdinal && Place < Property.Elements.size();
    return {"a string", IsElement ? std::string(Property.Elements[Place]) : std::to_string(Node.Integer)};
}

std::string StoredText(const TQXProperty& Property, const TQXPropertyValue& Value, std::string_view LineEnd)
{
    if (!Property.IsOrdinal)
        return TomlText::Value(Property.Type, Value, LineEnd);
    const auto& Names = Property.Elements;
    return std::to_string(std::find(Names.begin(), Names.end(), std::get<std::string>(Value)) - Names.begin());
}
TOptionsFile::TEntry EntryOf(const TTomlEntry& Entry)
{
    return {Entry.Key, static_cast<int>(Entry.Position.Line), static_cast<int>(Entry.Position.Column)};
}
} // namespace

struct TOptionsFile::TImpl
{
    TImpl(std::string AFileName, std::string Text)
        : FileName(std::move(AFileName)), Document(FileName, std::move(Text)),
          Settings(ReadHostSettings(Document, FileName))
    {}

    [[nodiscard]] const TTomlEntry* Find(std::string_view Key, std::string_view Name) const
    {
        const TTomlEntry* Table = Document.Root().Find(Key);
        return Table ? Table->Value.Find(Name) : nullptr;
    }

    /// The text with a value in place of the stored one, at the end of its table, or in a table of its own at the end.
    [[nodiscard]] std::string TextWith(std::string_view Key, std::string_view Name, std::string Value) const
    {
        const TTomlEntry* Table = Document.Root().Find(Key);
        std::vector<TTomlWish> Wishes;
        if (Table)
            for (const TTomlEntry& Entry : Table->Value.Entries)
                if (Entry.Key != Name)
                    Wishes.push_back({TTomlWish::TKind::Keep, Entry.Key, {}});
        Wishes.push_back({TTomlWish::TKind::Write, std::string(Name), std::move(Value)});

        TTomlEditor Editor(Document);
        TTextJoiner Joiner(Document.LineEnd());
        const bool IsComplete = Table && Editor.Apply(Table->Value, Wishes);
        Joiner.AddOld(0, Editor.Text());
        if (!IsComplete)
            Joiner.AddNew(TomlSection(fmt::format("[{}]", TomlText::Key(Key)), Wishes, Document.LineEnd()));
        return Joiner.Finish(1);
    }

    std::string FileName;
    TTomlDocument Document;
    THostSettings Settings;
};

TOptionsFile::TOptionsFile() : FImpl(std::make_unique<TImpl>(std::string(), std::string())) {}
TOptionsFile::~TOptionsFile() = default;
TOptionsFile::TOptionsFile(TOptionsFile&&) noexcept = default;
TOptionsFile& TOptionsFile::operator=(TOptionsFile&&) noexcept = default;

TOptionsFile TOptionsFile::Load(const std::string& FileName, bool MustExist)
{
    if (Files::Find(FileName).empty())
    {
        if (MustExist)
            throw EHostFileError({.File = FileName, .Message = "there is no such options file"});
        return Parse(FileName, {});
    }
    std::string Text;
    try
    {
        Text = Files::Read(FileName);
    }
    catch (const EFileError& Error)
    {
        throw EHostFileError({.File = FileName, .Message = Error.Reason});
    }
    return Parse(FileName, Text);
}

std::vector<TOptionsFile::TEntry> TOptionsFile::Tables() const
{
    std::vector<TEntry> Tables;
    for (const TTomlEntry& Table : FImpl->Document.Root().Entries)
    {
        if (Table.Key == "host" || Table.Key == "dotnet")
            continue;
        Tables.push_back(EntryOf(Table));
        for (const TTomlEntry& Setting : Table.Value.Entries)
            Tables.back().Settings.push_back(EntryOf(Setting));
    }
    return Tables;
}

TOptionsFile TOptionsFile::Parse(const std::string& FileName, std::string_view Text)
{
    TOptionsFile File;
    File.FImpl = std::make_unique<TImpl>(FileName, std::string(Text));
    return File;
}

std::string TOptionsFile::DefaultFileName()
{
    return Paths::Expand("quexley/options.toml", Files::ConfigurationFolder());
}

const std::string& TOptionsFile::FileName() const
{
    return FImpl->FileName;
}

const THostOptions& TOptionsFile::Host() const
{
    return FImpl->Settings.Host;
}

bool TOptionsFile::DetectDotNet() const
{
    return FImpl->Settings.DetectDotNet;
}

const std::vector<TConfiguredDotNet>& TOptionsFile::DotNetVersions() const
{
    return FImpl->Settings.DotNetVersions;
}

std::optional<std::string> TOptionsFile::ReadString(std::string_view Key, std::string_view Name) const
{
    const TTomlEntry* Entry = FImpl->Find(Key, Name);
    if (Entry && Entry->Value.Kind == TTomlKind::String)
        return Entry->Value.String;
    if (Entry && Entry->Value.Kind == TTomlKind::Integer)
        return std::to_string(Entry->Value.Integer);
    return {};
}

std::optional<int> TOptionsFile::ReadInteger(std::string_view Key, std::string_view Name) const
{
    const auto Text = ReadString(Key, Name);
    return Text ? Texts::ParseWhole<int>(*Text) : std::nullopt;
}

void TOptionsFile::WriteString(std::string_view Key, std::string_view Name, std::string_view Value)
{
    if (ReadString(Key, Name) != Value)
        Store(Key, Name, TomlText::String(Value));
}

void TOptionsFile::WriteInteger(std::string_view Key, std::string_view Name, int Value)
{
    if (ReadInteger(Key, Name) != Value)
        Store(Key, Name, std::to_string(Value));
}

std::optional<TQXPropertyValue> TOptionsFile::Read(std::string_view Key, const TQXProperty& Property) const
{
    const TTomlEntry* Entry = FImpl->Find(Key, Property.StoredUnder());
    if (!Entry)
        return {};
    TValueCheck Check(Entry->Key);
    auto Value = Check.Property(Property, GivenOption(Property, Entry->Value));
    TFileFindings Findings(FImpl->FileName);
    for (const TValueError& Error : Check.Errors())
        Findings.Add(Entry->Value.Begin, Error.Text);
    Findings.ThrowIfAny();
    return Value;
}

void TOptionsFile::Write(std::string_view Key, const TQXProperty& Property, const TQXPropertyValue& Value)
{
    if (Read(Key, Property) != Value)
        Store(Key, Property.StoredUnder(), StoredText(Property, Value, FImpl->Document.LineEnd()));
}

void TOptionsFile::Store(std::string_view Key, std::string_view Name, std::string Value)
{
    FImpl = std::make_unique<TImpl>(FImpl->FileName, FImpl->TextWith(Key, Name, std::move(Value)));
}

const std::string& TOptionsFile::Text() const
{
    return FImpl->Document.Text();
}

void TOptionsFile::Save() const
{
    const std::string Folder = Paths::Folder(FImpl->FileName);
    if (!Folder.empty() && !Files::ForcePrivateFolders(Folder))
        throw EFileError(Folder, "the folder cannot be made");
    Files::ReplaceContent(FImpl->FileName, Text());
}
