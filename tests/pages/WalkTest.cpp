// Walks over the pages of all classes.
#include "tests/pages/PagesHost.h"

#include <map>
#include <set>

namespace
{
using TValues = std::vector<std::pair<std::string, std::string>>;

/// What must be set besides before a page shows a property.
const std::map<std::string, TValues> Preconditions = {
    {"TQXRegasmAction.UnregisterTlb", {{"RegAsmMode", "asmUnregister"}}},
};

/// What a class inherits, or keeps for projects that hold it, and does not use: its pages do not show it.
const std::set<std::string> Unused = {
    "TNAntAction.PropFile",        "TGACInstallAction.AssemblyName",  "TGACListAction.AssemblyName",
    "TGACListAction.AssemblyPath", "TGACListAction.AssemblyListFile", "TGACListAction.UseListFile",
    "TGACListAction.Force",        "TGACListAction.ReferenceCount",   "TGACListAction.RefScheme",
    "TGACListAction.RefID",        "TGACListAction.RefDescription",   "TMSBuildAction.OutputToLog",
    "TQXRegasmAction.AsmPath",     "TQXJSharpCompilerAction.Modules",
};

/// Settings that stand in the list of all properties alone.
const std::set<std::string> OnNoPage = {"KeepResponseFile", "CopyConfigFiles"};

/// Pages of a class, without the host's side of them.
class TLoosePages
{
public:
    explicit TLoosePages(std::span<const TQXPageClass> Classes)
    {
        for (const TQXPageClass& Class : Classes)
            FPages.push_back(Class.Create());
    }
    void Read(TQXPersistent& Object)
    {
        FOwner.All = Pages();
        for (TPage* Page : FOwner.All)
        {
            Page->SetOwner(&FOwner);
            if (auto* OfAction = dynamic_cast<IQXActionPage*>(Page))
            {
                OfAction->InitPage(dynamic_cast<TCustomQXAction&>(Object));
                OfAction->ReadActionData(dynamic_cast<TCustomQXAction&>(Object));
            }
            else
                dynamic_cast<IQXOptionsPage&>(*Page).ReadOptions(dynamic_cast<TQXOptionsObject&>(Object));
        }
        for (const TPage* Page : FOwner.All)
            Page->ApplyRules();
    }
    void Write(TQXPersistent& Object) const
    {
        for (TPage* Page : Pages())
            if (auto* OfAction = dynamic_cast<IQXActionPage*>(Page))
                OfAction->WriteActionData(dynamic_cast<TCustomQXAction&>(Object));
            else
                dynamic_cast<IQXOptionsPage&>(*Page).WriteOptions(dynamic_cast<TQXOptionsObject&>(Object));
    }
    [[nodiscard]] std::vector<TPage*> Pages() const
    {
        std::vector<TPage*> Result;
        for (const auto& Page : FPages)
            Result.push_back(Page.get());
        return Result;
    }

private:
    struct TOwner final : IQXPageOwner
    {
        [[nodiscard]] std::vector<TPage*> Pages() const override { return All; }
        std::vector<TPage*> All;
    };
    TOwner FOwner;
    std::vector<std::unique_ptr<TPage>> FPages;
};

/// A registered class with its pages.
struct TWalked
{
    std::string ClassName;
    std::function<std::unique_ptr<TQXPersistent>()> Create;
    std::span<const TQXPageClass> Pages;
    TStringList Hidden;
};

std::vector<TWalked> AllClasses(TQXRuntime& Runtime)
{
    std::vector<TWalked> Result;
    for (const TQXActionRegistration& Action : Runtime.ActionServices().Actions())
    {
        const std::string& Name = Action.ActionClass.ClassName;
        Result.push_back({Name, Action.ActionClass.Create, Runtime.ActionServices().ActionPages(Name), {}});
        Action.ActionClass.Create()->GetHiddenProperties(Result.back().Hidden);
    }
    for (const TQXOptionsRegistration& Options : Runtime.OptionsServices().Options())
    {
        const std::string& Name = Options.OptionsClass.ClassName;
        Result.push_back({Name, Options.OptionsClass.Create, Runtime.OptionsServices().OptionsPages(Name), {}});
    }
    return Result;
}

/// Values other than the one that a new object has.
std::vector<TQXPropertyValue> OtherValues(const TQXProperty& Property, const TLoosePages& Pages)
{
    std::vector<TQXPropertyValue> Result;
    switch (Property.Type)
    {
    case TQXPropertyType::Boolean:
        return {!std::get<bool>(Property.Read())};
    case TQXPropertyType::Integer:
        return {3, 1};
    case TQXPropertyType::Enumeration:
        for (const std::string_view Element : Property.Elements)
            Result.emplace_back(std::string(Element));
        return Result;
    case TQXPropertyType::Set:
        return {std::vector<std::string>{std::string(Property.Elements.back())}};
    case TQXPropertyType::StringList:
        return {std::vector<std::string>{"a=b", "c=d", "e=f"}};
    case TQXPropertyType::String:
        break;
    }
    Result.emplace_back("another text");
    Result.emplace_back("a,comma,text");
    for (TPage* Page : Pages.Pages())
        for (TControl* Control : QXAllControls(*Page))
            if (Control->Kind() == TQXControlKind::ComboBox)
                for (const std::string& Item : static_cast<TComboBox*>(Control)->Items)
                    Result.emplace_back(Item);
    return Result;
}

/// Whether pages that have read a value of the property write it to another object.
bool IsCarried(const TWalked& Class, const std::string& Name)
{
    const auto Unset = Class.Create();
    TLoosePages Sample(Class.Pages);
    Sample.Read(*Unset);
    for (const TQXPropertyValue& Value : OtherValues(*Unset->FindProperty(Name), Sample))
    {
        const auto From = Class.Create();
        const auto To = Class.Create();
        const auto Needed = Preconditions.find(Class.ClassName + "." + Name);
        if (Needed != Preconditions.end())
            for (const auto& [Other, Text] : Needed->second)
                From->FindProperty(Other)->Write(Text);
        From->FindProperty(Name)->Write(Value);
        if (From->FindProperty(Name)->Read() == To->FindProperty(Name)->Read())
            continue;
        TLoosePages Pages(Class.Pages);
        Pages.Read(*From);
        Pages.Write(*From);
        Pages.Write(*To);
        if (From->FindProperty(Name)->Read() == Value && To->FindProperty(Name)->Read() == Value)
            return true;
    }
    return false;
}
} // namespace

