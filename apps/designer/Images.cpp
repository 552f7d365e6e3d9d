#include "apps/designer/Images.h"

#include "apps/designer/QtText.h"
#include "host/QXUtilities.h"
#include "platform/Files.h"

#include <QApplication>
#include <QFileInfo>
#include <QStyle>

namespace Images
{
QString SharedFile(const QString& Name)
{
    const std::string File = QXShareFolder() + "/" + FromQt(Name);
    const std::string Found = Files::Find(File);
    return ToQt(Found.empty() ? File : Found);
}

QIcon Find(std::string_view Name)
{
    const QString File = SharedFile(QStringLiteral("images/%1.png").arg(ToQt(Name)));
    if (QFileInfo::exists(File))
    {
        QIcon Icon(File);
        Icon.addFile(File, {}, QIcon::Selected); // as it is: a tint would swallow it
        return Icon;
    }
    return QApplication::style()->standardIcon(QStyle::SP_FileIcon);
}
} // namespace Images
