#pragma once

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

/// Where the last run of a project stands: a small file in the user's state folder, there only while a run has
/// not ended with success.
class TResumeNote
{
public:
    struct TPlace
    {
        int Index = 0;
        std::string Name;
    };

    /// Of the project with this absolute file name.
    explicit TResumeNote(std::string ProjectFile);

    /// The noted place; none if there is no note or it cannot be read.
    [[nodiscard]] std::optional<TPlace> Read() const;
    /// Notes that the action is about to run. Throws EFileError.
    void Write(const TPlace& Place);
    /// Removes the note. Throws EFileError.
    void Remove();

private:
    std::string FProjectFile;
    std::string FFileName;
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> FFile{nullptr, &std::fclose};
    std::size_t FLength = 0; ///< of the longest text in the file so far
};
