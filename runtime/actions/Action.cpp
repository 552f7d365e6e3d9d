#include "host/QXAction.h"

TCustomQXAction::~TCustomQXAction() = default;
TQXAction::~TQXAction() = default;

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
    if (FHost)
        FHost->SendMessage(Text);
}

bool TCustomQXAction::TryExpandExpression(std::string_view Label, std::string_view Expression, std::string& Value,
                                          bool Required) const
{
    if (FHost)
        return FHost->TryExpandExpression(Label, Expression, Value, Required);
    Value = Expression;
    return !Required || !Value.empty();
}

std::string TCustomQXAction::ExpandExpression(std::string_view Expression, bool Report) const
{
    return FHost ? FHost->ExpandExpression(Expression, Report) : std::string(Expression);
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

bool TCustomQXAction::ExecuteScript(std::string_view Name)
{
    TQXScript* Script = GetScriptByName(Name);
    return Script && FHost && FHost->ExecuteScript(*Script);
}

void TCustomQXAction::InitialiseScriptParams(TQXScript&) {}

bool TCustomQXAction::Validate(IQXActionValidationError&)
{
    return true;
}

void TCustomQXAction::GetHiddenProperties(TStringList&) const {}
