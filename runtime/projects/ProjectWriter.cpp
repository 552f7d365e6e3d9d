#include "runtime/projects/ProjectWriter.h"

#include "runtime/projects/ActionWishes.h"
#include "runtime/projects/ProjectReader.h"
#include "runtime/projects/ProjectText.h"
#include "runtime/projects/TomlDocument.h"
#include "runtime/projects/TomlEditor.h"

#include <algorithm>
#include <fmt/format.h>
#include <span>

namespace
{
bool IsKept(const TTomlWish& Wish)
{
    return Wish.Kind == TTomlWish::TKind::Keep;
}

bool IsWritten(const TTomlWish& Wish)
{
    return Wish.Kind == TTomlWish::TKind::Write;
}

/// An action with what its tables are to hold.
struct TActionPlan
{
    std::optional<std::size_t> Original; ///< which of the file's actions it was
    std::vector<TTomlWish> Wishes;
    std::vector<TTomlWish> Scripts;

    [[nodiscard]] bool IsUnchanged() const
    {
        return std::all_of(Wishes.begin(), Wishes.end(), IsKept) && std::all_of(Scripts.begin(), Scripts.end(), IsKept);
    }
};

TProject ReadAgain(const TTomlDocument& Document, const TProjectFile& File)
{
    TFileFindings Findings(File.Name);
    TProject Project = ReadProjectPart(Document, File.Path, Findings).Content;
    Findings.ThrowIfAny();
    return Project;
}

/// Edits the text of one file of a project. Tables that exist are edited in place; what is new gets sections of its
/// own.
class TWriter
{
public:
    TWriter(const TProject& Project, const TProjectFile& File, bool IsIncluded)
        : FProject(Project), FFile(File), FIsIncluded(IsIncluded), FDocument(File.Name, File.Text),
          FOriginal(ReadAgain(FDocument, File)), FEditor(FDocument), FActions(FDocument.Root().Find("action"))
    {}

    std::string Write();

private:
    [[nodiscard]] std::string EditRoot(const std::vector<TTomlWish>& Wishes);
    [[nodiscard]] std::string EditTable(std::string_view Key, const std::vector<TTomlWish>& Wishes);
    void PlanActions(bool AsNew);
    [[nodiscard]] bool IsOfFile(const TProjectAction& Action) const;
    [[nodiscard]] std::optional<std::size_t> Claim(const TProjectAction& Action);
    [[nodiscard]] bool AreActionsInline() const;
    [[nodiscard]] bool IsPlanUnchanged() const;
    void EditAction(const TActionPlan& Plan);
    void AddScripts(const TTomlNode& Table, const TActionPlan& Plan);
    [[nodiscard]] std::string NewAction(const TActionPlan& Plan) const;

