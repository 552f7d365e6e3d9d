#include "package/sourceupdate/QXDotNetComRefAction.h"

#include "host/QXFiles.h"
#include "package/plugin/QXActionHelpers.h"
#include "package/sourceupdate/QXTypeLibrarySearch.h"
#include "platform/FileRewrite.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "platform/Xml.h"
#include "platform/XmlEdit.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <utility>

namespace
{
constexpr std::pair<std::string_view, std::string_view> ProjectTypes[] = {
    {".csproj", "/VisualStudioProject/CSHARP/Build/References/Reference[@Name='%s' and @WrapperTool='tlbimp']"},
    {".vbproj", "/VisualStudioProject/VisualBasic/Build/References/Reference[@Name='%s' and @WrapperTool='tlbimp']"},
    {".vjsproj", "/VisualStudioProject/VISUALJSHARP/Build/References/Reference[@Name='%s' and @WrapperTool='tlbimp']"},
};

constexpr std::string_view BigEndianMark = "\xFE\xFF";

/// The bytes of a text that was UTF-16 with this mark, or, without one, is edited as it is.
std::string Encode(const std::string& Markup, const std::string& Mark)
{
    return Mark.empty() ? Markup : Mark + Texts::ToUtf16(Markup, Mark == BigEndianMark);
}

/// Sets attributes of a reference in a project file and keeps the rest of the file to the byte.
class TReferenceUpdate
{
public:
    TReferenceUpdate(const TCustomQXAction& Action, const std::string& FileName, const std::string& Name)
        : FAction(Action), FFileName(FileName), FName(Name)
    {}

    [[nodiscard]] bool Run(const TTypeLibrary& Library)
    {
        if (!Load())
            return false;
        const std::string Path = Texts::Replace(ProjectTypeFromFileExt(FFileName), "%s", FName);
        const auto Reference = FDocument.DocumentElement().SelectNode(Path);
        if (!Reference)
            return Fail("Unable to locate reference in project file!");
        const std::vector<TXmlAttribute> Changes = FindChanges(*Reference, Library);
        if (!Changes.empty() && !Edit(*Reference, Changes))
            return false;
        if (TCustomQXAction::IsDryRun())
        {
            TellChanges(*Reference, Changes);
            QXFiles().WillMake(FFileName, Encode(FMarkup, FMark));
            return true;
        }
        if (!Changes.empty())
            FFile->Replace(std::array<std::string_view, 1>{Encode(FMarkup, FMark)});
        FAction.SendMessage("Project Reference for " + FName + " Updated OK.");
        return true;
    }

private:
    [[nodiscard]] bool Fail(const std::string& Message) const
    {
        FAction.SendMessage(Message);
        return false;
    }

    [[nodiscard]] bool FailLoading(const std::string& Reason) const
    {
        FAction.SendMessage("Error Loading project file");
        return Fail(Reason);
    }

    [[nodiscard]] bool Load()
    {
        try
        {
            FFile.emplace(FFileName);
            FBytes = TCustomQXAction::IsDryRun() ? QXFiles().Read(FFileName) : std::string(FFile->Bytes());
        }
        catch (const EFileError& Error)
        {
            return FailLoading(Error.Reason);
        }
        FMarkup = FBytes;
        if (Texts::ForeignEncoding(FMarkup) == "UTF-16")
        {
            FMark = FMarkup.substr(0, BigEndianMark.size());
            FMarkup = Texts::FromUtf16(std::string_view(FBytes).substr(FMark.size()), FMark == BigEndianMark);
        }
        if (const std::string Foreign(Texts::ForeignEncoding(FMarkup)); !Foreign.empty())
            return Fail("Cannot update project file, it holds " + Foreign +
                        ", only UTF-8, UTF-16 and 8-bit text can be updated : " + FFileName);
        return FDocument.LoadFromProject(FMarkup) || FailLoading(FDocument.ParseError().Reason);
    }

    [[nodiscard]] static std::vector<TXmlAttribute> FindChanges(const TXmlElement& Reference,
                                                                const TTypeLibrary& Library)
    {
        const TXmlAttribute Wanted[] = {{"Guid", Library.Guid},
                                        {"VersionMajor", std::to_string(Library.Version.Major)},
                                        {"VersionMinor", std::to_string(Library.Version.Minor)}};
        std::vector<TXmlAttribute> Result;
        std::copy_if(std::begin(Wanted), std::end(Wanted), std::back_inserter(Result), [&](const TXmlAttribute& Item) {
            return !Reference.HasAttribute(Item.Name) || Reference.Attribute(Item.Name) != Item.Value;
        });
        return Result;
    }

