#pragma once

#include "host/QXPages.h"

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The pages that were registered for classes.
class TClassPages
{
public:
    void Add(std::string_view ClassName, std::span<const TQXPageClass> Pages)
    {
        std::vector<TQXPageClass>& Known = FPages[std::string(ClassName)];
        Known.insert(Known.end(), Pages.begin(), Pages.end());
    }
    [[nodiscard]] std::span<const TQXPageClass> Of(std::string_view ClassName) const
    {
        const auto Found = FPages.find(ClassName);
        return Found == FPages.end() ? std::span<const TQXPageClass>() : Found->second;
    }

private:
    std::map<std::string, std::vector<TQXPageClass>, std::less<>> FPages;
};
