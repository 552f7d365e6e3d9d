#include "host/QXFiles.h"
#include "host/QXServices.h"
#include "host/QXUtilities.h"
#include "platform/FileTrees.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Processes.h"
#include "platform/Text.h"
#include "runtime/Runtime.h"

namespace
{
bool IsQuoted(std::string_view Text, char Quote)
{
    return Text.size() >= 2 && Text.front() == Quote && Text.back() == Quote;
}

bool IsProgram(const std::string& File)
{
    return Files::FileExists(File) && (FileTrees::Entry(File).IsExecutable || IsDotNetAssembly(File));
}
} // namespace

std::string DoubleQuoteString(std::string_view Text, bool Always)
{
    if (IsQuoted(Text, '"') || (!Always && Text.find_first_of(" \t") == std::string_view::npos))
        return std::string(Text);
    return std::string("\"").append(Text).append("\"");
}

std::string StripQuotes(std::string_view Text)
{
    const bool Enclosed = IsQuoted(Text, '"') || IsQuoted(Text, '\'');
    return std::string(Enclosed ? Text.substr(1, Text.size() - 2) : Text);
}

bool IsForeignPath(std::string_view Path)
{
    return Paths::IsForeign(Path);
}

bool MatchesFileMask(std::string_view Name, std::string_view Mask)
{
    return Files::MatchesMask(Name, Mask);
}

std::string FindProgramFile(std::string_view Program)
{
    if (Program.empty() || Paths::FileName(Program) != Program)
        return QXFiles().FileExists(Program) ? QXFiles().Find(Program) : std::string();
    for (const std::string& Folder : Environment::SearchFolders())
        if (std::string File = Folder.empty() ? Folder : Files::Find(Paths::Join(Folder, Program)); IsProgram(File))
            return File;
    return {};
}

std::string ExpandRelativePath(std::string_view Path, std::string_view Folder)
{
    // No spelling of ours would make a path on a drive mean more.
    return Paths::IsForeign(Path) ? std::string(Path) : QXFiles().Spelling(Paths::Expand(Path, Folder));
}

TStringList LoadUnicodeFile(const std::string& FileName)
{
    TStringList Lines;
    Lines.SetText(Texts::Decode(QXFiles().Read(FileName)));
    return Lines;
}

std::string GetWinDirectory()
{
    std::string Folder;
    if (NativePathStyle == TPathStyle::Windows && Environment::Get("SystemRoot", Folder))
        return Folder;
    const TOptionsFile& Options = TQXRuntime::Current().Options();
    const std::string& Configured = Options.Host().WindowsDir;
    return Configured.empty() ? Configured : Paths::Expand(Configured, Paths::Folder(Options.FileName()));
}

std::string GetSysDirectory()
{
    const std::string Windows = GetWinDirectory();
    return Windows.empty() ? Windows : Files::Spelling(Paths::Join(Windows, "system32"));
}

std::string QXShareFolder()
{
    return Paths::Expand("../share/quexley", Paths::Folder(Files::ProgramFile()));
}
