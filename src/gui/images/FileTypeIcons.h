#pragma once

#include <QHash>
#include <QIcon>
#include <QString>

// The picture the desktop shows for a file type, by its extension ("jpg", "dat"). A type
// that can't end a file name (it holds a backslash or a slash) has no picture.
class FileTypeIcons
{
public:
    QIcon icon(const QString &type);

private:
    QHash<QString, QIcon> m_icons;
};
