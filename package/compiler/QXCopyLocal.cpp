#include "package/compiler/QXCopyLocal.h"

#include "host/QXFiles.h"
#include "package/compiler/QXCultures.h"
#include "package/compiler/QXReferencePlaces.h"
#include "platform/AssemblyMetadata.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>
#include <optional>
#include <stdexcept>

namespace
{
/// Assemblies with the keys of these are the framework's in whatever version.
constexpr std::string_view FrameworkOwners[] = {"mscorlib.dll", "System.Drawing.dll"};

/// The bytes of a file; none where a dry run does not know them.
std::optional<std::string> TryRead(const std::string& Path)
try
{
    return QXFiles().Read(Path);
}
catch (const std::runtime_error&)
{
    return std::nullopt;
}

std::optional<TAssemblyMetadata> TryReadMetadata(const std::string& Path)
{
    const std::optional<std::string> Bytes = TryRead(Path);
    return Bytes ? ReadAssemblyMetadata(*Bytes) : std::nullopt;
}

bool AreSame(const std::string& Left, const std::string& Right)
{
    if (!QXFiles().FileExists(Right))
        return false;
    if (QXFiles().Find(Left) == QXFiles().Find(Right))
        return true;
    const std::optional<std::string> Bytes = TryRead(Left);
    return Bytes && Bytes == TryRead(Right);
}
} // namespace

bool CopyBesideOutput(const TCustomQXAction& Action, const std::string& From, const std::string& To)
{
    // Programs look for it by its exact name.
    const bool HasOtherName = Paths::FileName(QXFiles().Spelling(To)) != Paths::FileName(To);
    if (!HasOtherName && AreSame(From, To))
        return true;
    // A dry run says it in its own words.
    if (!TCustomQXAction::IsDryRun())
        Action.SendMessage("Copying : " + From + " to " + To);
    const bool Copied = (!HasOtherName || QXFiles().Delete(To)) && QXFiles().Copy(From, To);
    if (!Copied)
        Action.SendMessage("Unable to copy : " + From + " to " + To);
    return Copied;
}

void TQXCopyLocal::Note(const std::string& Path, bool IsListed)
{
    if (FNames.insert(Texts::FoldCase(Paths::FileName(Path))).second)
        FAssemblies.push_back({Path, IsListed});
}

bool TQXCopyLocal::Copy()
{
    for (std::size_t Index = 0; Index < FAssemblies.size(); ++Index)
    {
        const TAssembly Assembly = FAssemblies[Index];
        // An older output of the project beside a library is not to take the place of the new one.
        if (Texts::Same(Paths::FileName(Assembly.Path), Paths::FileName(FAction.OutputFile)) ||
            IsOfFramework(Assembly.Path))
            continue;
        if (!CopyAssembly(Assembly))
            return false;
        AddNeeded(Assembly.Path);
    }
    return true;
}

bool TQXCopyLocal::CopyAssembly(const TAssembly& Assembly) const
{
    const std::string& Path = Assembly.Path;
    if (!Assembly.IsListed && IsNewerThere(Path))
        return true;
    const std::string Parts[] = {Path, Paths::ChangeExtension(Path, ".pdb"), Path + ".mdb",
                                 Paths::ChangeExtension(Path, ".xml"), Path + ".config"};
    return std::all_of(std::begin(Parts), std::end(Parts),
                       [this](const std::string& File) { return CopyFile(File, FLoad.OutputFolder); }) &&
           CopySatellites(Path);
}

bool TQXCopyLocal::CopyFile(const std::string& Path, const std::string& Folder) const
{
    const std::string Found = QXFiles().FileExists(Path) ? QXFiles().Find(Path) : "";
    return Found.empty() || CopyBesideOutput(FAction, Found, Folder + Paths::FileName(Found));
}

bool TQXCopyLocal::CopySatellites(const std::string& Path) const
{
    const std::string Name = Paths::BareName(Path) + ".resources.dll";
    const std::string Folder = Paths::Folder(Path);
    for (const std::string& Culture : Files::Enumerate(Folder, "*", Files::TEntryKind::Folders))
    {
        const std::string Satellite = Paths::Join(Paths::Join(Folder, Culture), Name);
        if (CultureOf("x." + Culture + ".resx").empty() || !QXFiles().FileExists(Satellite))
            continue;
        const std::string Target = FLoad.OutputFolder + Culture + Paths::Delimiter();
        // The copy fails, and says so, where no folder can be made.
        static_cast<void>(QXFiles().ForceFolders(Target));
        if (!CopyFile(Satellite, Target))
            return false;
    }
    return true;
}

bool TQXCopyLocal::IsNewerThere(const std::string& Path) const
{
    const std::string Target = FLoad.OutputFolder + Paths::FileName(Path);
    if (Files::ChangeTime(Target) <= Files::ChangeTime(Path) || AreSame(Path, Target))
        return false;
    FAction.SendMessage("Kept : " + Target + ", which is newer than " + Path);
    return true;
}

void TQXCopyLocal::AddNeeded(const std::string& Path)
{
    const auto Metadata = TryReadMetadata(Path);
    if (!Metadata)
        return;
    std::vector<std::string> Folders = LibraryFolders(FAction, FLoad);
    Folders.insert(Folders.begin(), Paths::Folder(Path));
    for (const std::string& Name : Metadata->References)
        for (const char* Extension : {".dll", ".exe"})
            // Names of assemblies lead nowhere else.
            if (const std::string Found = Paths::FileName(Name) == Name ? FindIn(Folders, Name + Extension) : "";
                !Found.empty())
                Note(Found, false);
}

bool TQXCopyLocal::IsOfFramework(const std::string& Path) const
{
    const std::string Framework = Paths::WithTrailing(FAction.GetFrameWorkPath());
    const std::string Own = QXFiles().Find(Framework + Paths::FileName(Path));
    if (Framework.empty() || Own.empty() || Own == QXFiles().Find(Path))
        return !Own.empty();
    const auto Metadata = TryReadMetadata(Path);
    const auto OwnMetadata = Metadata && !Metadata->PublicKey.empty() ? TryReadMetadata(Own) : std::nullopt;
    if (!OwnMetadata || OwnMetadata->PublicKey != Metadata->PublicKey)
        return false;
    const auto IsOwner = [&](std::string_view Owner) {
        const auto OwnerMetadata = TryReadMetadata(Framework + std::string(Owner));
        return OwnerMetadata && OwnerMetadata->PublicKey == Metadata->PublicKey;
    };
    return OwnMetadata->Version == Metadata->Version ||
           std::any_of(std::begin(FrameworkOwners), std::end(FrameworkOwners), IsOwner);
}
