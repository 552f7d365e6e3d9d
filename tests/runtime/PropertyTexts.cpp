#include "tests/runtime/PropertyTexts.h"

#include "host/QXOverloads.h"
#include "runtime/HostErrors.h"
#include "runtime/properties/ValueCheck.h"

bool SetProperty(const TQXPersistent& Object, const std::string& Name, const std::string& Value)
{
    const TQXProperty* Property = Object.FindProperty(Name);
    if (!Property || !Property->IsPersisted())
        return false;
    try
    {
        TQXPropertyValue Parsed = ParsePropertyText(*Property, Name, Value);
        if (Property->Type == TQXPropertyType::StringList)
        {
            auto Lines = std::get<std::vector<std::string>>(Property->Read());
            Lines.push_back(Value);
            Parsed = std::move(Lines);
        }
        Property->Write(Parsed);
        return true;
    }
    catch (const EUsageError&)
    {
        return false;
    }
}

std::string ValueText(const TQXPropertyValue& Value)
{
    return std::visit(TQXOverloads{[](const std::string& Text) { return Text; },
                                   [](bool Flag) { return std::string(Flag ? "true" : "false"); },
                                   [](int Number) { return std::to_string(Number); },
                                   [](const std::vector<std::string>& Items) {
                                       std::string Text;
                                       for (const std::string& Item : Items)
                                           Text.append(Item).append("|");
                                       return Text;
                                   }},
                      Value);
}
