#include "platform/RegistryExport.h"
#include "platform/Text.h"
#include "tests/fuzz/FuzzTarget.h"

using Fuzz::Require;

namespace
{
/// Writes what an export says as an export.
class TWriter final : public IRegistryExportSink
{
public:
    void OnKey(const std::string& Path) override { Text += "[" + Path + "]\n"; }
    void OnDeleteKey(const std::string& Path) override { Text += "[-" + Path + "]\n"; }
    void OnValue(const std::string& Name, std::optional<std::string> Value, bool) override
    {
        Text += Quoted(Name) + "=" + (Value ? Quoted(*Value) : "-") + "\n";
    }
    static std::string Quoted(const std::string& Text)
    {
        return '"' + Texts::Replace(Texts::Replace(Text, "\\", "\\\\"), "\"", "\\\"") + '"';
    }
    std::string Text = "REGEDIT4\n";
};

void Check(std::string_view Input)
{
    TWriter First;
    bool IsRead = true;
    try
    {
        ReadRegistryExport(Texts::Decode(Input), First);
    }
    catch (const ERegistryError& Error)
    {
        IsRead = false;
        Require(Error.Line > 0 && *Error.what() != '\0', "an error has a place and a reason");
    }
    TWriter Second;
    ReadRegistryExport(First.Text, Second);
    Require(Second.Text == First.Text, "an export that is written is read as it was");
    if (IsRead)
        static_cast<void>(ParseRegistryExport(Input));
}
const TFuzzTarget Target("registry", Check);
} // namespace
