#pragma once

#include "apps/shared/HostSetup.h"
#include "runtime/ProjectRunner.h"

#include <string>
#include <vector>

enum class TLogFormat { Text, Json, GitHub, Azure, TeamCity };
enum class TColourChoice { Auto, Always, Never };

/// What stands on the command line, checked for its form. File names are as the user wrote them.
struct TArguments : THostFiles
{
    // Commands with a project.
    std::string Project; ///< empty: the nearest one upwards
    TRunOptions Run;
    TLogFormat Format = TLogFormat::Text;
    TColourChoice Colour = TColourChoice::Auto;
    std::string LogFile;    ///< empty: none
    std::string ReportFile; ///< the same
    bool FailOnWarning = false;
    bool Quiet = false;
    bool Verbose = false;
    // Other commands.
    std::string Configuration; ///< of `init`, empty: the usual one
    std::string OutputFile;    ///< the same, empty: the default
    bool Force = false;        ///< the same
    bool Json = false;
    bool Example = false;           ///< of `show`
    bool Scripts = false;           ///< of `show`
    std::vector<std::string> Words; ///< class of `show`, topic of `help`, shell of `completions`; list, get or set with
                                    ///< operands of `options`
};
