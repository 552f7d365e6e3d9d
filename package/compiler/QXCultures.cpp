#include "package/compiler/QXCultures.h"

#include "platform/Paths.h"
#include "platform/Text.h"

namespace
{
/// Those of the IDE's own framework, and the names that later ones gave to some of them.
constexpr std::string_view Cultures =
    " af af-ZA ar ar-AE ar-BH ar-DZ ar-EG ar-IQ ar-JO ar-KW ar-LB ar-LY ar-MA ar-OM ar-QA ar-SA ar-SY ar-TN ar-YE az"
    " az-AZ-Cyrl az-AZ-Latn be be-BY bg bg-BG ca ca-ES cs cs-CZ da da-DK de de-AT de-CH de-DE de-LI de-LU div div-MV el"
    " el-GR en en-AU en-BZ en-CA en-CB en-GB en-IE en-JM en-NZ en-PH en-TT en-US en-ZA en-ZW es es-AR es-BO es-CL es-CO"
    " es-CR es-DO es-EC es-ES es-GT es-HN es-MX es-NI es-PA es-PE es-PR es-PY es-SV es-UY es-VE et et-EE eu eu-ES fa"
    " fa-IR fi fi-FI fo fo-FO fr fr-BE fr-CA fr-CH fr-FR fr-LU fr-MC gl gl-ES gu gu-IN he he-IL hi hi-IN hr hr-HR hu"
    " hu-HU hy hy-AM id id-ID is is-IS it it-CH it-IT ja ja-JP ka ka-GE kk kk-KZ kn kn-IN ko ko-KR kok kok-IN ky ky-KZ"
    " lt lt-LT lv lv-LV mk mk-MK mn mn-MN mr mr-IN ms ms-BN ms-MY nb nb-NO nl nl-BE nl-NL nn nn-NO no pa pa-IN pl pl-PL"
    " pt pt-BR pt-PT ro ro-RO ru ru-RU sa sa-IN sk sk-SK sl sl-SI sq sq-AL sr sr-Cyrl sr-Latn sr-SP-Cyrl sr-SP-Latn sv"
    " sv-FI sv-SE sw sw-KE syr syr-SY ta ta-IN te te-IN th th-TH tr tr-TR tt tt-RU uk uk-UA ur ur-PK uz uz-UZ-Cyrl"
    " uz-UZ-Latn vi vi-VN zh zh-CHS zh-CHT zh-CN zh-Hans zh-Hant zh-HK zh-MO zh-SG zh-TW ";
} // namespace

std::string CultureOf(std::string_view FileName)
{
    const std::string Part = Paths::Extension(Paths::BareName(FileName));
    if (Part.size() < 2 || Part.find(' ') != std::string::npos)
        return {};
    static const std::string Lower = Texts::Lower(Cultures);
    const std::size_t Place = Lower.find(' ' + Texts::Lower(Part).substr(1) + ' ');
    return Place == std::string::npos ? std::string() : std::string(Cultures.substr(Place + 1, Part.size() - 1));
}
