#include "apps/quexley/Answer.h"
#include "apps/quexley/commands/Commands.h"
#include "apps/quexley/commands/PropertyTexts.h"
#include "platform/FolderLock.h"
#include "runtime/HostErrors.h"
#include "runtime/NearestName.h"
#include "runtime/Runtime.h"
#include "runtime/properties/ValueCheck.h"

#include <fmt/format.h>

#include <array>
#include <functional>

namespace
{
/// An option under the name KEY.NAME.
struct TOption
{
    std::string Name;
    std::function<std::string()> Get;
    /// Where the value comes from: "stored", "found" by a search or "default".
    std::function<std::string()> Origin;
    /// Puts a value into the text of the options file.
    std::function<void(const std::string&)> Set;
};

/// A setting of the host itself, in its table of the options file.
struct THostSetting
{
    std::string_view Name;
    std::string (*Get)(const THostOptions& Host);
    TQXPropertyType Type;
};
constexpr std::string_view HostKey = "host";
constexpr std::array<THostSetting, 3> HostSettings = {{
    {"registry", [](const THostOptions& Host) { return Host.Registry; }, TQXPropertyType::String},
    {"windows_dir", [](const THostOptions& Host) { return Host.WindowsDir; }, TQXPropertyType::String},
    {"script_timeout", [](const THostOptions& Host) { return std::to_string(Host.ScriptTimeout); },
     TQXPropertyType::Integer},
}};

TOption HostOption(TQXRuntime& Runtime, const THostSetting& Setting)
{
    std::string Name = fmt::format("{}.{}", HostKey, Setting.Name);
    TQXProperty Property;
    Property.Name = Setting.Name;
    Property.Type = Setting.Type;
    return {Name, [&Runtime, &Setting] { return Setting.Get(Runtime.Options().Host()); },
            [&Runtime, Property] { return Runtime.Options().Read(HostKey, Property) ? "stored" : "default"; },
            [&Runtime, Property, Name](const std::string& Text) {
                Runtime.Options().Write(HostKey, Property, ParsePropertyText(Property, Name, Text));
            }};
}

/// A property of a registered options object, which is loaded only when it is used: that may search the registry.
class TObjectOption
{
public:
    TObjectOption(TQXRuntime& Runtime, const TQXOptionsRegistration& Registration, const TQXProperty& Unloaded)
        : FRuntime(Runtime), FRegistration(Registration), FName(Unloaded.Name), FDefault(Unloaded.Read())
    {}

    [[nodiscard]] const TQXProperty& Property() const
    {
        const TQXOptionsClass& Class = FRegistration.OptionsClass;
        return *FRuntime.OptionsServices().GetOptions(Class.Category, Class.Name)->FindProperty(FName);
    }
    [[nodiscard]] std::string Origin() const
    {
        const TQXPropertyValue Value = Property().Read();
        if (FRuntime.Options().Read(FRegistration.OptionsClass.OptionKey, Property()) == Value)
            return "stored";
        return Value == FDefault ? "default" : "found";
    }
    void Set(const std::string& Name, const std::string& Text) const
    {
        Property().Write(ParsePropertyText(Property(), Name, Text));
        FRuntime.StoreOptions(FRegistration);
    }

private:
    TQXRuntime& FRuntime;
    const TQXOptionsRegistration& FRegistration;
    std::string_view FName;
    TQXPropertyValue FDefault;
};

TOption ObjectOption(TQXRuntime& Runtime, const TQXOptionsRegistration& Registration, const TQXProperty& Unloaded)
{
    std::string Name = fmt::format("{}.{}", Registration.OptionsClass.OptionKey, Unloaded.StoredUnder());
    const TObjectOption Option(Runtime, Registration, Unloaded);
    return {Name, [Option] { return PropertyText(Option.Property().Read()); }, [Option] { return Option.Origin(); },
            [Option, Name](const std::string& Text) { Option.Set(Name, Text); }};
}

/// All options, those of the options objects in order of registration and then the host's.
std::vector<TOption> AllOptions(TQXRuntime& Runtime)
{
    std::vector<TOption> Result;
    for (const TQXOptionsRegistration& Registration : Runtime.OptionsServices().Options())
    {
        const auto Unloaded = Registration.OptionsClass.Create();
        for (const TQXProperty& Property : Unloaded->Properties())
            if (Property.IsPersisted())
                Result.push_back(ObjectOption(Runtime, Registration, Property));
    }
    for (const THostSetting& Setting : HostSettings)
        Result.push_back(HostOption(Runtime, Setting));
    return Result;
}

TOption FindOption(TQXRuntime& Runtime, const std::string& Name)
{
    std::vector<std::string_view> Names;
    const std::vector<TOption> Options = AllOptions(Runtime);
    for (const TOption& Option : Options)
    {
        if (Option.Name == Name)
            return Option;
        Names.push_back(Option.Name);
    }
    throw EUsageError(fmt::format("there is no option \"{}\"{}", Name, DidYouMean(Name, Names)));
}

std::string ListOptions(TQXRuntime& Runtime)
{
    std::vector<std::vector<std::string>> Rows;
    for (const TOption& Option : AllOptions(Runtime))
        Rows.push_back({Option.Name, Option.Origin(), "= " + Option.Get()});
    return AlignColumns(Rows);
}

int SetOption(TQXRuntime& Runtime, const std::string& FileName, const std::string& Name, const std::string& Text)
{
    // Before the file is read: of two that set an option at once none is to lose what the other one wrote.
    const TFolderLock Lock(FileName);
    FindOption(Runtime, Name).Set(Text);
    const TOptionsFile& File = Runtime.Options();
    // What no program could read again is not stored.
    (void)TOptionsFile::Parse(File.FileName(), File.Text());
    File.Save();
    return 0;
}
} // namespace

int OptionsCommand(const TArguments& Arguments, TQXRuntime& Runtime)
{
    const std::vector<std::string>& Words = Arguments.Words;
    if (Words.empty() || (Words.front() == "list" && Words.size() == 1))
        return WriteAnswer(ListOptions(Runtime));
    if (Words.front() == "get" && Words.size() == 2)
        return WriteAnswer(FindOption(Runtime, Words[1]).Get() + "\n");
    if (Words.front() == "set" && Words.size() == 3)
        return SetOption(Runtime,
                         Arguments.OptionsFile.empty() ? TOptionsFile::DefaultFileName() : Arguments.OptionsFile,
                         Words[1], Words[2]);
    throw EUsageError("options wants \"list\", \"get KEY.NAME\" or \"set KEY.NAME VALUE\"");
}
