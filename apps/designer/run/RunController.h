#pragma once

#include "apps/designer/actions/ActionList.h"
#include "apps/designer/document/ProjectDocument.h"
#include "apps/designer/run/ProblemList.h"
#include "apps/designer/run/RunPanel.h"
#include "apps/designer/run/RunProcess.h"
#include "apps/shared/HostSetup.h"

#include <QObject>

/// Runs and validates the project, and shows what comes of it.
class TRunController final : public QObject
{
    Q_OBJECT

public:
    /// Files are those that the designer itself works with; the runs do, too.
    TRunController(TProjectDocument& Document, TActionList& List, TRunPanel& Panel, TProblemList& Problems,
                   const THostFiles& Files);

    enum class TKind { Run, DryRun };
    enum class TScope { All, FromCurrent, Selected };
    /// Starts a run of the file; it holds the project as it is shown.
    void Start(TKind Kind, TScope Scope);
    void Stop() { FProcess.Stop(); }
    [[nodiscard]] bool IsRunning() const { return FProcess.IsRunning(); }
    /// Finds problems in the project as it is shown; gives how many.
    int Validate();

signals:
    /// A run began or ended.
    void StateChanged();

private:
    [[nodiscard]] QStringList Words(TKind Kind, TScope Scope) const;
    void Take(const TRunUpdate& Update);

    TProjectDocument& FDocument;
    TActionList& FList;
    TRunPanel& FPanel;
    TProblemList& FProblems;
    QStringList FHostWords;
    TRunProcess FProcess;
};
