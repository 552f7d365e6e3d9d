#include "runtime/forms/PageSet.h"

namespace
{
// Every page of an action has the one interface, every page of an options object the other.
IQXActionPage& ActionPage(TPage& Page)
{
    return dynamic_cast<IQXActionPage&>(Page);
}

IQXOptionsPage& OptionsPage(TPage& Page)
{
    return dynamic_cast<IQXOptionsPage&>(Page);
}
} // namespace

TPageSet::TPageSet(std::span<const TQXPageClass> Classes) : FClasses(Classes)
{
    for (const TQXPageClass& Class : Classes)
    {
        FPages.push_back(Class.Create());
        FPages.back()->SetOwner(this);
    }
}

TPageSet::TPageSet(TCustomQXAction& Action, std::span<const TQXPageClass> Classes) : TPageSet(Classes)
{
    FObject = &Action;
    for (const auto& Page : FPages)
        ActionPage(*Page).InitFrame();
}

TPageSet::TPageSet(TQXOptionsObject& Options, std::span<const TQXPageClass> Classes) : TPageSet(Classes)
{
    FObject = &Options;
}

std::vector<TPage*> TPageSet::Pages() const
{
    std::vector<TPage*> Result;
    for (const auto& Page : FPages)
        Result.push_back(Page.get());
    return Result;
}

std::string TPageSet::PageName(std::size_t Index) const
{
    const auto* OfAction = dynamic_cast<IQXActionPage*>(FPages[Index].get());
    return OfAction ? OfAction->PageName() : OptionsPage(*FPages[Index]).GetPageName();
}

void TPageSet::InitPages()
{
    if (std::exchange(FIsReady, true))
        return;
    for (const auto& Page : FPages)
        if (const auto* Action = std::get_if<TCustomQXAction*>(&FObject))
            ActionPage(*Page).InitPage(**Action);
        else
            OptionsPage(*Page).InitPage(*this);
}

void TPageSet::Read()
{
    InitPages();
    for (const auto& Page : FPages)
        if (const auto* Action = std::get_if<TCustomQXAction*>(&FObject))
            ActionPage(*Page).ReadActionData(**Action);
        else
            OptionsPage(*Page).ReadOptions(*std::get<TQXOptionsObject*>(FObject));
    ApplyRules();
}

void TPageSet::Write()
{
    InitPages();
    for (const auto& Page : FPages)
        if (const auto* Action = std::get_if<TCustomQXAction*>(&FObject))
            ActionPage(*Page).WriteActionData(**Action);
        else
            OptionsPage(*Page).WriteOptions(*std::get<TQXOptionsObject*>(FObject));
}

void TPageSet::Activate(std::size_t Index)
{
    if (std::holds_alternative<TQXOptionsObject*>(FObject))
        OptionsPage(*FPages[Index]).OnPageActivate();
    else
    {
        IQXActionPage& Page = ActionPage(*FPages[Index]);
        if (FActive && FActive != &Page)
            FActive->OnPageDeActivate();
        FActive = &Page;
        Page.OnPageActivate();
    }
    ApplyRules();
}

bool TPageSet::Validate(std::size_t Index) const
{
    auto* Checked = dynamic_cast<IQXPageValidation*>(FPages[Index].get());
    return !Checked || Checked->Validate();
}

std::string TPageSet::ShownHint(std::size_t Index, std::string Text) const
{
    if (auto* Hints = dynamic_cast<IQXPageHints*>(FPages[Index].get()))
        Hints->OnShowHint(Text);
    return Text;
}

void TPageSet::ApplyRules() const
{
    for (const auto& Page : FPages)
        Page->ApplyRules();
}
