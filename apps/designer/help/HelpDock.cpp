#include "apps/designer/help/HelpDock.h"

#include "apps/designer/Images.h"
#include "apps/designer/QtText.h"
#include "host/QXServices.h"

#include <QFileInfo>
#include <QUrl>

THelpDock::THelpDock(QWidget* Parent) : QDockWidget(tr("Help"), Parent), FBrowser(new QTextBrowser)
{
    setObjectName(QStringLiteral("Help"));
    FBrowser->setOpenExternalLinks(true);
    FBrowser->setAccessibleName(tr("Help"));
    setWidget(FBrowser);
}

void THelpDock::Show(const std::string& ClassName)
{
    if (ClassName == FShown && !FShown.empty())
        return;
    FShown = ClassName;
    const TQXActionRegistration* Registration = QXActionServices().FindAction(ClassName);
    if (!Registration)
        return FBrowser->setPlainText(tr("Choose an action in the palette or in the project to read about it."));
    QString Name = ToQt(Registration->ActionClass.QuickHelpFilename);
    const QString File =
        Images::SharedFile(QStringLiteral("help/") + Name.replace(QLatin1Char('\\'), QLatin1Char('/')));
    if (QFileInfo::exists(File))
        FBrowser->setSource(QUrl::fromLocalFile(File));
    else
        FBrowser->setPlainText(
            tr("The help of \"%1\" is not installed: %2").arg(ToQt(Registration->DisplayName), File));
}
