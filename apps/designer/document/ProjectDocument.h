#pragma once

#include "apps/designer/document/TextChange.h"
#include "runtime/Project.h"

#include <QObject>
#include <QString>
#include <QTimer>
#include <QUndoStack>

#include <functional>
#include <string>
#include <vector>

/// Places of actions in a project, from 0, in rising order; -1 stands for the project as a whole.
using TPlaces = std::vector<int>;

/// A project that is being edited. What counts is its text: each step that can be undone leads from one text to
/// another, and what a step does not touch stays byte for byte.
class TProjectDocument final : public QObject
{
    Q_OBJECT

public:
    TProjectDocument();

    /// Begins an empty project without a file.
    void StartNew();
    /// Begins with a text that is to become the content of File. Throws EHostFileError.
    void Begin(const std::string& File, const std::string& Text);
    /// Throws EHostFileError; then everything stays as it is.
    void Open(const std::string& File);
    /// Writes the file. Throws EFileError.
    void Save();
    /// Goes over to another file. Throws EHostFileError if the project could not be read from there, and EFileError.
    void SaveAs(const std::string& File);
    /// Takes over what the file holds now, as a step that can be undone. Throws EHostFileError and EFileError.
    void TakeFromDisk();
    /// Whether the file holds something else than when it was read or written last.
    [[nodiscard]] bool IsOtherOnDisk() const;
    /// Takes over what included files hold now.
    void Refresh() { Restore(Text(), {}); }
    /// Counts the file as known as it is now, so that saving writes over it.
    void KeepMine();

    [[nodiscard]] const TProject& Project() const { return FProject; }
    /// The object of an action, for pages, which change it and then call Touch.
    [[nodiscard]] TProjectAction& Action(int Place) { return FProject.Actions[static_cast<std::size_t>(Place)]; }
    [[nodiscard]] int Count() const { return static_cast<int>(FProject.Actions.size()); }
    [[nodiscard]] bool HasFile() const { return !FFile.empty(); }
    [[nodiscard]] const std::string& File() const { return FFile; }
    [[nodiscard]] bool IsModified() const { return FIsTouched || !FSteps.isClean(); }
    /// Whether something was touched that is no step yet.
    [[nodiscard]] bool IsTouched() const { return FIsTouched; }
    /// The text with every change.
    [[nodiscard]] const std::string& Text();
    [[nodiscard]] QUndoStack& Steps() { return FSteps; }

    /// Changes the project in one step; Edit gives the actions that are to be selected then. If no file could hold the
    /// result, everything stays as it is, and the reason comes back.
    [[nodiscard]] QString Change(const QString& Name, const std::function<TPlaces(TProject&)>& Edit);
    /// A property of an action was changed in its object. Changes under one key that follow each other are one step.
    void Touch(int Place, const QString& Name, const QString& Key);
    /// The same for what belongs to the project as a whole; Edit changes it.
    void TouchProject(const QString& Name, const QString& Key, const std::function<void(TProject&)>& Edit);
    /// Makes a step of what was touched.
    void Flush();
    void Undo();
    void Redo();

signals:
    /// Every object of the project is another one. The places are those that the step is about.
    void Replaced(const TPlaces& Places);
    /// A step was not possible.
    void Failed(const QString& Reason);
    /// The file, whether it is modified, or an action's values changed.
    void StateChanged();

private:
    friend class TTextStep;
    void Restore(const std::string& Text, const TPlaces& Places);
    void Push(const QString& Name, const QString& Key, const std::string& Text, const TPlaces& Places);
    void Take(TProject Project, std::string File, std::string Text);

    TProject FProject;
    std::string FFile;     ///< empty: it has none yet
    std::string FText;     ///< of the last step
    std::string FDiskText; ///< of the file, as far as known
    QUndoStack FSteps;
    QTimer FTouch;
    bool FIsTouched = false;
    QString FTouchName;
    QString FTouchKey;
    int FTouchedPlace = 0;
    int FSeries = 0; ///< steps of different series do not merge
};
