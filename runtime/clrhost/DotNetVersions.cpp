#include "runtime/clrhost/DotNetVersions.h"

#include <algorithm>
#include <compare>
#include <utility>

namespace
{
/// A version that the options file names.
class TConfiguredVersion final : public IQXDotNetVersionInfo
{
public:
    explicit TConfiguredVersion(TConfiguredDotNet Version) : FVersion(std::move(Version)) {}
    [[nodiscard]] std::string GetVersionName() const override { return FVersion.Name; }
    [[nodiscard]] std::string GetFrameworkPath() const override { return FVersion.Framework; }
    [[nodiscard]] std::string GetSDKPath() const override { return FVersion.SDK; }

private:
    TConfiguredDotNet FVersion;
};

/// The numbers of a version's name, as digits without leading zeros; none for a name of another form.
std::vector<std::string_view> NumbersOf(std::string_view Name)
{
    std::vector<std::string_view> Result;
    if (!Name.starts_with('v'))
        return Result;
    do
    {
        Name.remove_prefix(1);
        std::string_view Digits = Name.substr(0, Name.find_first_not_of("0123456789"));
        if (Digits.empty())
            return {};
        Name.remove_prefix(Digits.size());
        Digits.remove_prefix(std::min(Digits.find_first_not_of('0'), Digits.size()));
        Result.push_back(Digits);
    } while (Name.starts_with('.'));
    return Name.empty() ? Result : std::vector<std::string_view>();
}

bool IsSmaller(std::string_view Left, std::string_view Right)
{
    return std::pair(Left.size(), Left) < std::pair(Right.size(), Right);
}
} // namespace

bool ComesBefore(std::string_view Left, std::string_view Right)
{
    const std::vector<std::string_view> LeftNumbers = NumbersOf(Left);
    const std::vector<std::string_view> RightNumbers = NumbersOf(Right);
    if (LeftNumbers == RightNumbers)
        return Left < Right;
    return std::ranges::lexicographical_compare(LeftNumbers, RightNumbers, IsSmaller);
}

TDotNetVersions::TDotNetVersions(TDotNetVersionList Detected, const std::vector<TConfiguredDotNet>& Configured)
    : FVersions(std::move(Detected))
{
    for (const TConfiguredDotNet& Version : Configured)
    {
        std::erase_if(FVersions, [&](const auto& Other) { return Other->GetVersionName() == Version.Name; });
        FVersions.push_back(std::make_unique<TConfiguredVersion>(Version));
    }
    std::ranges::sort(FVersions, ComesBefore, [](const auto& Version) { return Version->GetVersionName(); });
}

const IQXDotNetVersionInfo& TDotNetVersions::GetVersionByIndex(int Index) const
{
    return *FVersions.at(static_cast<std::size_t>(Index));
}

const IQXDotNetVersionInfo* TDotNetVersions::GetVersion(std::string_view Name) const
{
    const auto Found =
        std::ranges::find_if(FVersions, [&](const auto& Version) { return Version->GetVersionName() == Name; });
    return Found == FVersions.end() ? nullptr : Found->get();
}
