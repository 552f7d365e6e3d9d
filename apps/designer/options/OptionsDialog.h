#pragma once

#include "apps/designer/editors/PropertyGrid.h"
#include "apps/designer/options/HostPage.h"
#include "apps/designer/pages/PageTabs.h"
#include "runtime/Runtime.h"

#include <QDialog>
#include <QListWidget>
#include <QStackedWidget>

#include <memory>
#include <vector>

/// The settings of this machine: the pages of all options objects with all of their settings, and those of the host.
class TOptionsDialog final : public QDialog
{
    Q_OBJECT

public:
    TOptionsDialog(QWidget* Parent, TQXRuntime& Runtime);
    ~TOptionsDialog() override;

    /// Stores what was changed and closes; stays if that fails.
    void accept() override;
    /// Puts everything back as it was.
    void reject() override;
    [[nodiscard]] QListWidget& Names() { return *FNames; }

private:
    /// An options object with its values as they were.
    struct TEntry
    {
        const TQXOptionsRegistration* Registration = nullptr;
        TQXOptionsObject* Object = nullptr;
        std::vector<TQXPropertyValue> Before;
        std::unique_ptr<TPageTabs> Pages;
    };
    void Add(const TQXOptionsRegistration& Registration);
    void AddHost();
    [[nodiscard]] static std::vector<TQXPropertyValue> ValuesOf(const TQXOptionsObject& Object);
    void Store();

    TQXRuntime& FRuntime;
    QListWidget* FNames;
    QStackedWidget* FStack;
    std::vector<TEntry> FEntries;
    THostPage* FHost = nullptr;
};
