#include "apps/designer/Images.h"

#include "apps/designer/QtText.h"

#include <QApplication>
#include <QCoreApplication>
#include <QFileInfo>
#include <QStyle>

namespace Images
{
QString SharedFile(const QString& Name)
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/../share/quexley/") + Name;
}

QIcon Find(std::string_view Name)
{
    const QString File = SharedFile(QStringLiteral("images/%1.png").arg(ToQt(Name)));
    return QFileInfo::exists(File) ? QIcon(File) : QApplication::style()->standardIcon(QStyle::SP_FileIcon);
}
} // namespace Images
