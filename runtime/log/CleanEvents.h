#pragma once

#include "runtime/RunEvents.h"
#include "runtime/log/SecretMask.h"

#include <string>

/// Passes events on with every text cleaned: secrets replaced, malformed UTF-8 mended. A text that needs neither
/// is passed as it stands, without a copy.
class TCleanEvents final : public IRunEvents
{
public:
    explicit TCleanEvents(IRunEvents& Target) : FTarget(Target) {}
    [[nodiscard]] TSecretMask& Mask() { return FMask; }

    void RunStarted(std::string_view Project, int Actions) override;
    void ValidationError(const TActionIdentity& Action, std::string_view Label, std::string_view Message) override;
    void ActionStarted(const TActionIdentity& Action) override;
    void Message(int Index, std::string_view Text) override;
    void ExpansionError(int Index, std::string_view Label, std::string_view Text, std::string_view Reason) override;
    void ScriptError(int Index, std::string_view Script, int Line, std::string_view Reason) override;
    void ProcessStarted(int Index, const TProcessStartEvent& Process) override;
    void Output(int Index, TQXOutputStream Stream, std::string_view Line) override;
    void ProcessEnded(int Index, const TProcessEndEvent& End) override { FTarget.ProcessEnded(Index, End); }
    void ActionEnded(const TActionIdentity& Action, TActionResult Result, double Seconds,
                     std::string_view Reason) override;
    void RunEnded(TRunResult Result, const TRunTotals& Totals) override { FTarget.RunEnded(Result, Totals); }
    void Tick() override { FTarget.Tick(); }

private:
    /// A text on its way to the target; holds the cleaned copy if one was needed.
    class TCleanText
    {
    public:
        TCleanText(const TSecretMask& Mask, std::string_view Text);
        TCleanText(const TCleanText&) = delete;
        TCleanText& operator=(const TCleanText&) = delete;
        operator std::string_view() const { return FText; } // NOLINT(google-explicit-constructor)

    private:
        std::string FBuffer;
        std::string_view FText;
    };

    [[nodiscard]] TCleanText Clean(std::string_view Text) const { return {FMask, Text}; }
    [[nodiscard]] std::string Copy(std::string_view Text) const { return std::string(std::string_view(Clean(Text))); }
    [[nodiscard]] TActionIdentity Clean(const TActionIdentity& Action) const;

    IRunEvents& FTarget;
    TSecretMask FMask;
};
