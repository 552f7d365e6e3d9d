#pragma once

#include "package/documentation/QXNDocOptions.h"

#include <string_view>

/// A page that goes by the version of NDoc which the user picks on another.
class IQXNDocPropertyPage
{
public:
    static constexpr std::string_view Identifier = "e9444a2f-678d-4cf1-be68-753214125900";
    virtual ~IQXNDocPropertyPage() = default;
    virtual void NDocVersionChanged(TNDocVersion Version) = 0;
};
