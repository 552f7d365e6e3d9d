#include "runtime/projects/ProjectText.h"

#include "platform/Text.h"
#include "runtime/projects/TextJoiner.h"

#include <algorithm>
#include <limits>
#include <unordered_map>

namespace
{
class TAssembler
{
public:
    TAssembler(const TTomlDocument& Document, const TTomlEditor& Editor, std::span<const TTomlNode> Tables,
               const TProjectBlocks& Blocks)
        : FEditor(Editor), FBlocks(Blocks), FJoiner(Document.LineEnd()), FSections(Editor.Sections())
    {
        MapSections(Tables);
    }

    std::string Assemble();

private:
    void MapSections(std::span<const TTomlNode> Tables);
    [[nodiscard]] bool IsReordered() const;
    [[nodiscard]] bool IsEmptied(const TTomlSection& Section, const std::string& Edited) const;
    void AddSection(std::size_t Place);
    void AddBlock(const TActionBlock& Block);
    void AddTablesOnce();
    void AddBlocksToNextOriginal();

    const TTomlEditor& FEditor;
    const TProjectBlocks& FBlocks;
    TTextJoiner FJoiner;
    std::vector<TTomlSection> FSections;
    std::unordered_map<const TTomlNode*, std::size_t> FOwners; ///< of a section's table: its action
    std::vector<std::vector<std::size_t>> FPlaces;             ///< of an action: its sections
    std::vector<bool> FIsKept;                                 ///< of an action
    std::size_t FNextBlock = 0;
    bool FHasTables = false;
};

void TAssembler::MapSections(std::span<const TTomlNode> Tables)
{
    for (std::size_t Index = 0; Index < Tables.size(); ++Index)
    {
        FOwners.emplace(&Tables[Index], Index);
        if (const TTomlEntry* Scripts = Tables[Index].Find("scripts"))
            FOwners.emplace(&Scripts->Value, Index);
    }
    FPlaces.resize(Tables.size());
    for (std::size_t Place = 0; Place < FSections.size(); ++Place)
        if (const auto Owner = FOwners.find(FSections[Place].Table); Owner != FOwners.end())
            FPlaces[Owner->second].push_back(Place);
    FIsKept.resize(Tables.size());
    for (const TActionBlock& Block : FBlocks.Actions)
        if (Block.Original)
            FIsKept[*Block.Original] = true;
}

/// Whether the file's actions have to move, or new ones to stand before them.
bool TAssembler::IsReordered() const
{
    const auto ComesBefore = [](const TActionBlock& Left, const TActionBlock& Right) {
        constexpr auto Last = std::numeric_limits<std::size_t>::max();
        return Left.Original.value_or(Last) < Right.Original.value_or(Last);
    };
    return !std::is_sorted(FBlocks.Actions.begin(), FBlocks.Actions.end(), ComesBefore);
}

std::string TAssembler::Assemble()
{
    const bool IsMoving = IsReordered();
    AddSection(0);
    FJoiner.AddNew(FBlocks.NewRoot);
    FJoiner.AddNew(FBlocks.NewProject);
    for (std::size_t Place = 1; Place < FSections.size(); ++Place)
    {
        const auto Owner = FOwners.find(FSections[Place].Table);
        if (Owner == FOwners.end())
            AddSection(Place);
        else if (FIsKept[Owner->second])
        {
            AddTablesOnce();
            if (!IsMoving)
                AddSection(Place);
            else if (Place == FPlaces[Owner->second].front())
                AddBlocksToNextOriginal();
        }
    }
    AddTablesOnce();
    for (std::size_t Index = IsMoving ? FNextBlock : 0; Index < FBlocks.Actions.size(); ++Index)
        if (!FBlocks.Actions[Index].Original)
            AddBlock(FBlocks.Actions[Index]);
    return FJoiner.Finish(FSections.size());
}

void TAssembler::AddSection(std::size_t Place)
{
    const TTomlSection& Section = FSections[Place];
    const std::string Text = FEditor.Slice(Section.Begin, Section.End);
    if (!IsEmptied(Section, Text))
        FJoiner.AddOld(Place, Text);
}

/// A header of scripts from which all were removed goes too.
bool TAssembler::IsEmptied(const TTomlSection& Section, const std::string& Edited) const
{
    return Section.Table && !Section.Table->Entries.empty() && Texts::Trim(Edited) == ScriptsHeader;
}

void TAssembler::AddBlock(const TActionBlock& Block)
{
    if (!Block.Original)
        FJoiner.AddNew(Block.NewText);
    else
        for (const std::size_t Place : FPlaces[*Block.Original])
            AddSection(Place);
}

void TAssembler::AddTablesOnce()
{
    if (!FHasTables)
        for (const std::string* Table : {&FBlocks.NewVariables, &FBlocks.NewScripts})
            FJoiner.AddNew(*Table);
    FHasTables = true;
}

void TAssembler::AddBlocksToNextOriginal()
{
    bool IsOriginal = false;
    while (!IsOriginal && FNextBlock < FBlocks.Actions.size())
    {
        AddBlock(FBlocks.Actions[FNextBlock]);
        IsOriginal = FBlocks.Actions[FNextBlock++].Original.has_value();
    }
}
} // namespace

std::string JoinProjectText(const TTomlDocument& Document, const TTomlEditor& Editor, std::span<const TTomlNode> Tables,
                            const TProjectBlocks& Blocks)
{
    return TAssembler(Document, Editor, Tables, Blocks).Assemble();
}
