#pragma once

#include "apps/quexley/writers/Output.h"
#include "runtime/RunEvents.h"

#include <optional>
#include <string_view>

/// Writes a run for programs: one JSON object per event and line, with the members that the event names. Left out
/// are texts and numbers that an event does not have, and what is not true.
class TJsonWriter final : public IRunEvents
{
public:
    explicit TJsonWriter(TOutput& Output) : FOutput(Output) {}

    void Handle(const TRunEvent& Event) override;

private:
    // The members of an object are appended one by one: making a document of each line of a tool would take longer
    // than the tool.
    template <typename TEvent> void Write(const TEvent& Event);
    void Add(std::string_view Member, std::string_view Text);
    void Add(std::string_view Member, int Number);
    void Add(std::string_view Member, double Number);
    void Add(std::string_view Member, bool Value);
    void Add(std::string_view Member, TQXOutputStream Stream);
    void Add(std::string_view Member, TSeverity Severity);
    void Add(std::string_view Member, TActionResult Result);
    void Add(std::string_view Member, TRunResult Result);
    template <typename T> void Add(std::string_view Member, const std::optional<T>& Value)
    {
        if (Value)
            Add(Member, *Value);
    }
    void AddName(std::string_view Member);

    TOutput& FOutput;
};
