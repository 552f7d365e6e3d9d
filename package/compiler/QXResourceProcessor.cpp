#include "package/compiler/QXResourceProcessor.h"

#include "host/QXFiles.h"
#include "host/QXUtilities.h"
#include "package/compiler/QXCultures.h"
#include "package/compiler/QXDotNetUtils.h"
#include "package/compiler/QXProjectXml.h"
#include "platform/CommandLines.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>

namespace
{
bool IsResx(const std::string& Path)
{
    return Texts::Same(Paths::Extension(Path), ".resx");
}

/// The name of a resource without its extension and the culture before that.
std::string NeutralName(std::string Name, const std::string& Culture)
{
    Name = Paths::ChangeExtension(Name, "");
    const bool HasCulture = !Culture.empty() && Texts::Same(Paths::Extension(Name), '.' + Culture);
    return HasCulture ? Paths::ChangeExtension(Name, "") : Name;
}

bool LeadsOut(const std::string& Path)
{
    return Path.starts_with("..") || Paths::IsAbsolute(Path);
}

/// A tool in a folder in which it must lie to find what it needs; it goes with this object.
class TToolCopy
{
public:
    /// Whether a copy can be made shows when it is started.
    TToolCopy(const std::string& Original, const std::string& Copy)
        : FPath(Copy), FIsOriginal(QXFiles().Spelling(Original) == QXFiles().Spelling(Copy))
    {
        if (!FIsOriginal)
            static_cast<void>(QXFiles().Copy(Original, Copy));
    }
    ~TToolCopy()
    {
        if (!FIsOriginal)
            static_cast<void>(QXFiles().Delete(FPath));
    }
    TToolCopy(const TToolCopy&) = delete;
    TToolCopy& operator=(const TToolCopy&) = delete;

    [[nodiscard]] const std::string& Path() const { return FPath; }

private:
    std::string FPath;
    bool FIsOriginal;
};
} // namespace

TQXResourceProcessor::TQXResourceProcessor(TQXManagedCompilerAction& Action, const TProjectLoad& Load)
    : FAction(Action), FLoad(Load), FProcess(CreateQXProcess())
{
    FProcess->SetExecutable(FLoad.SDKFolder + "resgen.exe");
    FProcess->SetOptionA(true);
    FProcess->SetOptionB(false);
    FProcess->SetEvents(&FAction);
    FProcess->SetOptionD(true);
    FProcess->SetOptionE(true);
    FProcess->SetStartDirectory(FLoad.Folder);
    FAction.Project.Satellites.Linker = FLoad.SDKFolder + "al.exe";
    FAction.Project.Satellites.Folder = FLoad.ObjectFolder;
}

bool TQXResourceProcessor::ProcessVSEmbeddedResource(const TXmlElement& File) const
{
    FProcess->SetStartDirectory(FLoad.Folder);
    const std::string Path = ExpandRelativePath(GetProjectPath(File), FLoad.Folder);
    if (!QXFiles().FileExists(Path))
    {
        Log("Error - File : " + Path + " - does not exist!");
        return false;
    }
    if (File.HasAttribute("DependentUpon") && (IsResx(Path) || !FLoad.FollowsIDE))
        return ChooseResourceCompiler() && ProcessFormResx(File, Path, File.Attribute("DependentUpon"));
    return ProcessByExtension(File, Path);
}

std::string TQXResourceProcessor::ShownName(const TXmlElement& File) const
{
    std::string Path = Paths::Normalise(File.Attribute(File.HasAttribute("FileName") ? "FileName" : "RelPath"));
    const bool IsLinked = File.HasAttribute("Link") || LeadsOut(Path);
    if (!FLoad.FollowsIDE || !(IsLinked || FLoad.RootNameSpace.empty()))
        return {};
    if (LeadsOut(Path))
        Path = Paths::FileName(Path);
    std::replace_if(Path.begin(), Path.end(), Paths::IsDelimiter, '.');
    return FLoad.RootNameSpace.empty() ? Path : FLoad.RootNameSpace + '.' + Path;
}

std::string TQXResourceProcessor::SatelliteOf(const std::string& SourceFile) const
{
    // A module is no assembly, which alone has satellites.
    return FLoad.FollowsIDE && FAction.Target != TDotNetTarget::Module ? CultureOf(SourceFile) : "";
}

std::string TQXResourceProcessor::StemOf(const std::string& SourceFile) const
{
    const std::string Stem = Paths::BareName(SourceFile);
    return SatelliteOf(SourceFile).empty() ? Stem : Paths::BareName(Stem);
}

