#include "runtime/log/CleanEvents.h"

#include "platform/Text.h"
#include "runtime/log/EventMembers.h"

#include <array>
#include <string>

namespace
{
/// Cleans the texts of one event; holds those that had to be changed.
template <std::size_t Count> class TCleaner
{
public:
    explicit TCleaner(const TSecretMask& Mask) : FMask(Mask) {}

    void operator()(std::string_view& Text)
    {
        std::string& Buffer = FBuffers[FUsed++];
        Text = FMask.Apply(Text, Buffer);
        if (Texts::IsAscii(Text) || Texts::IsValidUtf8(Text))
            return;
        Buffer = Texts::MakeValidUtf8(Text);
        Text = FMask.Apply(Buffer, Buffer);
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
    std::array<std::string, Count> FBuffers;
    std::size_t FUsed = 0;
};
} // namespace

void TCleanEvents::Handle(const TRunEvent& Event)
{
    std::visit(
        [this](auto Copy) {
            TCleaner<decltype(Copy)::Members.size()> Clean(FMask);
            ForEachMember(Copy, [&](std::string_view, auto& Value) { Clean(Value); });
            FTarget.Handle(Copy);
        },
        Event);
}
