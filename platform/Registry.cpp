#include "platform/Registry.h"

#include "platform/RegistryExport.h"
#include "platform/Text.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <unordered_set>
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
        const auto Found = FIndex.find(Texts::FoldCase(Name));
        return Found == FIndex.end() ? nullptr : FChildren[Found->second].get();
    }
    TNode& Make(std::string_view Name)
    {
        const auto [Found, Added] = FIndex.try_emplace(Texts::FoldCase(Name), FChildren.size());
        if (Added)
            FChildren.push_back(std::make_unique<TNode>(Name));
        return *FChildren[Found->second];
    }
    void Delete(std::string_view Name)
    {
        const auto Found = FIndex.find(Texts::FoldCase(Name));
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

/// The same key in one or more branches, the first of which counts first.
class TRegistryKey final : public IRegistryKey
{
public:
    explicit TRegistryKey(std::vector<std::shared_ptr<const TNode>> Nodes) : FNodes(std::move(Nodes)) {}

    [[nodiscard]] std::optional<std::string> ReadString(std::string_view Name) const override
    {
        for (const auto& Node : FNodes)
            if (const auto Found = Node->Values().find(Texts::FoldCase(Name)); Found != Node->Values().end())
                return Found->second;
        return std::nullopt;
    }

    [[nodiscard]] std::vector<std::string> SubKeyNames() const override
    {
        std::vector<std::string> Result;
        std::unordered_set<std::string> Known;
        for (const auto& Node : FNodes)
            for (const auto& Child : Node->Children())
                if (Child && Known.insert(Texts::FoldCase(Child->Name())).second)
                    Result.push_back(Child->Name());
        return Result;
    }

private:
    std::vector<std::shared_ptr<const TNode>> FNodes;
};

/// Where a 64-bit system keeps what its 32-bit programs see at a path, the place that counts first in front.
std::vector<std::string> Branches(const std::string& Path)
{
    static constexpr std::string_view Above[] = {"\\Software\\Classes", "\\Software"};
    std::vector<std::string> Result;
    const std::string_view BelowRoot = std::string_view(Path).substr(std::min(Path.find('\\'), Path.size()));
    for (const std::string_view Folder : Above)
        if (Texts::StartsWithSame(BelowRoot, Folder) &&
            (BelowRoot.size() == Folder.size() || BelowRoot[Folder.size()] == '\\'))
            Result.push_back(std::string(Path).insert(Path.size() - BelowRoot.size() + Folder.size(), "\\Wow6432Node"));
    Result.push_back(Path);
    return Result;
}

/// The text with the values of its variables in place of their names.
std::string Expand(std::string_view Text, const TRegistryVariables& Variables)
{
    std::string Result;
    for (;;)
    {
        const std::size_t Start = std::min(Text.find('%'), Text.size());
        Result += Text.substr(0, Start);
        Text.remove_prefix(Start);
        const std::size_t End = Text.find('%', 1);
        if (End == std::string_view::npos)
            return Result += Text;
        const auto Value = Variables ? Variables(Text.substr(1, End - 1)) : std::nullopt;
        // A percent sign that closes no variable may open the next one.
        Result += Value ? std::string_view(*Value) : Text.substr(0, End);
        Text.remove_prefix(Value ? End + 1 : End);
    }
}

/// A registry in memory, filled by an export.
class TMemoryRegistry final : public IRegistry, public IRegistryExportSink
{
public:
    explicit TMemoryRegistry(TRegistryVariables Variables) : FVariables(std::move(Variables)) {}

    [[nodiscard]] std::unique_ptr<IRegistryKey> OpenKey(TRegistryRoot Root, std::string_view Path) const override
    {
        std::string Whole(RegistryRootPath(Root));
        for (auto Name = TakeName(Path); !Name.empty(); Name = TakeName(Path))
            Whole.append("\\").append(Name);
        std::vector<std::shared_ptr<const TNode>> Nodes;
        for (const std::string& Branch : Branches(Whole))
            if (const TNode* Node = Descend(FTop.get(), Branch))
                Nodes.emplace_back(FTop, Node); // the key keeps the whole tree alive
        return Nodes.empty() ? nullptr : std::make_unique<TRegistryKey>(std::move(Nodes));
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

    void OnValue(const std::string& Name, std::optional<std::string> Value, bool Expandable) override
    {
        if (FKey == nullptr)
            return;
        if (Value)
            FKey->Values().insert_or_assign(Texts::FoldCase(Name), Expandable ? Expand(*Value, FVariables) : *Value);
        else
            FKey->Values().erase(Texts::FoldCase(Name));
    }

private:
    TRegistryVariables FVariables;
    std::shared_ptr<TNode> FTop = std::make_shared<TNode>("");
    TNode* FKey = nullptr; ///< that values go to; none behind a deleted key
};
} // namespace

std::unique_ptr<IRegistry> ParseRegistryExport(std::string_view Bytes, const TRegistryVariables& Variables)
{
    auto Registry = std::make_unique<TMemoryRegistry>(Variables);
    ReadRegistryExport(Texts::Decode(Bytes), *Registry);
    return Registry;
}

std::unique_ptr<IRegistry> EmptyRegistry()
{
    return std::make_unique<TMemoryRegistry>(TRegistryVariables());
}