void TQXResourceProcessor::ListFormResources(const std::vector<TXmlElement>& Elements, const char* Owner)
{
    for (const TXmlElement& File : Elements)
    {
        const bool IsBorland = File.HasAttribute("FileName");
        const std::string Path =
            Paths::Expand(IsBorland ? File.Attribute("FileName") : GetProjectPath(File), FLoad.Folder);
        const std::string CodeFile =
            Paths::Expand(File.Attribute(Owner), IsBorland ? FLoad.Folder : Paths::Folder(Path));
        std::vector<std::string>& Siblings = FFormResources[Texts::FoldCase(CodeFile)];
        const std::string Stem = Texts::FoldCase(StemOf(Path));
        // The cultures of one resource are one.
        if (!FLoad.FollowsIDE || std::find(Siblings.begin(), Siblings.end(), Stem) == Siblings.end())
            Siblings.push_back(Stem);
    }
}

std::string TQXResourceProcessor::SuffixAmongSiblings(const std::string& Path, const std::string& CodeFile) const
{
    const auto Found = FFormResources.find(Texts::FoldCase(CodeFile));
    if (Found == FFormResources.end() || Found->second.size() < 2)
        return {};
    const std::vector<std::string>& Siblings = Found->second;
    const std::string Stem = StemOf(Path);
    const std::string Form = Paths::BareName(CodeFile);
    // A page's source has two extensions, of which its resources may have one.
    for (const std::string& Prefix : {Form, Paths::BareName(Form)})
        if (Texts::Same(Stem, Prefix) || Texts::StartsWithSame(Stem, Prefix + '.'))
        {
            const std::string Suffix = Stem.substr(Prefix.size());
            const std::string Full = Texts::FoldCase(Form + Suffix);
            const bool IsTaken =
                Full != Texts::FoldCase(Stem) && std::find(Siblings.begin(), Siblings.end(), Full) != Siblings.end();
            return IsTaken ? '.' + Stem : Suffix;
        }
    return '.' + Stem;
}

bool TQXResourceProcessor::ProcessByExtension(const TXmlElement& File, const std::string& Path) const
{
    if (IsResx(Path))
        return ChooseResourceCompiler() && ProcessResx(File, Path);
    if (Texts::Same(Paths::Extension(Path), ".licx"))
        return ProcessLicx(Path);
    TQXProjectFiles& Project = FAction.Project;
    if (Texts::Same(Paths::Extension(Path), ".res"))
        Project.Win32Resources.push_back(Path);
    else
        Embed(File, Path,
              Texts::Same(Paths::Extension(Path), ".resources") ? Project.CompiledResources : Project.Resources);
    return true;
}

void TQXResourceProcessor::Embed(const TXmlElement& File, const std::string& Path,
                                 std::vector<std::string>& Unnamed) const
{
    if (std::string Name = ShownName(File); !Name.empty())
        FAction.Project.NamedResources.push_back({Path, std::move(Name)});
    else
        Unnamed.push_back(Path);
}

bool TQXResourceProcessor::ProcessBorlandEmbeddedResource(const TXmlElement& File) const
{
    const std::string Path = ExpandRelativePath(File.Attribute("FileName"), FLoad.Folder);
    if (!File.HasAttribute("Parent"))
        return ProcessResx(File, Path);
    const std::string Parent = QXFiles().Spelling(FLoad.Folder + File.Attribute("Parent"));
    return ProcessFormResx(File, Path, Paths::RelativeTo(Parent, Paths::Folder(Path)));
}

bool TQXResourceProcessor::ChooseResourceCompiler() const
{
    const std::string Compiler =
        FLoad.IsCompact ? FAction.ExpandExpression(FLoad.CompactCompiler, true) : FLoad.SDKFolder + "resgen.exe";
    if (Texts::Trim(Compiler).empty())
    {
        Log("Compact Framework resource compiler not specified!");
        return false;
    }
    FProcess->SetExecutable(Compiler);
    return true;
}

bool TQXResourceProcessor::ProcessResx(const TXmlElement& File, const std::string& SourceFile) const
{
    std::string Name = ShownName(File);
    if (Name.empty())
        Name =
            (FAction.RootNameSpace.empty() ? "" : FAction.RootNameSpace + '.') + DottedName(SourceFile, FLoad.Folder);
    return AddResx(SourceFile, NeutralName(std::move(Name), SatelliteOf(SourceFile)));
}

bool TQXResourceProcessor::ProcessFormResx(const TXmlElement& File, const std::string& SourceFile,
                                           const std::string& DependentFile) const
{
    const std::string CodeFile = QXFiles().Spelling(Paths::Folder(SourceFile) + DependentFile);
    if (!QXFiles().ForceFolders(FLoad.ObjectFolder))
    {
        Log("Unable to create output directory : " + FLoad.ObjectFolder);
        return false;
    }
    if (!QXFiles().FileExists(CodeFile))
    {
        Log("File : " + CodeFile + " - does not exist");
        Log("Unable to determine namespace for resource file");
        return false;
    }
    std::string Name;
    if (FLoad.Mapping.DetectNameSpace(CodeFile, Name))
        return AddResx(SourceFile, Name + SuffixAmongSiblings(SourceFile, CodeFile));
    if (const std::string Shown = ShownName(File); !Shown.empty())
        return AddResx(SourceFile, NeutralName(Shown, SatelliteOf(SourceFile)));
    return AddResx(SourceFile, NameWithoutClass(Name, DependentFile) + SuffixAmongSiblings(SourceFile, CodeFile));
}

