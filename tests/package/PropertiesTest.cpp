// What every property of every registered class must tell of itself.
#include "tests/package/PackageTest.h"

#include "host/QXServices.h"
#include "runtime/properties/ValueCheck.h"

#include <set>

namespace
{
void ExpectExplained(const TQXPersistent& Object)
{
    std::set<std::string_view> Names;
    for (const TQXProperty& Property : Object.Properties())
    {
        SCOPED_TRACE(Property.Name);
        EXPECT_TRUE(Names.insert(Property.Name).second) << "is named twice";
        EXPECT_FALSE(Property.Meaning.empty() || Property.Meaning.ends_with('.')) << Property.Meaning;
        EXPECT_EQ(Property.Kind == TQXTextKind::List, Property.Separator != '\0');
        EXPECT_TRUE(!Property.Member || Object.FindMember(Property.Member) == &Property);
    }
}

struct TFindings final : IQXActionValidationError
{
    void AddError(std::string_view, std::string_view Message) override { Messages += std::string(Message) + '\n'; }
    std::string Messages;
};

/// Has the options name a file for every tool.
void LocateTools(TPackageHost& Host)
{
    for (const TQXOptionsRegistration& Options : Host.Runtime.OptionsServices().Options())
        for (const TQXProperty& Property :
             QXOptionsServices().GetOptions(Options.OptionsClass.Category, Options.OptionsClass.Name)->Properties())
            if (Property.Kind == TQXTextKind::File)
                Property.Write(Host.Tools + "/csc.exe");
}

/// What validation says of a new action with the examples of its required properties, all but this one.
std::string FindingsWithout(const TQXActionClass& Class, std::string_view Left)
{
    const auto Action = Class.Create();
    for (const TQXProperty& Property : Action->Properties())
        if (Property.IsRequired() && Property.Name != Left)
            Property.Write(ParsePropertyText(Property, Property.Name, std::string(Property.Example)));
    TFindings Findings;
    const bool IsValid = Action->Validate(Findings);
    EXPECT_EQ(IsValid, Findings.Messages.empty());
    return Findings.Messages;
}
} // namespace

TEST(Properties, OfEveryClassExplainThemselves)
{
    TPackageHost Host;
    for (const TQXActionRegistration& Registration : Host.Runtime.ActionServices().Actions())
    {
        SCOPED_TRACE(Registration.ActionClass.ClassName);
        ExpectExplained(*Registration.ActionClass.Create());
    }
    for (const TQXOptionsRegistration& Registration : Host.Runtime.OptionsServices().Options())
    {
        SCOPED_TRACE(Registration.OptionsClass.ClassName);
        ExpectExplained(*Registration.OptionsClass.Create());
    }
}

TEST(Properties, ValidationAsksForExactlyTheRequiredOnes)
{
    TPackageHost Host;
    LocateTools(Host);
    for (const TQXActionRegistration& Registration : Host.Runtime.ActionServices().Actions())
    {
        SCOPED_TRACE(Registration.ActionClass.ClassName);
        EXPECT_EQ(FindingsWithout(Registration.ActionClass, ""), "");
        const auto Action = Registration.ActionClass.Create();
        for (const TQXProperty& Property : Action->Properties())
            EXPECT_NE(FindingsWithout(Registration.ActionClass, Property.Name).empty(), Property.IsRequired())
                << Property.Name;
    }
}
