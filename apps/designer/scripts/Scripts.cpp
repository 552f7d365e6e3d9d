#include "apps/designer/scripts/Scripts.h"

#include "apps/designer/QtText.h"
#include "host/QXServices.h"
#include "runtime/Runtime.h"
#include "runtime/scripting/ScriptEngine.h"

#include <map>

namespace
{
TShownScript Shown(TQXScript& Script)
{
    TShownScript Result{Script.Name(), Script.Text()};
    for (const TQXScriptParam& Param : Script.Params())
        Result.Parameters.push_back(Param.Name() + (Param.IsOutput() ? " (out)" : ""));
    return Result;
}
} // namespace

namespace Scripts
{
std::vector<TShownScript> OfAction(const TCustomQXAction& Action)
{
    std::vector<TShownScript> Result;
    for (const auto& Script : Action.Scripts())
        Result.push_back(Shown(*Script));
    return Result;
}

std::vector<TShownScript> OfProject(const TProject& Project)
{
    std::map<std::string, TShownScript> ByName;
    for (const TQXActionRegistration& Registration : QXActionServices().Actions())
    {
        const auto Action = Registration.ActionClass.Create();
        for (const auto& Script : Action->Scripts())
            ByName.try_emplace(Script->Name(), Shown(*Script));
    }
    for (const auto& [Name, Text] : Project.Scripts)
        ByName[Name].Text = Text;
    std::vector<TShownScript> Result;
    Result.reserve(ByName.size());
    for (auto& [Name, Script] : ByName)
        Result.push_back(std::move(Script));
    return Result;
}

std::pair<int, QString> Check(const std::string& Name, const std::string& Text)
{
    TQXRuntime& Runtime = TQXRuntime::Current();
    TQXScript Script(Name);
    Script.SetText(Text);
    const auto Failure = Runtime.ScriptEngine()->Parse(Script, Runtime.ScriptingServices());
    return Failure ? std::pair(Failure->Line, ToQt(Failure->Reason)) : std::pair(0, QString());
}
} // namespace Scripts
