#include "runtime/options/UnknownOptions.h"

#include "runtime/NearestName.h"
#include "runtime/Runtime.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <span>
#include <string>
#include <string_view>

namespace
{
constexpr std::string_view HostTables[] = {"host", "dotnet"};

std::vector<std::string_view> SettingsOf(const TQXOptionsObject& Object)
{
    std::vector<std::string_view> Names;
    for (const TQXProperty& Property : Object.Properties())
        if (Property.IsPersisted())
            Names.push_back(Property.StoredUnder());
    return Names;
}

class TSearch
{
public:
    explicit TSearch(const TOptionsFile& File) : FFile(File) {}

    std::vector<THostFinding> Search(std::span<const TQXOptionsRegistration> Registrations)
    {
        for (const TOptionsFile::TEntry& Table : FFile.Tables())
        {
            const auto Known = std::find_if(Registrations.begin(), Registrations.end(), [&](const auto& Registration) {
                return Registration.OptionsClass.OptionKey == Table.Name;
            });
            if (Known == Registrations.end())
                AddTable(Table, Registrations);
            else
                SearchTable(Table, SettingsOf(*Known->OptionsClass.Create()));
        }
        return std::move(FFindings);
    }

private:
    void SearchTable(const TOptionsFile::TEntry& Table, const std::vector<std::string_view>& Names)
    {
        for (const TOptionsFile::TEntry& Setting : Table.Settings)
            if (std::find(Names.begin(), Names.end(), Setting.Name) == Names.end())
                Add(Setting, fmt::format("no option is called \"{}.{}\"{}", Table.Name, Setting.Name,
                                         DidYouMean(Setting.Name, Names)));
    }

    void AddTable(const TOptionsFile::TEntry& Table, std::span<const TQXOptionsRegistration> Registrations)
    {
        std::vector<std::string_view> Names(std::begin(HostTables), std::end(HostTables));
        for (const TQXOptionsRegistration& Registration : Registrations)
            Names.push_back(Registration.OptionsClass.OptionKey);
        Add(Table, fmt::format("no options are called \"{}\"{}", Table.Name, DidYouMean(Table.Name, Names)));
    }

    void Add(const TOptionsFile::TEntry& Entry, std::string Message)
    {
        FFindings.push_back({FFile.FileName(), Entry.Line, Entry.Column, std::move(Message)});
    }

    const TOptionsFile& FFile;
    std::vector<THostFinding> FFindings;
};
} // namespace

std::vector<THostFinding> FindUnknownOptions(TQXRuntime& Runtime)
{
    const TOptionsFile& File = Runtime.Options();
    if (File.Tables().empty())
        return {};
    return TSearch(File).Search(Runtime.OptionsServices().Options());
}
