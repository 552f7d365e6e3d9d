#include "runtime/forms/PageDriver.h"

#include "runtime/HostErrors.h"
#include "runtime/NearestName.h"
#include "runtime/Runtime.h"
#include "runtime/forms/PageJson.h"
#include "runtime/services/ConsoleDesignServices.h"

#include <fmt/format.h>

#include <deque>
#include <istream>
#include <ostream>
#include <set>

namespace
{
/// Reads a request. No request means anything so deep in it; what works on values goes into their depths by calls.
TPageJson Parse(const std::string& Line)
{
    constexpr int Deepest = 16;
    bool IsTooDeep = false;
    const auto Watch = [&IsTooDeep](int Depth, TPageJson::parse_event_t, TPageJson&) {
        IsTooDeep = IsTooDeep || Depth > Deepest;
        return !IsTooDeep;
    };
    TPageJson Json = TPageJson::parse(Line, Watch, false);
    if (IsTooDeep)
        throw EPageUseError("a request is not nested so deeply");
    if (!Json.is_object())
        throw EPageUseError("a request is one JSON object on a line");
    return Json;
}

/// A request with its members.
class TRequest
{
public:
    explicit TRequest(const std::string& Line) : FJson(Parse(Line)) {}
    [[nodiscard]] bool Has(const char* Name) const { return FJson.contains(Name); }
    [[nodiscard]] const TPageJson& Value(const char* Name) const
    {
        if (!Has(Name))
            throw EPageUseError(fmt::format("the request lacks \"{}\"", Name));
        return FJson[Name];
    }
    [[nodiscard]] std::string Text(const char* Name) const
    {
        if (!Value(Name).is_string())
            throw EPageUseError(fmt::format("\"{}\" is a text", Name));
        return Value(Name).get<std::string>();
    }
    [[nodiscard]] std::size_t Index(const char* Name) const
    {
        if (!Value(Name).is_number_unsigned())
            throw EPageUseError(fmt::format("\"{}\" is a number from 0", Name));
        return Value(Name).get<std::size_t>();
    }
    [[nodiscard]] bool IsTrue(const char* Name) const
    {
        if (Has(Name) && !FJson[Name].is_boolean())
            throw EPageUseError(fmt::format("\"{}\" is true or false", Name));
        return Has(Name) && FJson[Name].get<bool>();
    }

private:
    TPageJson FJson;
};

class TPageDriver final : public IQXDesignApplicationServices
{
public:
    TPageDriver(TPageSet& Pages, const TDrivenObject& Driven, std::istream& Requests, std::ostream& Answers)
        : FPages(Pages), FDriven(Driven), FRequests(Requests), FAnswers(Answers)
    {}
    /// Answers requests until there are no more, or until the form that is open closes.
    void Run();

    [[nodiscard]] std::string ExpandDesignTime(std::string_view Expression) override
    {
        return FConsole.ExpandDesignTime(Expression);
    }
    [[nodiscard]] TQXAnswer ShowDialog(const TQXDialog& Dialog) override;
    void ShowForm(TForm& Form) override;

private:
    using THandler = void (TPageDriver::*)(const TRequest&);
    static THandler HandlerOf(const std::string& Operation);

    void AnswerRequest(const std::string& Line);
    void Send(TPageJson Answer);

    void Pages(const TRequest& Request);
    void Property(const TRequest& Request);
    void Properties(const TRequest& Request);
    void Read(const TRequest& Request);
    void Write(const TRequest& Request);
    void Activate(const TRequest& Request);
    void Validate(const TRequest& Request);
    void Controls(const TRequest& Request);
    void Set(const TRequest& Request);
    void Click(const TRequest& Request);
    void Key(const TRequest& Request);
    void QueueAnswer(const TRequest& Request);
    void Hint(const TRequest& Request);

    void CheckNoForm() const;
    [[nodiscard]] std::size_t PageIndex(const TRequest& Request) const;
    [[nodiscard]] TSurface& Surface(const TRequest& Request) const;
    [[nodiscard]] TControl& Control(const TRequest& Request) const;
    void ClickInEdit(TControl& Control, const std::string& Button);

