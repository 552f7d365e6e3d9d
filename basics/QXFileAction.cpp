#include "QXFileAction.h"

#include "host/QXUtilities.h"

#include <utility>

TQXFileAction::TQXFileAction()
{
    Publish("Files", Files, "Files, folders and masks, one a line; a folder stands for the files in it").File();
}

bool TQXFileAction::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors, !Files.IsEmpty(), "Files", "No files have been named");
}

bool TQXFileAction::ExpandFiles(std::vector<std::string>& Items) const
{
    for (const std::string& File : Files)
        if (!TryExpandExpression("Files", File, Items.emplace_back(), true))
            return false;
    return true;
}

bool TQXFileAction::ExpandTarget(std::string_view Label, std::string_view Expression, std::string& Path) const
{
    if (!TryExpandExpression(Label, Expression, Path, true))
        return false;
    if (IsForeignPath(Path))
        SendMessage("Error - " + std::string(Label) + " is on a drive, which there is only on Windows : " + Path);
    return !IsForeignPath(Path);
}

bool TQXFileAction::SelectAll(const std::vector<std::string>& Items, TQXFileSelection& Selection) const
{
    bool Found = true;
    for (const std::string& Item : Items)
        if (!Selection.Add(Item))
        {
            // In a dry run a tool may have made it.
            SendMessage((QXFiles().IsComplete() ? "Error - Nothing is there for : " : "Nothing is there yet for : ") +
                        Item);
            Found = false;
        }
    return Found || !QXFiles().IsComplete();
}

TQXFileSelection TQXFileAction::MakeSelection(TQXSelectionRules Rules) const
{
    return {std::move(Rules), [this](const std::string& Text) { SendMessage(Text); }};
}

bool Require(IQXActionValidationError& Errors, bool Holds, std::string_view Label, std::string_view Message)
{
    if (!Holds)
        Errors.AddError(Label, Message);
    return Holds;
}

std::string CountOf(std::size_t Number)
{
    return std::to_string(Number) + (Number == 1 ? " file" : " files");
}
