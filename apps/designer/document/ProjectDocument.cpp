#include "apps/designer/document/ProjectDocument.h"

#include "apps/designer/QtText.h"
#include "platform/Files.h"
#include "platform/Paths.h"

#include <QUndoCommand>

#include <memory>
#include <utility>

namespace
{
constexpr int TypingPause = 400; // milliseconds after which what was typed becomes a step

/// Where a project without a file would lie.
std::string NameOfNew()
{
    return Paths::Join(Files::CurrentFolder(), "quexley.toml");
}
} // namespace

/// A step from one text of a document to another.
class TTextStep final : public QUndoCommand
{
public:
    TTextStep(TProjectDocument& Document, const QString& Name, QString Key, TTextChange Change, TPlaces Places)
        : QUndoCommand(Name), FDocument(Document), FKey(std::move(Key)), FChange(std::move(Change)),
          FPlaces(std::move(Places))
    {}

    int id() const override { return FKey.isEmpty() ? -1 : 1; }
    void undo() override { FDocument.Restore(FChange.Undone(FDocument.FText), FPlaces); }
    /// The document has done it by itself before the step was made.
    void redo() override
    {
        if (std::exchange(FIsDone, true))
            FDocument.Restore(FChange.Done(FDocument.FText), FPlaces);
    }
    bool mergeWith(const QUndoCommand* Other) override
    {
        const auto& Next = static_cast<const TTextStep&>(*Other);
        if (Next.FKey != FKey)
            return false;
        const std::string Between = Next.FChange.Undone(FDocument.FText);
        FChange = TTextChange::Between(FChange.Undone(Between), FDocument.FText);
        setObsolete(FChange.Removed.empty() && FChange.Inserted.empty());
        return true;
    }

private:
    TProjectDocument& FDocument;
    QString FKey;
    TTextChange FChange;
    TPlaces FPlaces;
    bool FIsDone = false;
};

TProjectDocument::TProjectDocument()
{
    FTouch.setSingleShot(true);
    FTouch.setInterval(TypingPause);
    connect(&FTouch, &QTimer::timeout, this, &TProjectDocument::Flush);
    connect(&FSteps, &QUndoStack::cleanChanged, this, &TProjectDocument::StateChanged);
    StartNew();
}

void TProjectDocument::Take(TProject Project, std::string File, std::string Text)
{
    FTouch.stop();
    FIsTouched = false;
    FProject = std::move(Project);
    FFile = std::move(File);
    FText = Text;
    FDiskText = std::move(Text);
    emit Replaced({});
    FSteps.clear();
    emit StateChanged();
}

void TProjectDocument::StartNew()
{
    Take(TProject::Parse(NameOfNew(), {}), {}, {});
}

void TProjectDocument::Begin(const std::string& File, const std::string& Text)
{
    TProject Project = TProject::Parse(File, Text);
    std::string Path = Project.File;
    Take(std::move(Project), std::move(Path), Text);
    FDiskText.clear();
    FSteps.resetClean();
    emit StateChanged();
}

void TProjectDocument::Open(const std::string& File)
{
    TProject Project = TProject::Load(File);
    std::string Path = Project.File;
    std::string Text = Project.ToText();
    Take(TProject::Parse(Path, Text), Path, Text);
}

void TProjectDocument::Save()
{
    Flush();
    Files::ReplaceContent(FFile, FText);
    FDiskText = FText;
    FSteps.setClean();
    emit StateChanged();
}

void TProjectDocument::SaveAs(const std::string& File)
{
    Flush();
    TProject There = TProject::Parse(File, FText);
    Files::ReplaceContent(File, FText);
    FProject = std::move(There);
    FFile = FProject.File;
    FDiskText = FText;
    FSteps.setClean();
    emit Replaced({});
    emit StateChanged();
}

void TProjectDocument::TakeFromDisk()
{
    Flush();
    const std::string Text = Files::Read(FFile);
    FProject = TProject::Parse(FFile, Text);
    FDiskText = Text;
    emit Replaced({});
    Push(tr("Reload"), {}, Text, {});
    FSteps.setClean();
    emit StateChanged();
}

bool TProjectDocument::IsOtherOnDisk() const
{
    try
    {
        return HasFile() && Files::Read(FFile) != FDiskText;
    }
    catch (const EFileError&)
    {
        return !FDiskText.empty(); // it is gone, or nobody may read it any more
    }
}

void TProjectDocument::KeepMine()
{
    Flush();
    try
    {
        FDiskText = Files::Read(FFile);
    }
    catch (const EFileError&)
    {
        FDiskText.clear();
    }
    if (FDiskText != FText)
        FSteps.resetClean();
    emit StateChanged();
}

const std::string& TProjectDocument::Text()
{
    Flush();
    return FText;
}

QString TProjectDocument::Change(const QString& Name, const std::function<TPlaces(TProject&)>& Edit)
try
{
    Flush();
    ++FSeries;
    const TPlaces Places = Edit(FProject);
    const std::string Text = FProject.ToText();
    if (Text == FText)
        return {};
    FProject = TProject::Parse(FProject.File, Text);
    emit Replaced(Places); // before the step tells of itself: whoever hears of it looks at the new project
    Push(Name, {}, Text, Places);
    return {};
}
catch (const EHostFileError& Error)
{
    QString Reason = ToQt(Error.Findings().front().Message);
    Restore(FText, {});
    return Reason;
}

void TProjectDocument::Touch(int Place, const QString& Name, const QString& Key)
{
    const QString Series = QStringLiteral("%1/%2/%3").arg(FSeries).arg(Place).arg(Key);
    if (Series != FTouchKey)
        Flush();
    FTouchName = Name;
    FTouchKey = Series;
    FTouchedPlace = Place;
    FTouch.start();
    if (!std::exchange(FIsTouched, true))
        emit StateChanged();
}

void TProjectDocument::TouchProject(const QString& Name, const QString& Key, const std::function<void(TProject&)>& Edit)
{
    Edit(FProject);
    Touch(-1, Name, Key);
}

void TProjectDocument::Flush()
{
    if (!std::exchange(FIsTouched, false))
        return;
    FTouch.stop();
    Push(FTouchName, FTouchKey, FProject.ToText(), {FTouchedPlace});
    emit StateChanged();
}

void TProjectDocument::Push(const QString& Name, const QString& Key, const std::string& Text, const TPlaces& Places)
{
    if (Text == FText)
        return;
    auto Step = std::make_unique<TTextStep>(*this, Name, Key, TTextChange::Between(FText, Text), Places);
    FText = Text;
    FSteps.push(Step.release());
}

void TProjectDocument::Restore(const std::string& Text, const TPlaces& Places)
try
{
    ++FSeries;
    FProject = TProject::Parse(FProject.File, Text);
    FText = Text;
    emit Replaced(Places);
}
catch (const EHostFileError& Error)
{
    // A file that the project includes has become another one meanwhile.
    FText = Text;
    emit Failed(ToQt(Error.what()));
}

void TProjectDocument::Undo()
{
    Flush();
    FSteps.undo();
}

void TProjectDocument::Redo()
{
    Flush();
    FSteps.redo();
}
