#include "apps/import/Import.h"
#include "apps/quexley/Answer.h"
#include "apps/quexley/commands/Commands.h"
#include "platform/Files.h"
#include "platform/Modules.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace
{
/// Names from outside may be no UTF-8.
std::string Dump(const nlohmann::ordered_json& Value)
{
    return Value.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

std::string ResultAsJson(const TImportResult& Result)
{
    auto Projects = nlohmann::ordered_json::array();
    for (const TImportedAction& Action : Result.Actions)
        Projects.push_back({{"name", Action.Name},
                            {"type", Action.Type},
                            {"file", Action.File},
                            {"configuration", Action.Configuration},
                            {"output", Action.Output},
                            {"needs", Action.Needs},
                            {"notes", Action.Notes}});
    return Dump({{"file", Result.File},
                 {"configuration", Result.Configuration},
                 {"solutions", Result.Solutions},
                 {"projects", Projects},
                 {"notes", Result.Notes}});
}

std::string ResultAsText(const TImportResult& Result)
{
    std::string Text;
    for (const std::string& Note : Result.Notes)
        Text += Note + "\n";
    for (const TImportedAction& Action : Result.Actions)
        for (const std::string& Note : Action.Notes)
            Text += fmt::format("{}: {}\n", Action.File, Note);
    return Text + fmt::format("wrote {}: {} project{}, configuration {}\n", Result.File, Result.Actions.size(),
                              Result.Actions.size() == 1 ? "" : "s", Result.Configuration);
}
} // namespace

int InitCommand(const TArguments& Arguments, TQXRuntime&)
{
    const TImportWishes Wishes{Arguments.Project, Arguments.Configuration, Arguments.OutputFile, Arguments.Force};
    TImportResult Result;
    const TModule Module(TModule::FileBesideProgram("quexley_import"));
    Module.Function<void(const TImportWishes&, TImportResult&)>("QXImportProjects")(Wishes, Result);
    Files::ReplaceContent(Result.File, Result.Text);
    return WriteAnswer(Arguments.Json ? ResultAsJson(Result) : ResultAsText(Result));
}
