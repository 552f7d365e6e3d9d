#include "QXMakeArchiveAction.h"

#include "QXPathTexts.h"
#include "host/QXUtilities.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <stdexcept>

namespace
{
constexpr const char* WrongEnding = "The archive file must end in .zip, .tar.gz or .tgz";

/// What stands of a path behind a folder in which it lies, with "/"; empty if it lies elsewhere.
std::string BehindFolder(const std::string& Path, const std::string& Folder)
{
    if (Path == Folder || !IsInFolder(Path, Folder))
        return {};
    std::string Result = Path.substr(JoinPath(Folder, "").size());
    std::replace(Result.begin(), Result.end(), '\\', '/');
    return Result;
}

/// The name of a file in the archive: its path as it was found counts before the one without links.
std::string NameInArchive(const TQXSelectedFile& File, const std::string& Base, const std::string& Here)
{
    std::string Named = BehindFolder(ExpandRelativePath(File.Path, Here), ExpandRelativePath(Base, Here));
    if (!Named.empty())
        return Named;
    const std::string Folder = ExpandRelativePath(FolderOfPath(File.Path), Here);
    return BehindFolder(JoinPath(QXFiles().Resolve(Folder), File.Entry.Name), QXFiles().Resolve(Base));
}

void PackFile(TQXArchiveWriter& Writer, const std::string& Path, const TQXArchiveEntry& Entry)
{
    std::uint64_t Size = 0;
    Writer.Begin(Entry);
    if (!Entry.LinkTarget.empty())
        return;
    QXFiles().ReadPieces(Path, [&](std::string_view Bytes) {
        Size += Bytes.size();
        Writer.Write(Bytes);
    });
    if (Size != Entry.Size)
        throw std::runtime_error(Path + ": It changed while it was read");
}
} // namespace

TQXMakeArchiveAction::TQXMakeArchiveAction()
{
    Published(Files).Required("dist/*");
    Publish("BaseDir", BaseDir, "Folder from which the names in the archive count; none: the project's folder")
        .Folder();
    Publish("ArchiveFile", ArchiveFile, "The archive: a file that ends in .zip, .tar.gz or .tgz")
        .File()
        .Required("acme.zip");
}

bool TQXMakeArchiveAction::Validate(IQXActionValidationError& Errors)
{
    const bool HasFiles = TQXFileAction::Validate(Errors);
    if (!Require(Errors, !ArchiveFile.empty(), "Archive File", "The archive file has not been set"))
        return false;
    // A variable at the end may hold an ending.
    const bool HasEnding = ArchiveFormatOf(ArchiveFile) || ArchiveFile.ends_with('%');
    return Require(Errors, HasEnding, "Archive File", WrongEnding) && HasFiles;
}

bool TQXMakeArchiveAction::Execute()
{
    std::vector<std::string> Items;
    std::string Base;
    std::string File;
    if (!ExpandFiles(Items) || !ExpandPaths(Base, File))
        return false;
    TQXFileSelection Selection = MakeSelection({.RecurseFolders = true,
                                                .TakeFolders = true,
                                                .Links = TQXFolderLinks::FollowNamed,
                                                .LeaveOut = QXFiles().Resolve(File)});
    TContent Content;
    if (!SelectAll(Items, Selection) || !NameAll(Selection, Base, Content))
        return false;
    if (const std::string Folder = FolderOfPath(File); !Folder.empty() && !QXFiles().ForceFolders(Folder))
    {
        SendMessage("Error - The folder could not be made : " + Folder);
        return false;
    }
    SendMessage((IsDryRun() ? "Would make " : "Making ") + File + " with " + CountOf(Content.size()));
    if (!IsDryRun())
        return Try("Error - " + File + " could not be made", [&] { WriteArchive(File, Content); });
    QXFiles().WillMake(File);
    return true;
}

bool TQXMakeArchiveAction::ExpandPaths(std::string& Base, std::string& File) const
{
    if (!TryExpandExpression("Base Directory", BaseDir, Base, false) ||
        !ExpandTarget("Archive File", ArchiveFile, File))
        return false;
    Base = Base.empty() ? "." : QXFiles().Spelling(Base);
    File = QXFiles().Spelling(File);
    if (!ArchiveFormatOf(File))
        SendMessage("Error - " + std::string(WrongEnding) + " : " + File);
    return ArchiveFormatOf(File).has_value();
}

bool TQXMakeArchiveAction::NameAll(const TQXFileSelection& Selection, const std::string& Base, TContent& Content) const
{
    const std::string Here = QXFiles().Resolve(".");
    for (const TQXSelectedFile& File : Selection.Files())
    {
        if (File.IsFolder())
            continue;
        if (File.Entry.Kind == TQXFileKind::Other && !File.Entry.IsLink)
        {
            SendMessage("Left out " + File.Path + " : it is no ordinary file");
            continue;
        }
        const std::string Name = NameInArchive(File, Base, Here);
        if (Name.empty())
        {
            SendMessage("Error - This lies outside of the base directory " + Base + " : " + File.Path);
            return false;
        }
        Content.emplace(Name, &File);
    }
    const bool HasFiles = !Content.empty() || !QXFiles().IsComplete();
    if (!HasFiles)
        SendMessage("Error - There are no files for the archive");
    return HasFiles;
}

void TQXMakeArchiveAction::WriteArchive(const std::string& File, const TContent& Content) const
{
    constexpr std::int64_t NanosecondsInSecond = 1'000'000'000;
    const std::int64_t Latest = LatestTime();
    const std::unique_ptr<IQXNewFile> Target = QXFiles().Replace(File);
    TQXArchiveWriter Writer(*ArchiveFormatOf(File), *Target);
    for (const auto& [Name, Source] : Content)
    {
        const TQXFileEntry Entry = QXFiles().Entry(Source->Path);
        PackFile(Writer, Source->Path,
                 {Name, Entry.LinkTarget, Entry.IsExecutable, Entry.Size,
                  std::min(Entry.Changed / NanosecondsInSecond, Latest)});
    }
    Writer.Finish();
    Target->Finish();
}

/// No time in the archive is later than this variable says, if it is set: so builds of one source that ran at different
/// times make the same archive. It is what many build tools agree on.
std::int64_t TQXMakeArchiveAction::LatestTime() const
{
    std::int64_t Result = std::numeric_limits<std::int64_t>::max();
    const std::string Text = ExpandExpression("%SOURCE_DATE_EPOCH%", false);
    static_cast<void>(std::from_chars(Text.data(), Text.data() + Text.size(), Result));
    return Result;
}
