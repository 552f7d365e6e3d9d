// Controls that are lists of lines.
#pragma once

#include "apps/designer/pages/ControlView.h"
#include "apps/designer/pages/LowView.h"
#include "runtime/forms/PageUser.h"

#include <QTreeWidget>

#include <string>

/// A list that passes keys on before it takes them itself.
class TKeyList final : public TLowView<QTreeWidget>
{
    Q_OBJECT

public:
    TKeyList();
    /// Gives whether the key, as in "Ctrl+Del", meant something.
    std::function<bool(const std::string& Key)> OnKey;
    [[nodiscard]] TQXIndices Rows() const; ///< that are selected
    void SelectRows(const TQXIndices& Rows);

protected:
    void keyPressEvent(QKeyEvent* Event) override;
};

class TListBoxView final : public TControlView
{
public:
    TListBoxView(TListBox& List, TPageUser& User);
    QWidget& Widget() override { return *FList; }
    void Show() override;

private:
    TListBox& FModel;
    TKeyList* FList;
};

class TListViewView final : public TControlView
{
public:
    TListViewView(TListView& List, TPageUser& User);
    QWidget& Widget() override { return *FList; }
    void Show() override;

private:
    TListView& FModel;
    TKeyList* FList;
};

class TCheckListView final : public TControlView
{
public:
    TCheckListView(TCheckList& List, TPageUser& User);
    QWidget& Widget() override { return *FList; }
    void Show() override;

private:
    TCheckList& FModel;
    TKeyList* FList;
};
