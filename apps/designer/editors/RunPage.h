#pragma once

#include "apps/designer/document/ProjectDocument.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QWidget>

/// When and how an action runs: what the host itself keeps of it.
class TRunPage final : public QWidget
{
    Q_OBJECT

public:
    explicit TRunPage(TProjectDocument& Document);
    /// Shows an action of the document.
    void Show(int Place);
    /// Goes to the field of a key of the project file; false if it has none here.
    bool Select(const QString& Key);

private:
    /// Makes a step of the change to the shown action.
    void Change(const QString& Name, const std::function<void(TProjectAction&)>& Edit);
    void ChangeText(QLineEdit& Field, const QString& Name, std::string TProjectAction::*Member);

    TProjectDocument& FDocument;
    int FPlace = -1;
    QLineEdit* FName;
    QCheckBox* FEnabled;
    QLineEdit* FGroup;
    QLineEdit* FWhen;
    QComboBox* FOnFailure;
    QSpinBox* FTimeout;
    QLineEdit* FArguments;
    QLabel* FReason;
};