std::string TQXResourceProcessor::NameWithoutClass(const std::string& Name, const std::string& DependentFile) const
{
    Log("Warning - unable to determine resource Namespace from file : " + DependentFile);
    Log("          using RootNamespace + FileName");
    const std::string& Root = FAction.RootNameSpace;
    return Root.empty() ? Name : Root + '.' + Paths::BareName(DependentFile);
}

bool TQXResourceProcessor::AddResx(const std::string& SourceFile, std::string Name) const
{
    const std::string Culture = SatelliteOf(SourceFile);
    Name.append(Culture.empty() ? "" : ".").append(Culture).append(".resources");
    const std::string Destination = FLoad.ObjectFolder + Name;
    if (!CompileResx(SourceFile, Destination))
    {
        Log("Error compiling resource : " + SourceFile);
        return false;
    }
    QXFiles().WillMake(Destination);
    if (Culture.empty())
        FAction.Project.Resources.push_back(Destination);
    else
        FAction.Project.Satellites.Resources[Culture].push_back(Name);
    return true;
}

bool TQXResourceProcessor::CompileResx(const std::string& SourceFile, const std::string& Destination) const
{
    FProcess->SetArguments(CommandLines::Quote(SourceFile, true) + ' ' + CommandLines::Quote(Destination, true));
    try
    {
        const int ExitCode = FProcess->Run();
        if (ExitCode != 0)
            Log("ResGen returned : " + std::to_string(ExitCode));
        return ExitCode == 0;
    }
    catch (const EQXProcessError& Error)
    {
        Log(std::string("Error executing ResGen : ") + Error.what());
        Log("Executable : [" + FProcess->GetExecutable() + ']');
        Log("Starting Directory : [" + FProcess->GetStartDirectory() + ']');
        Log("Parameters : [" + FProcess->GetArguments() + ']');
        return false;
    }
}

bool TQXResourceProcessor::ProcessLicx(const std::string& LicenseFile) const
{
    FProcess->SetStartDirectory(FLoad.OutputFolder);
    std::string Arguments =
        "/target:" + FLoad.AssemblyFileName + " /complist:" + CommandLines::Quote(LicenseFile, true);
    Log("Processing Licenses file : " + LicenseFile);
    for (const std::string& Module : LicensedModules(LicenseFile))
    {
        Log("Adding Module : " + Module);
        Arguments += " /i:" + Module;
    }
    Arguments += " /outdir:" + CommandLines::Quote(Paths::WithoutTrailing(FLoad.ObjectFolder), true);
    if (!RunLicenseCompiler(LicenseFile, Arguments))
        return false;
    FAction.Project.LicenseResources.push_back(FLoad.ObjectFolder + FLoad.AssemblyFileName + ".licenses");
    QXFiles().WillMake(FAction.Project.LicenseResources.back());
    return true;
}

std::vector<std::string> TQXResourceProcessor::LicensedModules(const std::string& LicenseFile) const
{
    std::vector<std::string> Modules;
    for (const std::string& Line : LoadUnicodeFile(LicenseFile))
    {
        Log("Processing License string : " + Line);
        const auto Fields = CreateStringTokeniser(Line);
        const std::string ControlClass(Texts::Trim(Fields->ReadUntilChar(',')));
        Fields->Next();
        Modules.push_back(std::string(Texts::Trim(Fields->ReadUntilChar(','))) + ".dll");
        WarnOfMissingLicense(ControlClass);
    }
    return Modules;
}

void TQXResourceProcessor::WarnOfMissingLicense(const std::string& ControlClass) const
{
    const std::string Path = FLoad.OutputFolder + ControlClass + ".lic";
    if (QXFiles().FileExists(Path))
        return;
    Log("Warning : Unable to locate Lic file : " + Path);
    Log("Lic files need to be copied to the Bin\\<ConfigName> folder otherwise the license compiler will not find "
        "them!");
    Log("If the control does not use .lic files then ignore this warning.");
}

bool TQXResourceProcessor::RunLicenseCompiler(const std::string& LicenseFile, const std::string& Arguments) const
{
    // The compiler looks for controls and their licenses where it lies itself.
    const TToolCopy Copy(FLoad.SDKFolder + "lc.exe", FLoad.OutputFolder + "lc.exe");
    FProcess->SetExecutable(Copy.Path());
    FProcess->SetArguments(Arguments);
    try
    {
        if (FProcess->Run() == 0)
            return true;
        Log("Error compiling licenses file : " + LicenseFile);
    }
    catch (const EQXProcessError& Error)
    {
        Log(std::string("Error compiling licenses file : ") + Error.what());
    }
    return false;
}