    /// Changes the text. It is looked at with the parser again: it knows encodings that an edit of bytes damages.
    [[nodiscard]] bool Edit(const TXmlElement& Reference, const std::vector<TXmlAttribute>& Changes)
    {
        const std::size_t Number = Reference.Number();
        std::optional<std::string> Edited = SetXmlAttributes(FMarkup, Number, Changes);
        if (!Edited || !Holds(*Edited, Number, Changes) || Encode(FMarkup, FMark) != FBytes)
            return Fail("Cannot update project file, its encoding or layout is not understood : " + FFileName);
        FMarkup = *std::move(Edited);
        return true;
    }

    [[nodiscard]] static bool Holds(const std::string& Markup, std::size_t Number,
                                    const std::vector<TXmlAttribute>& Attributes)
    {
        TXmlDocument Document;
        if (!Document.LoadFromProject(Markup))
            return false;
        const std::vector<TXmlElement> Elements = Document.DocumentElement().SelectNodes("//*");
        return Number < Elements.size() &&
               std::all_of(Attributes.begin(), Attributes.end(), [&](const TXmlAttribute& Item) {
                   return Elements[Number].Attribute(Item.Name) == Item.Value;
               });
    }

    [[nodiscard]] std::string Announce(const TXmlElement& Reference, const TXmlAttribute& Change) const
    {
        const bool IsNew = !Reference.HasAttribute(Change.Name);
        const std::string Place = Change.Name + (IsNew ? " to" : " of") + " reference \"" + FName + "\" : ";
        const std::string Value = '"' + Change.Value + '"';
        return IsNew ? "Would add " + Place + Value
                     : "Would set " + Place + '"' + Reference.Attribute(Change.Name) + "\" -> " + Value;
    }

    void TellChanges(const TXmlElement& Reference, const std::vector<TXmlAttribute>& Changes) const
    {
        for (const TXmlAttribute& Change : Changes)
            FAction.SendMessage(Announce(Reference, Change));
        FAction.SendMessage("Project Reference for " + FName +
                            (Changes.empty() ? " is up to date." : " would be updated; nothing was written."));
    }

    const TCustomQXAction& FAction;
    const std::string& FFileName;
    const std::string& FName;
    std::optional<TFileRewrite> FFile;
    std::string FBytes;  ///< as they are, or in a dry run would be by now
    std::string FMarkup; ///< in UTF-8 or an encoding in which ASCII characters stand for themselves
    std::string FMark;   ///< of UTF-16
    TXmlDocument FDocument;
};
} // namespace

std::string ProjectTypeFromFileExt(std::string_view FileName)
{
    const std::string Extension = Texts::Lower(Paths::Extension(FileName));
    const auto* Found = std::find_if(std::begin(ProjectTypes), std::end(ProjectTypes),
                                     [&](const auto& Row) { return Row.first == Extension; });
    return Found == std::end(ProjectTypes) ? "" : std::string(Found->second);
}

TQXDotNetComReferenceFixAction::TQXDotNetComReferenceFixAction()
{
    Publish("ProgID", ProgID, "The COM class whose type library the project refers to").Expression();
    Publish("ReferenceName", ReferenceName, "Name of the reference in the project file").Expression();
    Publish("ProjectFile", ProjectFile, "The project file to update").File();
}

bool TQXDotNetComReferenceFixAction::Execute()
{
    std::string ID;
    std::string Name;
    std::string FileName;
    if (!ExpandRequired(
            *this,
            {{"ProgID", ProgID, ID}, {"ReferenceName", ReferenceName, Name}, {"ProjectFile", ProjectFile, FileName}}) ||
        !CheckProjectFile(FileName))
        return false;
    const auto Library = TTypeLibrarySearch(*this, ID).Run();
    if (!Library)
        return false;
    SendMessage("Found TypeLib information, updating project reference..");
    return TReferenceUpdate(*this, FileName, Name).Run(*Library);
}

bool TQXDotNetComReferenceFixAction::CheckProjectFile(const std::string& FileName) const
{
    if (ProjectTypeFromFileExt(FileName).empty())
        SendMessage("Project type is not supported by this action!");
    else if (Files::IsReadOnly(FileName))
        SendMessage("Cannot update project file, file is read only");
    else if (!QXFiles().FileExists(FileName))
        SendMessage("Project file not found : " + FileName);
    else
        return true;
    return false;
}
