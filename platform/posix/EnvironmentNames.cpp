#include "platform/Files.h"
#include "platform/Text.h"

#include <unistd.h>

bool Environment::GetSame(std::string_view Name, std::string& Value)
{
    if (Get(std::string(Name), Value))
        return true;
    for (char** Entry = environ; Entry && *Entry; ++Entry)
    {
        const std::string_view Line(*Entry);
        const std::size_t Sign = Line.find('=');
        if (Sign == std::string_view::npos || !Texts::Same(Line.substr(0, Sign), Name))
            continue;
        Value = Line.substr(Sign + 1);
        return true;
    }
    return false;
}
