#pragma once

#include "host/QXAction.h"
#include "package/compiler/QXDotNetCompilerOptions.h"

#include <string>
#include <string_view>
#include <vector>

/// The files of a setting: what a person typed as one text, or in its place the exact paths that a project brought.
struct TQXFileSetting
{
    std::string_view Label; ///< under which a failed expansion is reported
    std::string_view Typed;
    const std::vector<std::string>* Exact = nullptr; ///< neither parted nor expanded
};

/// Which names embedded files get: their path behind the root namespace, or none of their own.
enum class TQXResourceNaming { None, UnlessCompiled, Always };

/// The lines of a compiler's response file, a switch each. What a person typed is expanded under its label first; false
/// from any operation: that failed, as the log tells, and the file is of no use.
class TQXResponseFile
{
public:
    /// BaseDir: where the compiler runs, absolute and with trailing delimiter.
    TQXResponseFile(const TCustomQXAction& Action, std::string BaseDir) : FAction(Action), FBaseDir(std::move(BaseDir))
    {}

    [[nodiscard]] const std::string& BaseDir() const { return FBaseDir; }
    [[nodiscard]] const TStringList& Lines() const { return FLines; }

    void Add(std::string_view Line) { FLines.Add(std::string(Line)); }
    void AddFlag(bool IsSet, std::string_view Switch);
    /// SWITCH:VALUE, the value quoted if it holds a blank, and followed by Separator and the second value, if there is
    /// one. Nothing without a value.
    [[nodiscard]] bool AddOption(std::string_view Switch, std::string_view Label, std::string_view Value,
                                 std::string_view SecondValue = {}, std::string_view Separator = ",");
    /// The same for a file that the compiler makes.
    [[nodiscard]] bool AddTarget(std::string_view Switch, std::string_view Label, std::string_view Value);
    /// The same line for a value that the system formed: it stands as it is.
    void AddExact(std::string_view Switch, std::string_view Value);
    /// A switch with each file; typed ones are parted by ";", "," or line breaks.
    [[nodiscard]] bool AddFileSwitches(std::string_view Switch, const TQXFileSetting& Files);
    /// Typed ones are parted by commas.
    [[nodiscard]] bool AddReferences(const TQXFileSetting& References);
    [[nodiscard]] bool AddLinkResources(const TQXFileSetting& Resources);
    /// Typed ones are `FILE` or `FILE=IDENTIFIER`, parted by commas or line breaks.
    [[nodiscard]] bool AddResources(const TQXFileSetting& Resources, TQXResourceNaming Naming,
                                    const std::string& RootNameSpace);
    void AddResources(const std::vector<TQXNamedResource>& Resources);
    /// Typed ones are parted by ";" or line breaks. Found: whether there are any.
    [[nodiscard]] bool AddSources(const TQXFileSetting& Sources, bool& Found);

private:
    [[nodiscard]] bool Split(const TQXFileSetting& Files, std::string_view Separators, TStringList& Items) const;
    /// An exact path as the compiler takes it behind a switch whose value it parts at these characters, quoted or not:
    /// the way from its folder, if that is without them, else that to a copy. The log tells if nothing helps.
    [[nodiscard]] std::string Unparted(const std::string& Path, std::string_view Separators);
    /// The same for a resource that is embedded under a name, or under its file's if that is empty.
    [[nodiscard]] std::string UnpartedResource(const std::string& Path, const std::string& Name);
    /// The way to a copy of the file in the project's object folder; empty if none can be made.
    [[nodiscard]] std::string CopyUnparted(const std::string& Path, std::string_view Separators);
    void WarnOfParting(const std::string& Path, std::string_view Separators) const;

    const TCustomQXAction& FAction;
    std::string FBaseDir;
    TStringList FLines;
    int FCopies = 0;
};
