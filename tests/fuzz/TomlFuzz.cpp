#include "runtime/HostErrors.h"
#include "runtime/projects/TomlEditor.h"
#include "tests/fuzz/FuzzTarget.h"

#include <optional>

using Fuzz::Require;

namespace
{
/// A value is compared by the text that it has in its document.
std::string ValueText(const TTomlDocument& Document, const TTomlNode& Node)
{
    const std::size_t Begin = Document.Offset(Node.Begin);
    return Document.Text().substr(Begin, Document.Offset(Node.End) - Begin);
}

std::vector<TTomlWish> WishesFor(const TTomlNode& Table)
{
    std::vector<TTomlWish> Wishes;
    for (const TTomlEntry& Entry : Table.Entries)
        if (Entry.Value.Kind != TTomlKind::Table && Entry.Value.Kind != TTomlKind::Array)
            Wishes.push_back({static_cast<TTomlWish::TKind>(Wishes.size() % 3), Entry.Key, "[ 1, ']' ]"});
    return Wishes;
}

void CheckEdits(const TTomlDocument& Document)
{
    const std::vector<TTomlWish> Wishes = WishesFor(Document.Root());
    TTomlEditor Editor(Document);
    Require(Editor.Text() == Document.Text(), "without edits nothing changes");
    static_cast<void>(Editor.Apply(Document.Root(), Wishes));
    const TTomlDocument After("fuzz.toml", Editor.Text());
    for (const TTomlWish& Wish : Wishes)
    {
        const TTomlEntry* Entry = After.Root().Find(Wish.Key);
        Require((Entry == nullptr) == (Wish.Kind == TTomlWish::TKind::Remove), "only what is to go goes");
        const bool IsWritten = Wish.Kind == TTomlWish::TKind::Write;
        Require(!Entry || ValueText(After, Entry->Value) ==
                              (IsWritten ? Wish.Value : ValueText(Document, Document.Root().Find(Wish.Key)->Value)),
                "a value is what was wished");
    }
}

void Check(std::string_view Input)
{
    std::optional<TTomlDocument> Document;
    try
    {
        Document.emplace("fuzz.toml", std::string(Input));
    }
    catch (const EHostFileError& Error)
    {
        Require(std::string_view(Error.what()).starts_with("fuzz.toml:"), "an error has a place");
        return;
    }
    CheckEdits(*Document);
}
const TFuzzTarget Target("toml", Check);
} // namespace
