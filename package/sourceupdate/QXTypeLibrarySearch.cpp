#include "package/sourceupdate/QXTypeLibrarySearch.h"

#include "host/QXServices.h"
#include "platform/Text.h"

#include <charconv>
#include <string_view>

namespace
{
/// 0 for what is no hexadecimal number as a whole, or a larger one than any version is.
std::uint32_t ReadHexadecimal(std::string_view Digits)
{
    return Texts::ParseWhole<std::uint32_t>(Digits, 16).value_or(0);
}

/// The version that a key is named after; none for a name without a full stop.
std::optional<TTypeLibraryVersion> ReadVersion(std::string_view KeyName)
{
    const std::size_t Stop = KeyName.find('.');
    if (Stop == std::string_view::npos)
        return std::nullopt;
    return TTypeLibraryVersion{ReadHexadecimal(KeyName.substr(0, Stop)), ReadHexadecimal(KeyName.substr(Stop + 1))};
}

/// The version as the number by which versions compare.
double Rank(const TTypeLibraryVersion& Version)
{
    const std::string Text = "0." + std::to_string(Version.Minor);
    double Fraction = 0;
    std::from_chars(Text.data(), Text.data() + Text.size(), Fraction);
    return Version.Major + Fraction;
}
} // namespace

std::string FindCurrentVersion(const std::vector<std::string>& KeyNames)
{
    std::string Best;
    double BestRank = 0;
    for (const std::string& Name : KeyNames)
    {
        const auto Version = ReadVersion(Name);
        if (!Version || Rank(*Version) <= BestRank)
            continue;
        BestRank = Rank(*Version);
        Best = Name;
    }
    return Best;
}

std::optional<TTypeLibrary> TTypeLibrarySearch::Run() const
{
    const std::string Guid = FindGuid();
    if (Guid.empty())
        return std::nullopt;
    const auto Version = FindVersion("TypeLib\\" + Guid);
    if (!Version)
    {
        FAction.SendMessage("Unable to update reference!");
        return std::nullopt;
    }
    return TTypeLibrary{Guid, *Version};
}

std::unique_ptr<IRegistryKey> TTypeLibrarySearch::OpenKey(const std::string& Path)
{
    return QXRegistry().OpenKey(TRegistryRoot::ClassesRoot, Path);
}

std::string TTypeLibrarySearch::FindGuid() const
{
    FAction.SendMessage("Checking registry for CLSID...");
    const auto Clsid = ReadDefault(FProgID + "\\Clsid", "Unable to find ProgID : ");
    if (!Clsid)
        return {};
    FAction.SendMessage("Found CLSID : " + *Clsid);
    FAction.SendMessage("Checking for TypeLib Guid...");
    const std::string Path = "CLSID\\" + *Clsid + "\\TypeLib";
    const auto Guid = ReadDefault(Path, "Unable to find TypeLib Entry for : ");
    if (!Guid)
        return {};
    FAction.SendMessage("Found typelib guid : " + *Guid);
    if (Guid->empty())
        FAction.SendMessage("The registry key has no default value : " + Path);
    return *Guid;
}

/// A key's default value, which may be empty. None if there is no such key, which the log has been told in the words
/// of Missing.
std::optional<std::string> TTypeLibrarySearch::ReadDefault(const std::string& Path, const std::string& Missing) const
{
    if (const auto Key = OpenKey(Path))
        return Key->ReadString("").value_or("");
    return Fail(Missing + FProgID + " in Registry.");
}

std::optional<TTypeLibraryVersion> TTypeLibrarySearch::FindVersion(const std::string& Path) const
{
    const auto Key = OpenKey(Path);
    if (!Key)
        return Fail("Unable to find registry key : " + Path);
    FAction.SendMessage("Checking for current version of TypeLib in registry  key : " + Path);
    const std::vector<std::string> Names = Key->SubKeyNames();
    if (Names.empty())
        return Fail("No version keys found under : " + Path);
    for (const std::string& Name : Names)
        FAction.SendMessage("Processing Key : " + Name);
    const std::string Current = FindCurrentVersion(Names);
    if (Current.empty())
        return Fail("Unable to determine current version of TypeLib...");
    FAction.SendMessage("Found current version : " + Current);
    return ReadVersion(Current);
}

std::nullopt_t TTypeLibrarySearch::Fail(const std::string& Message) const
{
    FAction.SendMessage(Message);
    return std::nullopt;
}
