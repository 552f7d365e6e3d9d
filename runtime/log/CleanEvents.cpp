#include "runtime/log/CleanEvents.h"

#include "platform/Text.h"
#include "runtime/log/EventMembers.h"

#include <forward_list>
#include <string>

namespace
{
/// Cleans the texts of one event; holds those that had to be changed.
class TCleaner
{
public:
    explicit TCleaner(const TSecretMask& Mask) : FMask(Mask) {}
    [[nodiscard]] bool HasChanged() const { return !FTexts.empty(); }

    void operator()(std::string_view& Text)
    {
        std::string Buffer;
        std::string_view Cleaned = FMask.Apply(Text, Buffer);
        if (!Texts::IsAscii(Cleaned) && !Texts::IsValidUtf8(Cleaned))
        {
            Buffer = Texts::MakeValidUtf8(Cleaned);
            Cleaned = FMask.Apply(Buffer, Buffer);
        }
        if (Cleaned.data() != Text.data() || Cleaned.size() != Text.size())
            Text = FTexts.emplace_front(Cleaned);
    }
    void operator()(std::optional<std::string_view>& Text)
    {
        if (Text)
            (*this)(*Text);
    }
    /// Numbers and enumerations hold no text.
    template <typename TValue> void operator()(TValue&)
    {
        static_assert(std::is_arithmetic_v<TValue> || std::is_enum_v<TValue> ||
                          std::is_same_v<TValue, std::optional<int>> ||
                          std::is_same_v<TValue, std::optional<TSeverity>>,
                      "a member of a type whose texts nobody would clean");
    }

private:
    const TSecretMask& FMask;
    std::forward_list<std::string> FTexts;
};
} // namespace

void TCleanEvents::Handle(const TRunEvent& Event)
{
    std::visit(
        [&](auto Copy) {
            TCleaner Clean(FMask);
            ForEachMember(Copy, [&](std::string_view, auto& Value) { Clean(Value); });
            Clean.HasChanged() ? FTarget.Handle(Copy) : FTarget.Handle(Event);
        },
        Event);
}