    TPageSet& FPages;
    const TDrivenObject& FDriven;
    std::istream& FRequests;
    std::ostream& FAnswers;
    TConsoleDesignServices FConsole;
    TPageUser FUser{[this] {
        FPages.ApplyRules();
        if (FForm)
            FForm->ApplyRules();
    }};
    std::deque<TPageJson> FQueued;         ///< answers to the next dialogs
    TPageJson FShown = TPageJson::array(); ///< dialogs since the last answer
    TPageJson FAnswer;                     ///< to the request at hand
    TForm* FForm = nullptr;                ///< the form that is open
};

TPageDriver::THandler TPageDriver::HandlerOf(const std::string& Operation)
{
    static const std::map<std::string_view, THandler> Handlers = {{"pages", &TPageDriver::Pages},
                                                                  {"property", &TPageDriver::Property},
                                                                  {"properties", &TPageDriver::Properties},
                                                                  {"read", &TPageDriver::Read},
                                                                  {"write", &TPageDriver::Write},
                                                                  {"activate", &TPageDriver::Activate},
                                                                  {"validate", &TPageDriver::Validate},
                                                                  {"controls", &TPageDriver::Controls},
                                                                  {"set", &TPageDriver::Set},
                                                                  {"click", &TPageDriver::Click},
                                                                  {"key", &TPageDriver::Key},
                                                                  {"answer", &TPageDriver::QueueAnswer},
                                                                  {"hint", &TPageDriver::Hint}};
    if (const auto Found = Handlers.find(Operation); Found != Handlers.end())
        return Found->second;
    std::vector<std::string_view> Names;
    Names.reserve(Handlers.size());
    for (const auto& [Name, Handler] : Handlers)
        Names.push_back(Name);
    throw EPageUseError(fmt::format("there is no operation \"{}\"{}", Operation, DidYouMean(Operation, Names)));
}

void TPageDriver::Run()
{
    std::string Line;
    while (!(FForm && FForm->IsClosed()) && FAnswers && std::getline(FRequests, Line))
        if (Line.find_first_not_of(" \t\r") != std::string::npos)
            AnswerRequest(Line);
}

void TPageDriver::AnswerRequest(const std::string& Line)
{
    const bool IsInForm = FForm != nullptr;
    FAnswer = TPageJson::object();
    try
    {
        const TRequest Request(Line);
        (this->*HandlerOf(Request.Text("op")))(Request);
    }
    catch (const std::exception& Error)
    {
        FAnswer = {{"error", Error.what()}};
    }
    // The request that closes a form is answered when what opened the form has gone on. Where requests end before,
    // there is none to be answered then.
    if (FRequests && (!IsInForm || !FForm->IsClosed()))
        Send(FAnswer);
}

void TPageDriver::Send(TPageJson Answer)
{
    if (!FShown.empty())
        Answer["dialogs"] = std::exchange(FShown, TPageJson::array());
    FAnswers << Answer.dump(-1, ' ', false, TPageJson::error_handler_t::replace) << std::endl;
}

TQXAnswer TPageDriver::ShowDialog(const TQXDialog& Dialog)
{
    TPageJson Value;
    if (!FQueued.empty())
    {
        Value = std::move(FQueued.front());
        FQueued.pop_front();
    }
    TPageJson Shown = DialogAsJson(Dialog);
    Shown["answer"] = Value;
    FShown.push_back(std::move(Shown));
    return AnswerOf(Dialog, Value);
}

void TPageDriver::ShowForm(TForm& Form)
{
    TForm* const Outer = std::exchange(FForm, &Form);
    Form.ApplyRules();
    FAnswer["form"] = Form.ClassName();
    Send(FAnswer);
    Run();
    if (!Form.IsClosed())
        Form.Close(false);
    FForm = Outer;
    FAnswer = {{"closed", Form.IsAccepted() ? "ok" : "cancel"}};
}

void TPageDriver::CheckNoForm() const
{
    if (FForm)
        throw EPageUseError(fmt::format("the form {} is open", FForm->ClassName()));
}

std::size_t TPageDriver::PageIndex(const TRequest& Request) const
{
    CheckNoForm();
    const TPageJson& Page = Request.Value("page");
    for (std::size_t Index = 0; Index < FPages.Count(); ++Index)
        if (Page == TPageJson(Index) || Page == TPageJson(FPages.ClassName(Index)))
            return Index;
    throw EPageUseError(fmt::format("there is no page {}", Page.dump()));
}

TSurface& TPageDriver::Surface(const TRequest& Request) const
{
    if (Request.Value("page") != TPageJson("form"))
        return FPages.Page(PageIndex(Request));
    if (!FForm)
        throw EPageUseError("no form is open");
    return *FForm;
}

TControl& TPageDriver::Control(const TRequest& Request) const
{
    const std::vector<TControl*> Controls = QXAllControls(Surface(Request));
    const std::string Name = Request.Text("control");
    std::vector<std::string_view> Names;
    for (TControl* Control : Controls)
    {
        if (Control->Name() == Name)
            return *Control;
        Names.push_back(Control->Name());
    }
    throw EPageUseError(fmt::format("there is no control \"{}\"{}", Name, DidYouMean(Name, Names)));
}

void TPageDriver::Pages(const TRequest& /*Request*/)
{
    FAnswer["pages"] = TPageJson::array();
    for (std::size_t Index = 0; Index < FPages.Count(); ++Index)
    {
        const int Help = FPages.Page(Index).HelpContext();
        FAnswer["pages"].push_back({{"class", FPages.ClassName(Index)},
                                    {"name", FPages.PageName(Index)},
                                    {"help", Help ? Help : FDriven.HelpTopic}});
    }
}

// It is a handler as the others, and changes what they show.
// NOLINTNEXTLINE(readability-make-member-function-const)
void TPageDriver::Property(const TRequest& Request)
{
    const std::string Name = Request.Text("name");
    const TQXProperty* Property = FDriven.Object.FindProperty(Name);
    if (!Property || !Property->IsPersisted())
    {
        std::vector<std::string_view> Names;
        for (const TQXProperty& Known : FDriven.Object.Properties())
            if (Known.IsPersisted())
                Names.push_back(Known.Name);
        throw EPageUseError(fmt::format("there is no property \"{}\"{}", Name, DidYouMean(Name, Names)));
    }
    TValueCheck Check(Name);
    const auto Value = Check.Property(*Property, GivenValueOf(Request.Value("value")));
    if (!Value)
        throw EPageUseError(Check.Errors().front().Text);
    Property->Write(*Value);
}

void TPageDriver::Properties(const TRequest& /*Request*/)
{
    FAnswer["properties"] = TPageJson::object();
    for (const TQXProperty& Property : FDriven.Object.Properties())
        if (Property.IsPersisted())
            FAnswer["properties"][std::string(Property.Name)] = ValueAsJson(Property.Read());
}

void TPageDriver::Read(const TRequest& /*Request*/)
{
    CheckNoForm();
    FPages.Read();
}

void TPageDriver::Write(const TRequest& /*Request*/)
{
    CheckNoForm();
    FPages.Write();
}

void TPageDriver::Activate(const TRequest& Request)
{
    FPages.Activate(PageIndex(Request));
}

void TPageDriver::Validate(const TRequest& Request)
{
    FAnswer["valid"] = FPages.Validate(PageIndex(Request));
}

void TPageDriver::Controls(const TRequest& Request)
{
    const TSurface& Shown = Surface(Request);
    if (&Shown == FForm)
        FAnswer["title"] = FForm->Title;
    FAnswer["controls"] = TPageJson::array();
    for (const TControl* Control : QXAllControls(Shown))
        FAnswer["controls"].push_back(ControlAsJson(*Control));
}

void TPageDriver::Set(const TRequest& Request)
{
    SetControl(FUser, Control(Request), Request.Value("value"));
}

void TPageDriver::ClickInEdit(TControl& Control, const std::string& Button)
{
    if (Control.Kind() != TQXControlKind::Edit)
        throw EPageUseError(fmt::format("\"{}\" is no edit", Control.Name()));
    auto& Edit = static_cast<TEdit&>(Control);
    if (Button == "browse")
        FUser.Browse(Edit);
    else if (Button == "accept")
        FUser.Accept(Edit);
    else
        throw EPageUseError(fmt::format("an edit has no button \"{}\"; its buttons are browse and accept", Button));
}

void TPageDriver::Click(const TRequest& Request)
{
    TControl& Clicked = Control(Request);
    if (Request.Has("button"))
        ClickInEdit(Clicked, Request.Text("button"));
    else if (Clicked.Kind() == TQXControlKind::Grid)
        FUser.Ellipsis(static_cast<TGrid&>(Clicked), Request.Index("row"), Request.Index("column"));
    else if (Request.IsTrue("double"))
        FUser.DoubleClick(Clicked);
    else
        FUser.Click(Clicked);
}

void TPageDriver::Key(const TRequest& Request)
{
    const std::string Key = Request.Text("key");
    if (FForm && Key == "Escape" && &Surface(Request) == FForm)
        return FForm->Close(false);
    FUser.Press(Control(Request), Key, Request.Has("row") ? std::optional(Request.Index("row")) : std::nullopt);
}

void TPageDriver::QueueAnswer(const TRequest& Request)
{
    FQueued.push_back(Request.Value("value"));
}

void TPageDriver::Hint(const TRequest& Request)
{
    FAnswer["text"] = FPages.ShownHint(PageIndex(Request), Request.Text("text"));
}
} // namespace

void DrivePages(TQXRuntime& Runtime, const TDrivenObject& Driven, std::istream& Requests, std::ostream& Answers)
{
    TPageSet Pages = Driven.Action ? TPageSet(*Driven.Action, Driven.Pages) : TPageSet(*Driven.Options, Driven.Pages);
    TPageDriver Driver(Pages, Driven, Requests, Answers);
    Runtime.SetDesignServices(&Driver);
    Driver.Run();
    Runtime.SetDesignServices(nullptr);
}

void QXDrivePages(TQXRuntime& Runtime, const TDrivenObject& Driven, std::istream& Requests, std::ostream& Answers)
{
    DrivePages(Runtime, Driven, Requests, Answers);
}
