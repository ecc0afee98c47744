#include "FileTypeIcons.h"

#include <QApplication>
#include <QMimeDatabase>
#include <QStyle>

QIcon FileTypeIcons::icon(const QString &type)
{
    if (type.contains(QLatin1Char('\\')) || type.contains(QLatin1Char('/')))
        return {};
    if (const auto known = m_icons.constFind(type); known != m_icons.constEnd())
        return *known;
    const QMimeType mime
        = QMimeDatabase().mimeTypeForFile(QStringLiteral("datei.") + type, QMimeDatabase::MatchExtension);
    QIcon icon = QIcon::fromTheme(mime.iconName());
    if (icon.isNull())
        icon = QIcon::fromTheme(mime.genericIconName());
    if (icon.isNull())
        icon = QApplication::style()->standardIcon(QStyle::SP_FileIcon);
    m_icons.insert(type, icon);
    return icon;
}
