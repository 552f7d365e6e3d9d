#include "runtime/options/OptionsReader.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "runtime/NearestName.h"
#include "runtime/projects/FileFindings.h"
#include "runtime/projects/ValueReader.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

namespace
{
constexpr std::array<std::string_view, 3> HostKeys{"registry", "windows_dir", "script_timeout"};
constexpr std::array<std::string_view, 1> DotNetKeys{"detect"};
constexpr std::array<std::string_view, 2> VersionKeys{"framework", "sdk"};

/// "v" and a decimal number.
bool IsVersionName(std::string_view Name)
{
    const auto IsDigit = [](char Character) { return Character >= '0' && Character <= '9'; };
    return Name.size() > 1 && Name[0] == 'v' && IsDigit(Name[1]) && IsDigit(Name.back()) &&
           std::count(Name.begin(), Name.end(), '.') <= 1 &&
           std::all_of(Name.begin() + 1, Name.end(),
                       [&](char Character) { return IsDigit(Character) || Character == '.'; });
}

class TReader
{
public:
    TReader(const std::string& FileName, THostSettings& Settings, TFileFindings& Findings)
        : FFileName(FileName), FSettings(Settings), FFindings(Findings), FValues(Findings)
    {}

    void ReadRoot(const TTomlNode& Root);

private:
    void ReadHost(const TTomlNode& Table);
    void ReadDotNet(const TTomlNode& Table);
    void ReadVersion(const TTomlEntry& Entry);
    void CheckOptions(const TTomlEntry& Table);
    [[nodiscard]] std::string Path(const TTomlEntry& Entry);
    void AddUnknownKey(std::string_view Table, const TTomlEntry& Entry, std::span<const std::string_view> Keys);

    const std::string& FFileName;
    THostSettings& FSettings;
    TFileFindings& FFindings;
    TValueReader FValues;
};

void TReader::ReadRoot(const TTomlNode& Root)
{
    for (const TTomlEntry& Entry : Root.Entries)
        if (const TTomlNode* Table = FValues.Table(Entry); !Table)
            continue;
        else if (Entry.Key == "host")
            ReadHost(*Table);
        else if (Entry.Key == "dotnet")
            ReadDotNet(*Table);
        else
            CheckOptions(Entry);
}

void TReader::ReadHost(const TTomlNode& Table)
{
    THostOptions& Host = FSettings.Host;
    for (const TTomlEntry& Entry : Table.Entries)
        if (Entry.Key == "registry")
            Host.Registry = Path(Entry);
        else if (Entry.Key == "windows_dir")
            Host.WindowsDir = Path(Entry);
        else if (Entry.Key == "script_timeout")
            Host.ScriptTimeout = FValues.Integer(Entry, 1).value_or(Host.ScriptTimeout);
        else
            AddUnknownKey("[host]", Entry, HostKeys);
}

void TReader::ReadDotNet(const TTomlNode& Table)
{
    for (const TTomlEntry& Entry : Table.Entries)
        if (Entry.Key == "detect")
            FSettings.DetectDotNet = FValues.Boolean(Entry).value_or(true);
        else if (Entry.Value.Kind != TTomlKind::Table)
            AddUnknownKey("[dotnet]", Entry, DotNetKeys);
        else
            ReadVersion(Entry);
}

void TReader::ReadVersion(const TTomlEntry& Entry)
{
    if (!IsVersionName(Entry.Key))
        FFindings.Add(Entry.Position, fmt::format("\"{}\" is not the name of a .NET version, which is \"v\" and a "
                                                  "number with one full stop at most, as in \"v1.1\"",
                                                  Entry.Key));
    TConfiguredDotNet Version;
    Version.Name = Entry.Key;
    for (const TTomlEntry& Inner : Entry.Value.Entries)
        if (Inner.Key == "framework")
            Version.Framework = Path(Inner);
        else if (Inner.Key == "sdk")
            Version.SDK = Path(Inner);
        else if (Inner.Value.Kind == TTomlKind::Table)
            FFindings.Add(Inner.Position, fmt::format("the name of a .NET version stands in quotes: [dotnet.\"{}.{}\"]",
                                                      Entry.Key, Inner.Key));
        else
            AddUnknownKey(fmt::format("[dotnet.\"{}\"]", Entry.Key), Inner, VersionKeys);
    FSettings.DotNetVersions.push_back(std::move(Version));
}

/// The names in these tables belong to packages, which need not be loaded.
void TReader::CheckOptions(const TTomlEntry& Table)
{
    for (const TTomlEntry& Entry : Table.Value.Entries)
        if (Entry.Value.Kind == TTomlKind::Table)
            FFindings.Add(
                Entry.Position,
                fmt::format("\"{1}\" is a table inside \"{0}\"; a name with a dot stands in quotes: [\"{0}.{1}\"]",
                            Table.Key, Entry.Key));
        else if (Entry.Value.Kind == TTomlKind::Integer)
            static_cast<void>(FValues.Integer(Entry));
        else if (Entry.Value.Kind == TTomlKind::Array)
            static_cast<void>(FValues.Strings(Entry));
        else if (Entry.Value.Kind == TTomlKind::Float || Entry.Value.Kind == TTomlKind::DateTime)
            FFindings.AddWrongType(Entry.Value, Entry.Key, "a string, an integer, a Boolean or an array of strings");
}

std::string TReader::Path(const TTomlEntry& Entry)
{
    const auto Text = FValues.String(Entry);
    if (!Text || Text->empty())
        return {};
    return Paths::Expand(*Text, Paths::Folder(Paths::Expand(FFileName, Files::CurrentFolder())));
}

void TReader::AddUnknownKey(std::string_view Table, const TTomlEntry& Entry, std::span<const std::string_view> Keys)
{
    FFindings.Add(Entry.Position, fmt::format("{} has no key \"{}\"{}", Table, Entry.Key, DidYouMean(Entry.Key, Keys)));
}
} // namespace

THostSettings ReadHostSettings(const TTomlDocument& Document, const std::string& FileName)
{
    THostSettings Settings;
    TFileFindings Findings(FileName);
    TReader(FileName, Settings, Findings).ReadRoot(Document.Root());
    Findings.ThrowIfAny();
    return Settings;
}
