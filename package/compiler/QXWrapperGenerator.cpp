#include "package/compiler/QXWrapperGenerator.h"

#include "host/QXFiles.h"
#include "host/QXProcess.h"
#include "host/QXUtilities.h"
#include "package/compiler/QXDotNetUtils.h"
#include "package/compiler/QXProjectXml.h"
#include "platform/CommandLines.h"
#include "platform/Paths.h"

namespace
{
constexpr int Decimal = 10;
constexpr int Hexadecimal = 16;

std::string RegisteredLibrary(const TXmlElement& Reference, int VersionBase)
{
    const int Major = GetAttributeValueNumber("VersionMajor", Reference, VersionBase);
    const int Minor = GetAttributeValueNumber("VersionMinor", Reference, VersionBase);
    const int Lcid = GetAttributeValueNumber("Lcid", Reference, Decimal);
    return FindTypLib(Reference.Attribute("Guid"), Major, Minor, Lcid);
}

/// The library as it is spelled on disk, or empty. The index of a library among several in one file stays behind it.
std::string FindLibrary(const std::string& Registered)
{
    const std::size_t Length = Registered.size();
    const bool HasIndex = Length > 2 && Paths::IsDelimiter(Registered[Length - 2]);
    const std::string File = Registered.substr(0, HasIndex ? Length - 2 : Length);
    return QXFiles().FileExists(File) ? QXFiles().Find(File) + Registered.substr(File.size()) : "";
}
} // namespace

std::string TQXWrapperGenerator::GetTypeLib(const TXmlElement& Reference)
{
    return RegisteredLibrary(Reference, Decimal);
}

std::string TQXWrapperGenerator::LibraryName(const std::string& Name)
{
    return Name.size() > 2 && Name.starts_with("Ax") ? Name.substr(2) : Name;
}

bool TQXWrapperGenerator::GenerateInterop(const TXmlElement& Reference) const
{
    const std::string Name = Reference.Attribute("Name");
    const std::string Library = LocateLibrary(Name, Reference, Decimal);
    if (Library.empty())
        return false;
    FAction.SendMessage("Generating Interop for TypeLib : " + Library);
    const std::string Wrapper = FLoad.OutputFolder + "Interop." + Name + ".dll";
    const bool Generated = RunTool("tlbimp.exe", "",
                                   CommandLines::Quote(Library, true) + " /out:" + CommandLines::Quote(Wrapper, true) +
                                       " /nologo /silent /namespace:" + Name);
    if (Generated)
    {
        QXFiles().WillMake(Wrapper);
        TellGenerated(Wrapper);
        FAction.Project.References.push_back(Wrapper);
        FAction.SendMessage("Adding Reference : " + Wrapper);
    }
    FAction.SendMessage(".");
    return Generated;
}

bool TQXWrapperGenerator::GenerateAxInterop(const TXmlElement& Reference) const
{
    const std::string Name = LibraryName(Reference.Attribute("Name"));
    const std::string Library = LocateLibrary(Name, Reference, Hexadecimal);
    if (Library.empty())
        return false;
    FAction.SendMessage("Generating AxInterop for TypeLib : " + Library);
    // The tool writes into the folder in which it runs.
    const bool Generated =
        RunTool("aximp.exe", FLoad.OutputFolder, CommandLines::Quote(Library, true) + " /nologo /verbose");
    if (Generated)
    {
        for (const char* Prefix : {"Ax", ""})
            QXFiles().WillMake(FLoad.OutputFolder + Prefix + Name + ".dll");
        TellGenerated(Name);
    }
    FAction.SendMessage(".");
    return Generated;
}

void TQXWrapperGenerator::TellGenerated(const std::string& Name) const
{
    if (!TCustomQXAction::IsDryRun())
        FAction.SendMessage("Interop Assembly Generated : " + Name);
}

std::string TQXWrapperGenerator::LocateLibrary(const std::string& Name, const TXmlElement& Reference,
                                               int VersionBase) const
{
    FAction.SendMessage("Resolving Type Library for : " + Name);
    std::string Library = FindLibrary(RegisteredLibrary(Reference, VersionBase));
    if (Library.empty())
        FAction.SendMessage("Unable to locate Type Library for : " + Reference.Attribute("Name"));
    return Library;
}

bool TQXWrapperGenerator::RunTool(const std::string& Tool, const std::string& Folder, std::string Arguments) const
{
    if (!FLoad.KeyFile.empty())
        Arguments += " /keyfile:" + CommandLines::Quote(FLoad.KeyFile, true);
    const auto Process = CreateQXProcess();
    Process->SetExecutable(Paths::WithoutTrailing(FLoad.SDKFolder) + Paths::Delimiter() + Tool);
    Process->SetOptionD(true);
    Process->SetOptionE(true);
    Process->SetEvents(&FAction);
    if (!Folder.empty())
        Process->SetStartDirectory(Folder);
    Process->SetArguments(std::move(Arguments));
    Process->SetOptionC(true);
    if (Process->Run() == 0)
        return true;
    FAction.SendMessage("Interop Assembly Generation Failed!");
    return false;
}
