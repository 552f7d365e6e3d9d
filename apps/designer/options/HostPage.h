#pragma once

#include "apps/designer/editors/TextField.h"
#include "runtime/OptionsFile.h"

#include <QCheckBox>
#include <QSpinBox>

/// The settings of the host itself, as an options file holds them.
class THostPage final : public QWidget
{
    Q_OBJECT

public:
    explicit THostPage(const TOptionsFile& File);

    /// Whether something is other than it was.
    [[nodiscard]] bool IsChanged() const;
    /// Stores what was changed. Throws EHostFileError for what no program could read again.
    void Store(TOptionsFile& File) const;

private:
    struct TValues
    {
        std::string Registry;
        std::string WindowsDir;
        int ScriptTimeout = 0;
        bool DetectDotNet = true;
        bool operator==(const TValues&) const = default;
    };
    [[nodiscard]] static TValues ValuesOf(const TOptionsFile& File);
    [[nodiscard]] TValues Values() const;
    /// Names the fields as the options file does.
    void NameFields();

    TTextField* FRegistry;
    TTextField* FWindowsDir;
    QSpinBox* FScriptTimeout;
    QCheckBox* FDetectDotNet;
    TValues FBefore;
};
