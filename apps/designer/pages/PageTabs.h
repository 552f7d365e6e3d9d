#pragma once

#include "apps/designer/pages/SurfaceView.h"
#include "runtime/forms/PageSet.h"
#include "runtime/forms/PageUser.h"

#include <QObject>
#include <QTabWidget>

#include <memory>
#include <vector>

/// The pages of one action or options object, as the first tabs of a tab widget. It goes before its object does, and
/// takes its tabs along.
class TPageTabs final : public QObject
{
    Q_OBJECT

public:
    TPageTabs(QTabWidget& Tabs, TCustomQXAction& Action, std::span<const TQXPageClass> Classes, const TShorten& Shorten,
              bool IsReadOnly);
    TPageTabs(QTabWidget& Tabs, TQXOptionsObject& Options, std::span<const TQXPageClass> Classes);
    ~TPageTabs() override;

    [[nodiscard]] int Count() const { return static_cast<int>(FViews.size()); }
    [[nodiscard]] TSurfaceView& View(int Page) { return *FViews[static_cast<std::size_t>(Page)]; }
    [[nodiscard]] TPageSet& Set() { return *FSet; }
    /// The object was changed elsewhere.
    void Read();
    /// A page came to the front.
    void Activate(int Page);
    /// Goes to the field that users know by this name; false if there is none.
    bool Find(const QString& Label);
    /// Where the keyboard is: the name of a control, empty if it is on no page.
    [[nodiscard]] QString FocusedControl() const;
    void Focus(const QString& Control);

signals:
    /// The user changed something, and the object has it.
    void Changed(const QString& Control);

private:
    void Fill(const TShorten& Shorten, bool IsReadOnly);
    void OrderFocus();
    void AfterAct();
    [[nodiscard]] bool IsKnownAs(const TPage& Page, const TControl& Control, const QString& Label) const;

    QTabWidget& FTabs;
    const TQXPersistent& FObject;
    std::unique_ptr<TPageSet> FSet;
    TPageUser FUser;
    std::vector<TSurfaceView*> FViews;
};
