#include "apps/designer/run/RunController.h"

#include "apps/designer/QtText.h"
#include "apps/designer/run/Validation.h"

#include <QCoreApplication>

TRunController::TRunController(TProjectDocument& Document, TActionList& List, TRunPanel& Panel, TProblemList& Problems,
                               const THostFiles& Files)
    : FDocument(Document), FList(List), FPanel(Panel), FProblems(Problems)
{
    const auto AddFile = [this](const char* Option, const std::string& File) {
        if (!File.empty())
            FHostWords << QString::fromLatin1(Option) << ToQt(File);
    };
    AddFile("--options", Files.OptionsFile);
    AddFile("--registry", Files.RegistryFile);
    for (const std::string& Package : Files.PackageFiles)
        AddFile("--package", Package);
    connect(&FProcess, &TRunProcess::Updated, this, &TRunController::Take);
    connect(&FProcess, &TRunProcess::Ended, this, [this](const QString& Reason) {
        FPanel.End(Reason);
        FList.Model().EndRunning(); // a run that was ended by force tells of no end
        emit StateChanged();
    });
}

QStringList TRunController::Words(TKind Kind, TScope Scope) const
{
    QStringList Words{QStringLiteral("run"), QStringLiteral("--format"), QStringLiteral("json")};
    if (Kind == TKind::DryRun)
        Words << QStringLiteral("--dry-run");
    if (Scope == TScope::FromCurrent && FList.Current() >= 0)
        Words << QStringLiteral("--from") << QString::number(FList.Current() + 1);
    if (Scope == TScope::Selected)
        for (const int Place : FList.Selected())
            Words << QStringLiteral("--only") << QString::number(Place + 1);
    return Words + FHostWords << ToQt(FDocument.File());
}

void TRunController::Start(TKind Kind, TScope Scope)
{
    if (IsRunning())
        return;
    FList.Model().ClearStates();
    FProblems.Clear();
    FPanel.Begin();
    FProcess.Start(QCoreApplication::applicationDirPath() + QStringLiteral("/quexley"), Words(Kind, Scope));
    emit StateChanged();
}

void TRunController::Take(const TRunUpdate& Update)
{
    FPanel.Take(Update);
    for (const auto& [Number, State] : Update.States)
        FList.Model().SetState(Number - 1, State);
    if (!Update.Problems.empty())
        FProblems.Add(Update.Problems);
}

int TRunController::Validate()
{
    const std::vector<TProblem> Problems = FindProblems(FDocument.Project().File, FDocument.Text());
    FProblems.Clear();
    FProblems.Add(Problems);
    return static_cast<int>(Problems.size());
}