    const TProject& FProject;
    const TProjectFile& FFile;
    bool FIsIncluded;
    TTomlDocument FDocument;
    TProject FOriginal;
    TTomlEditor FEditor;
    const TTomlEntry* FActions; ///< the file's actions, or null
    std::vector<TActionPlan> FPlans;
    std::vector<bool> FIsClaimed; ///< of a file's action
};

std::string TWriter::Write()
{
    TProjectBlocks Blocks;
    if (!FIsIncluded)
    {
        Blocks.NewRoot = EditRoot(RootWishes(FProject, FOriginal, FDocument.LineEnd()));
        Blocks.NewProject = EditTable("project", ProjectWishes(FProject, FOriginal));
        Blocks.NewVariables = EditTable("variables", VariableWishes(FProject.Variables, FOriginal.Variables));
        Blocks.NewScripts = EditTable("scripts", ProjectScriptWishes(FProject, FOriginal, FDocument.LineEnd()));
    }
    PlanActions(false);
    std::span<const TTomlNode> Tables;
    if (AreActionsInline())
    {
        if (IsPlanUnchanged())
            FPlans.clear();
        else
        {
            // No [[action]] can follow an array that stands in one statement: all of it is written anew.
            FEditor.Remove(*FActions);
            PlanActions(true);
        }
    }
    else if (FActions)
        Tables = FActions->Value.Items;
    for (const TActionPlan& Plan : FPlans)
    {
        if (Plan.Original)
            EditAction(Plan);
        Blocks.Actions.push_back({Plan.Original, Plan.Original ? std::string() : NewAction(Plan)});
    }
    return JoinProjectText(FDocument, FEditor, Tables, Blocks);
}

/// Edits the keys above all tables, or gives the lines that have to be added for them.
std::string TWriter::EditRoot(const std::vector<TTomlWish>& Wishes)
{
    std::string Lines;
    for (const TTomlWish& Wish : Wishes)
        if (FDocument.Root().Find(Wish.Key))
            (void)FEditor.Apply(FDocument.Root(), std::span(&Wish, 1));
        else if (IsWritten(Wish))
            Lines += fmt::format("{}{}", TomlLine(Wish), FDocument.LineEnd());
    return Lines;
}

/// Edits a table below the root, or gives the section that has to be added for it.
std::string TWriter::EditTable(std::string_view Key, const std::vector<TTomlWish>& Wishes)
{
    const TTomlEntry* Entry = FDocument.Root().Find(Key);
    const bool IsComplete =
        Entry ? FEditor.Apply(Entry->Value, Wishes) : std::none_of(Wishes.begin(), Wishes.end(), IsWritten);
    return IsComplete ? std::string() : TomlSection(fmt::format("[{}]", Key), Wishes, FDocument.LineEnd());
}

void TWriter::PlanActions(bool AsNew)
{
    FPlans.clear();
    FIsClaimed.assign(FOriginal.Actions.size(), false);
    for (const TProjectAction& Action : FProject.Actions)
    {
        if (!IsOfFile(Action))
            continue;
        const std::optional<std::size_t> Original = AsNew ? std::nullopt : Claim(Action);
        TStoredAction Stored;
        if (Original)
            Stored = {&FOriginal.Actions[*Original], &FActions->Value.Items[*Original]};
        FPlans.push_back({Original, ActionWishes(Action, Stored, FDocument.LineEnd()),
                          ScriptWishes(Action, Stored, FDocument.LineEnd())});
    }
}

bool TWriter::IsOfFile(const TProjectAction& Action) const
{
    return FIsIncluded ? Action.File == FFile.Name : !FProject.IsIncluded(Action);
}

/// The file's action that this one was, unless another has taken its place.
std::optional<std::size_t> TWriter::Claim(const TProjectAction& Action)
{
    const auto Place = static_cast<std::size_t>(Action.Index) - 1 - FFile.FirstAction;
    if (Action.Index < 1 || Place >= FIsClaimed.size() || FIsClaimed[Place] ||
        FOriginal.Actions[Place].Type != Action.Type)
        return {};
    FIsClaimed[Place] = true;
    return Place;
}

bool TWriter::AreActionsInline() const
{
    return FActions && (FActions->Value.Items.empty() || FActions->Value.Items.front().Form == TTomlForm::Inline);
}

bool TWriter::IsPlanUnchanged() const
{
    if (FPlans.size() != FOriginal.Actions.size())
        return false;
    for (std::size_t Index = 0; Index < FPlans.size(); ++Index)
        if (FPlans[Index].Original != Index || !FPlans[Index].IsUnchanged())
            return false;
    return true;
}

void TWriter::EditAction(const TActionPlan& Plan)
{
    const TTomlNode& Table = FActions->Value.Items[*Plan.Original];
    const bool IsComplete = FEditor.Apply(Table, Plan.Wishes);
    const TTomlEntry* Scripts = Table.Find("scripts");
    const bool HasScripts = Scripts ? FEditor.Apply(Scripts->Value, Plan.Scripts)
                                    : std::none_of(Plan.Scripts.begin(), Plan.Scripts.end(), IsWritten);
    if (IsComplete && !HasScripts)
        AddScripts(Table, Plan);
}

/// Behind the last statement that stays; there is one, the type.
void TWriter::AddScripts(const TTomlNode& Table, const TActionPlan& Plan)
{
    const auto IsRemoved = [&](const TTomlEntry& Entry) {
        return std::any_of(Plan.Wishes.begin(), Plan.Wishes.end(), [&](const TTomlWish& Wish) {
            return Wish.Key == Entry.Key && Wish.Kind == TTomlWish::TKind::Remove;
        });
    };
    const TTomlEntry* Last = nullptr;
    for (const TTomlEntry& Entry : Table.Entries)
        if (Entry.Key != "scripts" && !IsRemoved(Entry))
            Last = &Entry;
    std::string Lines = TomlSection(ScriptsHeader, Plan.Scripts, FDocument.LineEnd());
    Lines.resize(Lines.size() - FDocument.LineEnd().size());
    FEditor.InsertBehind(*Last, fmt::format("{}{}", FDocument.LineEnd(), Lines));
}

std::string TWriter::NewAction(const TActionPlan& Plan) const
{
    std::string Text = TomlSection(ActionHeader, Plan.Wishes, FDocument.LineEnd());
    if (std::any_of(Plan.Scripts.begin(), Plan.Scripts.end(), IsWritten))
        Text += fmt::format("{}{}", FDocument.LineEnd(), TomlSection(ScriptsHeader, Plan.Scripts, FDocument.LineEnd()));
    return Text;
}
} // namespace

std::string WriteProjectFile(const TProject& Project, const TProjectFile& File, bool IsIncluded)
{
    return TWriter(Project, File, IsIncluded).Write();
}
