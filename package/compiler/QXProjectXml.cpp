#include "package/compiler/QXProjectXml.h"

#include "platform/Text.h"

#include <stdexcept>

std::string GetAttributeValueString(std::string_view Name, const TXmlElement& Element)
{
    return Element.Attribute(Name);
}

bool GetAttributeValueBoolean(std::string_view Name, const TXmlElement& Element)
{
    const std::string Value = Element.Attribute(Name);
    return Texts::Same(Value, "TRUE") || Texts::Same(Value, "ON");
}

std::string GetProjectPath(const TXmlElement& File)
{
    return File.Attribute(File.HasAttribute("Link") ? "Link" : "RelPath");
}

int GetAttributeValueNumber(std::string_view Name, const TXmlElement& Element, int Base)
{
    const std::string Value = Element.Attribute(Name);
    const std::string_view Digits = Texts::Trim(Value);
    if (const auto Number = Texts::ParseWhole<int>(Digits, Base))
        return *Number;
    const std::string_view Known = "0123456789abcdefABCDEF";
    const bool IsNumber =
        !Digits.empty() && Digits.find_first_not_of(Known.substr(0, Base == 16 ? 22 : 10)) == std::string_view::npos;
    throw std::runtime_error(std::string(Name) + " \"" + Value +
                             (IsNumber     ? "\" is too large"
                              : Base == 16 ? "\" is not a hexadecimal number"
                                           : "\" is not a number"));
}

std::string GetOptionValueString(std::string_view Name, const TXmlElement& OptionsSet)
{
    const auto Option = OptionsSet.SelectNode("Options/Options[@Name=\"" + std::string(Name) + "\"]");
    return Option ? Option->Text() : "";
}

bool GetOptionValueBoolean(std::string_view Name, const TXmlElement& OptionsSet)
{
    return Texts::Same(GetOptionValueString(Name, OptionsSet), "TRUE");
}

TDotNetWarningLevels FindWarningLevel(std::string_view Text)
{
    static constexpr TNamedValue<TDotNetWarningLevels> Levels[] = {{"1", TDotNetWarningLevels::WarnLevel1},
                                                                   {"2", TDotNetWarningLevels::WarnLevel2},
                                                                   {"3", TDotNetWarningLevels::WarnLevel3},
                                                                   {"4", TDotNetWarningLevels::WarnLevel4}};
    return FindNamedValue(Levels, Text, TDotNetWarningLevels::WarnOff);
}
