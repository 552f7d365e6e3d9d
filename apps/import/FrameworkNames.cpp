#include "apps/import/FrameworkNames.h"

#include "platform/Text.h"

#include <string>

namespace
{
/// In lower case, each between blanks. Those of the later frameworks count as well: projects are built with whichever
/// is there.
constexpr std::string_view Names =
    " "
    "accessibility cscompmgd custommarshalers ieexecremote iehost iiehost isymwrapper microsoft.csharp "
    "microsoft.jscript microsoft.visualbasic microsoft.visualbasic.compatibility "
    "microsoft.visualbasic.compatibility.data microsoft.visualbasic.vsa microsoft.visualc microsoft.vsa "
    "microsoft.vsa.vb.codedomprocessor microsoft.win32.primitives microsoft_vsavb mscorcfg mscorlib "
    "netstandard presentationcore presentationframework regcode system system.componentmodel.composition "
    "system.componentmodel.dataannotations system.configuration system.configuration.install system.core "
    "system.data system.data.datasetextensions system.data.linq system.data.oracleclient system.design "
    "system.directoryservices system.drawing system.drawing.design system.enterpriseservices "
    "system.identitymodel system.io.compression system.management system.messaging system.net "
    "system.net.http system.numerics system.runtime system.runtime.remoting system.runtime.serialization "
    "system.runtime.serialization.formatters.soap system.security system.servicemodel "
    "system.serviceprocess system.transactions system.web system.web.extensions system.web.mobile "
    "system.web.regularexpressions system.web.services system.windows.forms system.xaml system.xml "
    "system.xml.linq tlbexpcode tlbimpcode vjscor vjslib vjssupuilib windowsbase ";
} // namespace

bool IsFrameworkAssembly(std::string_view Name, bool IsCompact)
{
    // That for devices brings designers and parts of its own, which are nowhere else.
    if (IsCompact && (Texts::StartsWithSame(Name, "System.") || Texts::StartsWithSame(Name, "Microsoft.")))
        return true;
    std::string Plain = Texts::Lower(Name);
    if (Plain.ends_with(".dll"))
        Plain.resize(Plain.size() - 4);
    return !Plain.empty() && Names.find(' ' + Plain + ' ') != std::string_view::npos;
}