TEST(PagesWalk, EveryClassHasPagesAndEveryControlANameOfItsOwn)
{
    TPagesHost Host;
    for (const TWalked& Class : AllClasses(Host.Runtime))
    {
        EXPECT_FALSE(Class.Pages.empty()) << Class.ClassName << " has no page";
        const TLoosePages Pages(Class.Pages);
        for (const TPage* Page : Pages.Pages())
        {
            std::set<std::string_view> Names;
            for (const TControl* Control : QXAllControls(*Page))
                EXPECT_TRUE(Names.insert(Control->Name()).second) << Class.ClassName << ": " << Control->Name();
        }
    }
}

TEST(PagesWalk, EveryVisiblePropertyIsReadAndWrittenByAPage)
{
    TPagesHost Host;
    Host.UseVersions("v1.1 v2.0");
    for (const TWalked& Class : AllClasses(Host.Runtime))
    {
        const auto Object = Class.Create();
        const auto& Hidden = Class.Hidden.Items();
        for (const TQXProperty& Property : Object->Properties())
        {
            const std::string Name(Property.Name);
            const bool IsShown =
                Property.IsPersisted() && std::find(Hidden.begin(), Hidden.end(), Name) == Hidden.end();
            const bool IsOnPage = IsShown && !OnNoPage.contains(Name);
            EXPECT_EQ(IsShown && IsCarried(Class, Name), IsOnPage && !Unused.contains(Class.ClassName + "." + Name))
                << Class.ClassName << '.' << Name;
        }
    }
}

TEST(PagesWalk, PagesComeAtDesignTimeOnly)
{
    TPackageHost Host;
    for (const TWalked& Class : AllClasses(Host.Runtime))
        EXPECT_TRUE(Class.Pages.empty()) << Class.ClassName;
}
