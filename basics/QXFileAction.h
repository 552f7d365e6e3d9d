#pragma once

#include "QXFileSelection.h"
#include "host/QXAction.h"

#include <string>
#include <string_view>
#include <vector>

/// Base of the actions that work on a list of files, folders and masks.
class TQXFileAction : public TQXAction
{
public:
    TQXFileAction();

    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;
    void TerminateAction() override { FIsEnding = true; }

    TStringList Files;

protected:
    /// The expanded texts of Files; false if one cannot be expanded or is empty.
    [[nodiscard]] bool ExpandFiles(std::vector<std::string>& Items) const;
    /// The expanded path of a folder or file that is made; false after a message if nothing can be made there.
    [[nodiscard]] bool ExpandTarget(std::string_view Label, std::string_view Expression, std::string& Path) const;
    /// What the items name; false after a message for each that names nothing.
    [[nodiscard]] bool SelectAll(const std::vector<std::string>& Items, TQXFileSelection& Selection) const;
    /// A selection that tells the log what it leaves out.
    [[nodiscard]] TQXFileSelection MakeSelection(TQXSelectionRules Rules) const;
    /// Does what may fail for one file. False after a message with the reason; what ends the run goes on.
    template <typename TStep> bool Try(const std::string& What, TStep Step) const
    try
    {
        Step();
        return true;
    }
    catch (const std::exception& Error)
    {
        if (FIsEnding)
            throw;
        SendMessage(What + " : " + Error.what());
        return false;
    }

private:
    bool FIsEnding = false;
};

/// Reports a setting that is not as it must be; gives Holds.
bool Require(IQXActionValidationError& Errors, bool Holds, std::string_view Label, std::string_view Message);
/// "1 file", "2 files".
[[nodiscard]] std::string CountOf(std::size_t Number);
