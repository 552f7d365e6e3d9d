#include "runtime/scripting/DuktapeEngine.h"

#include "runtime/Runtime.h"
#include "runtime/actions/RunContext.h"
#include "runtime/scripting/ScriptHeap.h"
#include "runtime/scripting/ScriptLimits.h"
#include "runtime/scripting/ScriptValues.h"
#include "runtime/services/ScriptingServices.h"

#include <fmt/format.h>
#include <stdexcept>
#include <vector>

namespace
{
// What the engine has beyond the language: raw bytes (which could form the names that hide objects) and itself.
constexpr const char* Trimmed[] = {
    "Duktape",           "Buffer",      "ArrayBuffer", "DataView",   "Int8Array",   "Uint8Array",
    "Uint8ClampedArray", "Int16Array",  "Uint16Array", "Int32Array", "Uint32Array", "Float32Array",
    "Float64Array",      "TextEncoder", "TextDecoder", "CBOR",       "performance",
};

constexpr std::size_t LongestReason = 4096;

/// Notes the line of every throw: what is thrown need not be an error that knows it.
duk_ret_t NoteThrow(duk_context* Context)
{
    TScriptHeap::Of(Context).NoteThrow();
    return 1;
}

/// Fetches the host's object on the first use of its name, which means the object itself from then on.
duk_ret_t FetchGlobal(duk_context* Context)
{
    const auto Place = static_cast<std::size_t>(duk_get_current_magic(Context));
    const TScriptGlobal& Global = TScriptHeap::Of(Context).Services().Globals()[Place];
    const TQXVariant Value = ScriptValues::CallHost(Context, [&] { return Global.Getter(); });
    duk_push_global_object(Context);
    duk_push_lstring(Context, Global.Name.data(), Global.Name.size());
    ScriptValues::PushVariant(Context, Value, TQXParamType::None, Global.Name);
    duk_dup_top(Context);
    duk_insert(Context, 0);
    duk_def_prop(Context, -3, DUK_DEFPROP_HAVE_VALUE | DUK_DEFPROP_SET_WRITABLE | DUK_DEFPROP_FORCE);
    duk_set_top(Context, 1);
    return 1;
}

/// Text without the place in parentheses that the engine adds to a syntax error.
std::string WithoutPlace(std::string Text)
{
    const std::size_t Place = Text.rfind(" (line ");
    if (Text.starts_with("SyntaxError: ") && Text.ends_with(')') && Place != std::string::npos)
        Text.resize(Place);
    return Text;
}

std::chrono::milliseconds TimeOfOptions()
{
    return std::chrono::seconds(TQXRuntime::Current().Options().Host().ScriptTimeout);
}

/// One call of a script.
class TScriptRun
{
public:
    TScriptRun(TQXScript& Script, TScriptingServices& Services, std::chrono::milliseconds Time)
        : FScript(Script), FServices(Services),
          FLimits(Time, [this] { return FHeap ? FHeap->CurrentPlace() : TScriptPlace(); })
    {}

    /// Runs the script; what one that fails did to the host's objects is taken back.
    std::optional<TScriptFailure> Execute();
    /// Only looks whether the script can be parsed.
    std::optional<TScriptFailure> Parse() { return Attempt<&TScriptRun::Compile>(); }

private:
    /// Runs a part so that its errors stay inside the engine; Arguments of the stack are its, and one result stays.
    template <void (TScriptRun::*Part)()> bool Protect(int Arguments)
    {
        const auto Call = [](duk_context*, void* Run) -> duk_ret_t {
            (static_cast<TScriptRun*>(Run)->*Part)();
            return 0;
        };
        return duk_safe_call(FContext, Call, this, Arguments, 1) == DUK_EXEC_SUCCESS;
    }

    /// Does a part in an engine of its own; gives no failure on success.
    template <void (TScriptRun::*Part)()> std::optional<TScriptFailure> Attempt();

    void RunScript();
    void Trim();
    void OfferTypes();
    void OfferGlobals();
    void SetParameters();
    void Compile();
    void RunText();
    void ReadOutputs();
    void DescribeError();
    void ExplainLimits();
    void StoreOutputs();

