#include "apps/designer/document/TextChange.h"

#include <algorithm>

TTextChange TTextChange::Between(std::string_view Old, std::string_view New)
{
    const auto Differ = std::mismatch(Old.begin(), Old.end(), New.begin(), New.end());
    const auto Offset = static_cast<std::size_t>(Differ.first - Old.begin());
    Old.remove_prefix(Offset);
    New.remove_prefix(Offset);
    const auto Ends = std::mismatch(Old.rbegin(), Old.rend(), New.rbegin(), New.rend());
    const auto Same = static_cast<std::size_t>(Ends.first - Old.rbegin());
    return {Offset, std::string(Old.substr(0, Old.size() - Same)), std::string(New.substr(0, New.size() - Same))};
}

std::string TTextChange::Done(std::string Text) const
{
    return Text.replace(Offset, Removed.size(), Inserted);
}

std::string TTextChange::Undone(std::string Text) const
{
    return Text.replace(Offset, Inserted.size(), Removed);
}
