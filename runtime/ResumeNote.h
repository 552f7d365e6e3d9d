#pragma once

#include "platform/HeldFile.h"
#include "runtime/Variables.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// Where the last run of a project stands: a small file in the user's state folder, there only while a run has
/// not ended with success. Of two runs at the same time the first one has it, and the other one does without.
class TResumeNote
{
public:
    struct TPlace
    {
        int Index = 0;
        std::string Name;
        TVariables::TPairs Settings{};       ///< the variables that the command line set
        std::vector<std::string> Withheld{}; ///< names of those whose values are secret
    };

    /// Of the project with this absolute file name, or any other that leads to it.
    explicit TResumeNote(const std::string& ProjectFile);

    /// The noted place; none if there is no note or it cannot be read.
    [[nodiscard]] std::optional<TPlace> Read() const;
    /// Notes that the action is about to run. Throws EFileError.
    void Write(const TPlace& Place);
    /// Removes the note. Throws EFileError.
    void Remove();

private:
    std::string FProjectFile;
    std::string FFileName;
    std::unique_ptr<THeldFile> FFile;
    bool FIsTaken = false; ///< by another run
};
