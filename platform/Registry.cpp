#include "platform/Registry.h"

#include "platform/RegistryExport.h"
#include "platform/Text.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <utility>

namespace
{
/// A key with all below it. Names are looked up in their folded form.
class TNode
{
public:
    explicit TNode(std::string_view Name) : FName(Name) {}

    [[nodiscard]] const std::string& Name() const { return FName; }
    [[nodiscard]] const auto& Children() const { return FChildren; }
    [[nodiscard]] auto& Values() { return FValues; }
    [[nodiscard]] const auto& Values() const { return FValues; }

    [[nodiscard]] TNode* Find(std::string_view Name) const
    {
        const auto Found = FIndex.find(Text::FoldCase(Name));
        return Found == FIndex.end() ? nullptr : FChildren[Found->second].get();
    }
    TNode& Make(std::string_view Name)
    {
        const auto [Found, Added] = FIndex.try_emplace(Text::FoldCase(Name), FChildren.size());
        if (Added)
            FChildren.push_back(std::make_unique<TNode>(Name));
        return *FChildren[Found->second];
    }
    void Delete(std::string_view Name)
    {
        const auto Found = FIndex.find(Text::FoldCase(Name));
        if (Found == FIndex.end())
            return;
        FChildren[Found->second].reset();
        FIndex.erase(Found);
    }

private:
    std::string FName;
    std::vector<std::unique_ptr<TNode>> FChildren; ///< in order; null where one was deleted
    std::unordered_map<std::string, std::size_t> FIndex;
    std::unordered_map<std::string, std::string> FValues;
};

/// Takes the first name off a path; empty at its end.
std::string_view TakeName(std::string_view& Path)
{
    Path.remove_prefix(std::min(Path.find_first_not_of('\\'), Path.size()));
    const std::string_view Name = Path.substr(0, Path.find('\\'));
    Path.remove_prefix(Name.size());
    return Name;
}

/// The key at a path below another one, or null.
const TNode* Descend(const TNode* Node, std::string_view Path)
{
    for (auto Name = TakeName(Path); Node != nullptr && !Name.empty(); Name = TakeName(Path))
        Node = Node->Find(Name);
    return Node;
}

class TRegistryKey final : public IRegistryKey
{
public:
    explicit TRegistryKey(std::shared_ptr<const TNode> Node) : FNode(std::move(Node)) {}

    [[nodiscard]] std::optional<std::string> ReadString(std::string_view Name) const override
    {
        const auto Found = FNode->Values().find(Text::FoldCase(Name));
        return Found == FNode->Values().end() ? std::nullopt : std::optional(Found->second);
    }

    [[nodiscard]] std::vector<std::string> SubKeyNames() const override
    {
        std::vector<std::string> Result;
        for (const auto& Child : FNode->Children())
            if (Child)
                Result.push_back(Child->Name());
        return Result;
    }

private:
    std::shared_ptr<const TNode> FNode;
};

/// A registry in memory, filled by an export.
class TMemoryRegistry final : public IRegistry, public IRegistryExportSink
{
public:
    [[nodiscard]] std::unique_ptr<IRegistryKey> OpenKey(TRegistryRoot Root, std::string_view Path) const override
    {
        const TNode* Node = Descend(Descend(FTop.get(), RegistryRootPath(Root)), Path);
        if (Node == nullptr)
            return nullptr;
        // The key keeps the whole tree alive.
        return std::make_unique<TRegistryKey>(std::shared_ptr<const TNode>(FTop, Node));
    }

    void OnKey(const std::string& Path) override
    {
        FKey = FTop.get();
        std::string_view Rest = Path;
        for (auto Name = TakeName(Rest); !Name.empty(); Name = TakeName(Rest))
            FKey = &FKey->Make(Name);
    }

    void OnDeleteKey(const std::string& Path) override
    {
        FKey = nullptr;
        TNode* Parent = FTop.get();
        std::string_view Rest = Path;
        std::string_view Name = TakeName(Rest);
        for (auto Next = TakeName(Rest); Parent != nullptr && !Next.empty(); Next = TakeName(Rest))
            Parent = Parent->Find(std::exchange(Name, Next));
        if (Parent != nullptr)
            Parent->Delete(Name);
    }

    void OnValue(const std::string& Name, std::optional<std::string> Value) override
    {
        if (FKey == nullptr)
            return;
        if (Value)
            FKey->Values().insert_or_assign(Text::FoldCase(Name), *std::move(Value));
        else
            FKey->Values().erase(Text::FoldCase(Name));
    }

private:
    std::shared_ptr<TNode> FTop = std::make_shared<TNode>("");
    TNode* FKey = nullptr; ///< that values go to; none behind a deleted key
};
} // namespace

std::unique_ptr<IRegistry> ParseRegistryExport(std::string_view Bytes)
{
    auto Registry = std::make_unique<TMemoryRegistry>();
    ReadRegistryExport(Text::Decode(Bytes), *Registry);
    return Registry;
}

std::unique_ptr<IRegistry> EmptyRegistry()
{
    return std::make_unique<TMemoryRegistry>();
}
