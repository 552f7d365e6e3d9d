#include "QXRunProgramAction.h"

#include "QXFileAction.h"
#include "host/QXUtilities.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

namespace
{
constexpr const char* WrongCodes = "The success codes must be numbers parted by ;";

std::string_view Trim(std::string_view Text)
{
    const std::size_t Begin = std::min(Text.find_first_not_of(" \t"), Text.size());
    return Text.substr(Begin, Text.find_last_not_of(" \t") + 1 - Begin);
}

/// The numbers of a text; none if it has another one or none at all.
std::vector<int> ParseCodes(std::string_view Text)
{
    std::vector<int> Result;
    for (std::size_t Begin = 0, End = 0; Begin <= Text.size(); Begin = End + 1)
    {
        End = std::min(Text.find(';', Begin), Text.size());
        const std::string_view Part = Trim(Text.substr(Begin, End - Begin));
        if (Part.empty())
            continue;
        int Code = 0;
        const auto Parsed = std::from_chars(Part.data(), Part.data() + Part.size(), Code);
        if (Parsed.ec != std::errc() || Parsed.ptr != Part.data() + Part.size())
            return {};
        Result.push_back(Code);
    }
    return Result;
}
} // namespace

TQXRunProgramAction::TQXRunProgramAction()
{
    LogOutput = true;
    HideWindow = true;
    Publish("Program", Program, "The program: a path, or a bare name that is found along the search path")
        .File()
        .Required("git");
    Publish("Arguments", Arguments, "Its arguments in one text; double quotes keep blanks together").Expression();
    Publish("StartDir", StartDir, "Folder in which it starts; none: the project's folder").Folder();
    Publish("SuccessCodes", SuccessCodes, "The exit codes that are success, parted by ;").List(';');
}

bool TQXRunProgramAction::Validate(IQXActionValidationError& Errors)
{
    const bool HasProgram = Require(Errors, !Program.empty(), "Program", "The program has not been set");
    const bool HasCodes = SuccessCodes.find('%') != std::string::npos || !ParseCodes(SuccessCodes).empty();
    return Require(Errors, HasCodes, "Success Codes", WrongCodes) && HasProgram;
}

std::string TQXRunProgramAction::GetExecutable()
{
    const std::string Named = ExpandExpression(Program, false);
    const std::string Found = FindProgramFile(Named);
    return Found.empty() ? Named : Found;
}

std::string TQXRunProgramAction::GetStartingDir(const std::string& /*Exe*/)
{
    return FStartDir;
}

bool TQXRunProgramAction::BeforeGetCommandLine()
{
    std::string Text;
    if (!TryExpandExpression("Program", Program, Text, true) ||
        !TryExpandExpression("Start Directory", StartDir, FStartDir, false) ||
        !TryExpandExpression("Success Codes", SuccessCodes, Text, true))
        return false;
    FSuccessCodes = ParseCodes(Text);
    if (FSuccessCodes.empty())
        SendMessage("Error - " + std::string(WrongCodes) + " : " + Text);
    return !FSuccessCodes.empty();
}

bool TQXRunProgramAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    std::string Text;
    if (!TryExpandExpression("Arguments", Arguments, Text, false))
        return false;
    QXAddFreeText(Builder, Text);
    return true;
}

bool TQXRunProgramAction::InterpretResult(int ExitCode)
{
    return std::find(FSuccessCodes.begin(), FSuccessCodes.end(), ExitCode) != FSuccessCodes.end();
}

void TQXRunProgramAction::OnFailure(int ExitCode)
{
    SendMessage("The program ended with the exit code " + std::to_string(ExitCode));
}
