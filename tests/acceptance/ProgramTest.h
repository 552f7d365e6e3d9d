// Runs the built program in a fresh folder, away from the user's own settings.
#pragma once

#include "tests/TempFolder.h"

#include <string>
#include <utility>
#include <vector>

/// What a run of the program left.
struct TProgramResult
{
    int ExitCode = -1; ///< 128 and its number when a signal ended the program
    std::string Out;
    std::string Err;
};

/// The text of a page in docs/.
[[nodiscard]] std::string ReadDocument(const std::string& Page);

/// A program that is running. It is killed when the object goes before it has ended.
class TRunningProgram
{
public:
    TRunningProgram(int ProcessID, std::string OutFile, std::string ErrFile)
        : FProcessID(ProcessID), FOutFile(std::move(OutFile)), FErrFile(std::move(ErrFile))
    {}
    ~TRunningProgram();
    TRunningProgram(const TRunningProgram&) = delete;
    TRunningProgram& operator=(const TRunningProgram&) = delete;

    void Send(int Signal) const;
    /// Waits until File has content; false after twenty seconds or when the program ended before.
    [[nodiscard]] bool WaitForFile(const std::string& File);
    /// Waits for its end; one that does not end within a minute is killed.
    TProgramResult Wait();

private:
    [[nodiscard]] bool HasEnded();
    int FProcessID;
    int FStatus = 0;
    bool FEnded = false;
    std::string FOutFile;
    std::string FErrFile;
};

/// Fixture with a folder of its own (`work`, in which the program starts) and a home beside it.
class TProgramTest : public testing::Test
{
protected:
    using TPairs = std::vector<std::pair<std::string, std::string>>;

    TProgramTest();

    /// The folder in which the program starts, without links in it.
    [[nodiscard]] const std::string& Folder() const { return FFolder; }
    [[nodiscard]] std::string Path(const std::string& Name) const { return FFolder + "/" + Name; }
    /// The options file that the program reads when it is told none.
    [[nodiscard]] std::string OptionsFile() const { return FBase + "/home/.config/quexley/options.toml"; }

    /// Write and read files of the folder; an absolute name stands for itself. Folders are made.
    void WriteFile(const std::string& Name, const std::string& Text) const;
    [[nodiscard]] std::string ReadFile(const std::string& Name) const;
    [[nodiscard]] bool HasFile(const std::string& Name) const;
    /// Writes an executable shell script.
    void WriteTool(const std::string& Name, const std::string& Script) const;

    /// Copies a folder of the sources into the folder, without what a run has left there.
    void CopySources(const std::string& From) const;

    /// Makes `tools` the framework and SDK folder of a .NET version v1.1 that is the only one, with More behind it
    /// in the options file.
    void UseStandInTools(const std::string& More = "") const;
    /// A stand-in that appends its arguments, one per line, to the file `received`, and then does Script.
    void WriteStandIn(const std::string& Name, const std::string& Script = "") const;

    /// The output of a command of the shell in the folder; the test fails if the command does.
    std::string Shell(const std::string& Command) const;
    /// Runs the program to its end.
    [[nodiscard]] TProgramResult Run(const std::vector<std::string>& Arguments, const TPairs& Environment = {}) const;
    /// Starts it. OutFile takes its standard output in place of a file beside the folder.
    [[nodiscard]] TRunningProgram Start(const std::vector<std::string>& Arguments, const TPairs& Environment = {},
                                        const std::string& OutFile = "") const;

private:
    TTempFolder FTemp;
    std::string FBase = FTemp.Path();
    std::string FFolder = FBase + "/work";
};
