#include "host/QXAction.h"

#include "runtime/Runtime.h"
#include "runtime/actions/RunContext.h"

TCustomQXAction::~TCustomQXAction() = default;
TQXAction::~TQXAction() = default;
IQXScriptTarget::~IQXScriptTarget() = default;

IQXActionHost* TCustomQXAction::Host()
{
    return TQXRuntime::RunningAction();
}

bool TCustomQXAction::IsDryRun()
{
    const IQXActionHost* Running = Host();
    return Running && Running->IsDryRun();
}

bool TCustomQXAction::FollowsIDE()
{
    const IQXActionHost* Running = Host();
    return Running && Running->FollowsIDE();
}

TQXScriptParam& TQXScript::AddParam(std::string Name, TQXParamType Type)
{
    TQXScriptParam& Param = AddParam();
    Param.SetName(std::move(Name));
    Param.SetParamType(Type);
    return Param;
}

TQXScriptParam* TQXScript::FindParam(std::string_view Name)
{
    for (TQXScriptParam& Param : FParams)
        if (Param.Name() == Name)
            return &Param;
    return nullptr;
}

void TQXScript::SetValue(std::string_view Name, TQXVariant Value)
{
    if (TQXScriptParam* Param = FindParam(Name))
        Param->SetValue(std::move(Value));
}

void TCustomQXAction::SendMessage(std::string_view Text) const
{
    if (IQXActionHost* Running = Host())
        Running->SendMessage(Text);
}

bool TCustomQXAction::TryExpandExpression(std::string_view Label, std::string_view Expression, std::string& Value,
                                          bool Required) const
{
    if (IQXActionHost* Running = Host())
        return Running->TryExpandExpression(Label, Expression, Value, Required);
    Value = Expression;
    return !Required || !Value.empty();
}

std::string TCustomQXAction::ExpandExpression(std::string_view Expression, bool Report) const
{
    IQXActionHost* Running = Host();
    return Running ? Running->ExpandExpression(Expression, Report) : std::string(Expression);
}

TQXScript& TCustomQXAction::AddScript(std::string Name)
{
    return *FScripts.emplace_back(std::make_unique<TQXScript>(std::move(Name)));
}

TQXScript* TCustomQXAction::GetScriptByName(std::string_view Name) const
{
    for (const auto& Script : FScripts)
        if (Script->Name() == Name)
            return Script.get();
    return nullptr;
}

TQXScript* TCustomQXAction::FindScriptToRun(std::string_view Name) const
{
    TQXScript* Script = GetScriptByName(Name);
    return Script && !Script->Params().empty() && !Script->Text().empty() ? Script : nullptr;
}

// NOLINTNEXTLINE(readability-make-member-function-const): a script changes the action.
bool TCustomQXAction::ExecuteScript(std::string_view Name)
{
    TQXScript* Script = GetScriptByName(Name);
    IQXActionHost* Running = Host();
    return Script && Running && Running->ExecuteScript(*Script);
}

void TCustomQXAction::InitialiseScriptParams(TQXScript&) {}

bool TCustomQXAction::Validate(IQXActionValidationError&)
{
    return true;
}

void TCustomQXAction::GetHiddenProperties(TStringList&) const {}
