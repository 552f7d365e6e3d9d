#include "runtime/scripting/ScriptChanges.h"

#include "host/QXOverloads.h"

#include <algorithm>
#include <string>
#include <variant>

namespace
{
std::size_t SizeOf(const TQXPropertyValue& Value)
{
    return std::visit(TQXOverloads{[](const std::string& Text) { return Text.size(); },
                                   [](const std::vector<std::string>& Items) {
                                       std::size_t Size = 0;
                                       for (const std::string& Item : Items)
                                           Size += sizeof(std::string) + Item.size();
                                       return Size;
                                   },
                                   [](const auto& Plain) { return sizeof(Plain); }},
                      Value);
}
} // namespace

TScriptChanges::TChange& TScriptChanges::ChangeOf(const void* What,
                                                  const std::function<std::function<void()>()>& Remember)
{
    const auto Found =
        std::find_if(FChanges.begin(), FChanges.end(), [What](const TChange& Change) { return Change.What == What; });
    return Found == FChanges.end() ? FChanges.emplace_back(TChange{What, Remember()}) : *Found;
}

bool TScriptChanges::Count(TChange& Change, std::size_t Bytes)
{
    if (!FMemory.CountOutside(FBytes - Change.Bytes + Bytes))
        return false;
    FBytes += Bytes - Change.Bytes;
    Change.Bytes = Bytes;
    return true;
}

bool TScriptChanges::MayWrite(const TQXProperty& Property, const TQXPropertyValue& Value)
{
    TChange& Change = ChangeOf(&Property, [&Property]() -> std::function<void()> {
        return [&Property, Old = Property.Read()] { Property.Write(Old); };
    });
    return Count(Change, SizeOf(Value));
}

bool TScriptChanges::MayCall(IQXScriptTarget& Target, std::size_t ArgumentBytes)
{
    TChange& Change = ChangeOf(&Target, [&Target] { return Target.RememberState(); });
    return Count(Change, Target.StateSize() + ArgumentBytes);
}

void TScriptChanges::TakeBack()
{
    for (auto Change = FChanges.rbegin(); Change != FChanges.rend(); ++Change)
        Change->TakeBack();
    FChanges.clear();
}
