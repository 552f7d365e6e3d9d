// Actions with a property of every type, for tests of what reads and writes properties.
#pragma once

#include "host/QXServices.h"

#include <array>
#include <string>
#include <string_view>

enum class TSampleColour { Red, Green, Blue };
constexpr auto QXElements(TSampleColour)
{
    return std::array<std::string_view, 3>{"Red", "Green", "Blue"};
}

class TSampleAction final : public TQXAction
{
public:
    TSampleAction()
    {
        Publish("Text", Text, "Any text");
        Publish("Flag", Flag, "Whether it waves");
        Publish("Count", Count, "How often");
        Publish("Colour", Colour, "The colour");
        Publish("Colours", Colours, "More colours");
        Publish("Lines", Lines, "Any lines");
        PublishAccessors<int>("Length", "Length of the text", [this] { return static_cast<int>(Text.size()); });
        Publish("Override", Override, "Use a version of its own");
        PublishAccessors<std::string>(
            "Version", "The version in use", [this] { return Override && !Version.empty() ? Version : DefaultVersion; },
            [this](const std::string& Value) { Version = Override ? Value : DefaultVersion; })
            .StoredWhile([this] { return Override && !Version.empty(); });
        AddScript("OnStart");
        AddScript("OnEnd");
    }

    static std::string GetActionName() { return "Sample"; }
    static int GetHelpTopicID() { return 1; }
    static std::string GetQuickHelpFilename() { return "Sample.html"; }
    bool Execute() override { return true; }
    void GetHiddenProperties(TStringList& List) const override { List.Add("Version"); }

    std::string Text;
    bool Flag = true;
    int Count = 7;
    TSampleColour Colour = TSampleColour::Green;
    TQXSet<TSampleColour> Colours;
    TStringList Lines;
    bool Override = false;
    std::string Version;
    inline static const std::string DefaultVersion = "v2.0";
};

class TPlainAction final : public TQXAction
{
public:
    TPlainAction() { Publish("Text", Text, "Any text"); }

    static std::string GetActionName() { return "Plain"; }
    static int GetHelpTopicID() { return 2; }
    static std::string GetQuickHelpFilename() { return "Plain.html"; }
    bool Execute() override { return true; }

    std::string Text;
};

inline void RegisterSampleActions()
{
    QXActionServices().RegisterAction("Sample", "Samples", QXActionClass<TSampleAction>("TSampleAction"), "SAMPLE");
    QXActionServices().RegisterAction("Plain", "Samples", QXActionClass<TPlainAction>("TPlainAction"), "PLAIN");
}
