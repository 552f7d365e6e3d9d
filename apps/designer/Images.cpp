#include "apps/designer/Images.h"

#include "apps/designer/QtText.h"
#include "host/QXUtilities.h"
#include "platform/Files.h"

#include <QApplication>
#include <QFileInfo>
#include <QHash>
#include <QPainter>
#include <QStyle>

namespace
{
using TIcons = QHash<QByteArray, QIcon>;

/// Images that were loaded, as long as the program shows any.
TIcons& Known()
{
    static TIcons Icons;
    [[maybe_unused]] static const bool IsEmptied = (qAddPostRoutine([] { Known().clear(); }), true);
    return Icons;
}

/// On a selected row an image stands on ground of its own, or its colours would be lost on that of the row.
void AddSelected(QIcon& Icon)
{
    constexpr QSize Size(16, 16);
    for (const qreal Scale : {1.0, 2.0})
    {
        const QPixmap Image = Icon.pixmap(Size, Scale);
        QPixmap Plate(Image.size());
        Plate.setDevicePixelRatio(Image.devicePixelRatio());
        Plate.fill(Qt::transparent);
        QPainter Painter(&Plate);
        Painter.setRenderHint(QPainter::Antialiasing);
        Painter.setPen(Qt::NoPen);
        Painter.setBrush(Qt::white);
        Painter.drawRoundedRect(QRectF({}, Size), 3, 3);
        Painter.drawPixmap(0, 0, Image);
        Painter.end();
        Icon.addPixmap(Plate, QIcon::Selected);
    }
}

QIcon Load(std::string_view Name)
{
    const QString File = Images::SharedFile(QStringLiteral("images/%1.png").arg(ToQt(Name)));
    if (!QFileInfo::exists(File))
        return QApplication::style()->standardIcon(QStyle::SP_FileIcon);
    QIcon Icon(File);
    AddSelected(Icon);
    return Icon;
}
} // namespace

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
    QIcon& Icon = Known()[QByteArray(Name.data(), static_cast<qsizetype>(Name.size()))];
    if (Icon.isNull())
        Icon = Load(Name);
    return Icon;
}
} // namespace Images