    TQXScript& FScript;
    TScriptingServices& FServices;
    std::optional<TScriptHeap> FHeap;
    duk_context* FContext = nullptr;
    TScriptLimits FLimits;
    std::vector<TQXVariant> FOutputs;
    TScriptFailure FFailure{0, "the script failed with an error that has no text"};
};

std::optional<TScriptFailure> TScriptRun::Execute()
{
    std::optional<TScriptFailure> Failure = Attempt<&TScriptRun::RunScript>();
    if (!Failure)
        StoreOutputs();
    else if (FHeap)
        FHeap->Changes().TakeBack();
    return Failure;
}

template <void (TScriptRun::*Part)()> std::optional<TScriptFailure> TScriptRun::Attempt()
try
{
    FHeap.emplace(FServices);
    FContext = FHeap->Context();
    if (Protect<Part>(0))
        return {};
    (void)Protect<&TScriptRun::DescribeError>(1);
    return FFailure;
}
catch (const std::runtime_error& Error) // the engine was left where it stood
{
    if (FLimits.Reason().empty())
        return TScriptFailure{FHeap ? FHeap->ThrowLine() : 0, Error.what()};
    return TScriptFailure{FLimits.Place().Line, FLimits.Reason()};
}

void TScriptRun::RunScript()
{
    Trim();
    OfferTypes();
    OfferGlobals();
    SetParameters();
    RunText();
    ReadOutputs();
    QXCheckScriptLimits(); // its last call of the host counts too
}

void TScriptRun::Trim()
{
    duk_push_global_object(FContext);
    duk_get_prop_string(FContext, -1, "Duktape");
    duk_push_c_function(FContext, NoteThrow, 1);
    duk_put_prop_string(FContext, -2, "errThrow");
    duk_pop(FContext);
    for (const char* Name : Trimmed)
        duk_del_prop_string(FContext, -1, Name);
    duk_get_prop_string(FContext, -1, "String");
    duk_del_prop_string(FContext, -1, "fromBufferRaw");
    duk_pop_2(FContext);
}

/// What the language itself calls by the name of an element keeps it.
void TScriptRun::OfferTypes()
{
    duk_push_global_object(FContext);
    for (const TScriptType& Type : FServices.Types())
        for (const std::string_view Element : Type.Elements)
            if (!duk_has_prop_lstring(FContext, -1, Element.data(), Element.size()))
            {
                ScriptValues::PushText(FContext, Element);
                duk_put_prop_lstring(FContext, -2, Element.data(), Element.size());
            }
    duk_pop(FContext);
}

void TScriptRun::OfferGlobals()
{
    duk_push_global_object(FContext);
    duk_int_t Place = 0;
    for (const TScriptGlobal& Global : FServices.Globals())
    {
        duk_push_lstring(FContext, Global.Name.data(), Global.Name.size());
        duk_push_c_function(FContext, FetchGlobal, 0);
        duk_set_magic(FContext, -1, Place++);
        duk_def_prop(FContext, -3, DUK_DEFPROP_HAVE_GETTER | DUK_DEFPROP_SET_CONFIGURABLE | DUK_DEFPROP_FORCE);
    }
    duk_pop(FContext);
}

void TScriptRun::SetParameters()
{
    duk_push_global_object(FContext);
    for (const TQXScriptParam& Param : FScript.Params())
    {
        duk_push_lstring(FContext, Param.Name().data(), Param.Name().size());
        ScriptValues::PushVariant(FContext, Param.Value(), Param.Type(), Param.Name());
        duk_def_prop(FContext, -3,
                     DUK_DEFPROP_HAVE_VALUE | DUK_DEFPROP_SET_WRITABLE | DUK_DEFPROP_SET_ENUMERABLE |
                         DUK_DEFPROP_FORCE);
    }
    duk_pop(FContext);
}

void TScriptRun::Compile()
{
    ScriptValues::PushText(FContext, FScript.Text());
    ScriptValues::PushText(FContext, FScript.Name());
    duk_compile(FContext, 0);
}

void TScriptRun::RunText()
{
    Compile();
    duk_call(FContext, 0);
    duk_pop(FContext);
}

void TScriptRun::ReadOutputs()
{
    for (const TQXScriptParam& Param : FScript.Params())
        if (Param.IsOutput())
        {
            duk_get_global_lstring(FContext, Param.Name().data(), Param.Name().size());
            FOutputs.push_back(ScriptValues::OutputAt(FContext, -1, Param.Type(), Param.Name()));
            duk_pop(FContext);
        }
}

void TScriptRun::StoreOutputs()
{
    auto Value = FOutputs.begin();
    for (TQXScriptParam& Param : FScript.Params())
        if (Param.IsOutput())
            Param.SetValue(std::move(*Value++));
}

/// The error is on the stack. What the script made of it may fail in turn.
void TScriptRun::DescribeError()
{
    FFailure.Line = FHeap->ThrowLine();
    if (duk_is_error(FContext, 0))
    {
        duk_get_prop_string(FContext, 0, "lineNumber");
        if (const duk_int_t Line = duk_get_int(FContext, -1); Line > 0)
            FFailure.Line = Line;
        duk_pop(FContext);
    }
    FFailure.Reason = WithoutPlace(ScriptValues::TextOf(FContext, 0));
    ExplainLimits();
    if (FFailure.Reason.size() > LongestReason)
        FFailure.Reason = std::string(TRunContext::Shorten(FFailure.Reason, LongestReason)) + "...";
}

/// The engine has few words, and no line, for an error that it meets where memory or the stack is used up.
void TScriptRun::ExplainLimits()
{
    const std::string& Reason = FFailure.Reason;
    const bool HasNoRoom = Reason.starts_with("DoubleError");
    const bool HasNoStack = HasNoRoom || Reason.find("C stack depth limit") != std::string::npos;
    if (FHeap->WasRefused() &&
        (HasNoRoom || Reason == "Error: alloc failed" || Reason.ends_with(TScriptHeap::MemoryReason())))
        FFailure = {FHeap->RefusalLine(), TScriptHeap::MemoryReason()};
    else if (Reason.find("regexp executor recursion limit") != std::string::npos ||
             (HasNoStack && FLimits.Place().IsInRegExp))
        FFailure = {HasNoRoom ? FLimits.Place().Line : FFailure.Line,
                    "a regular expression goes too deep for the script engine; match shorter pieces of the text, or "
                    "repeat single characters instead of groups"};
    else if (HasNoRoom)
        FFailure = {FLimits.Place().Line, "the script nests too deep"};
}

std::chrono::milliseconds TimeOr(const std::optional<std::chrono::milliseconds>& Limit)
{
    return Limit ? *Limit : TimeOfOptions();
}
} // namespace

std::optional<TScriptFailure> TDuktapeEngine::Run(TQXScript& Script, TScriptingServices& Services)
{
    return TScriptRun(Script, Services, TimeOr(FTimeLimit)).Execute();
}

std::optional<TScriptFailure> TDuktapeEngine::Parse(TQXScript& Script, TScriptingServices& Services)
{
    return TScriptRun(Script, Services, TimeOr(FTimeLimit)).Parse();
}
