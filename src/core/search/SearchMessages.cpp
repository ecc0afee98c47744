#include "SearchMessages.h"

#include <QDir>

namespace searchmessages {

QString emptyWord()
{
    return QStringLiteral("Bitte geben Sie einen Suchbegriff ein!");
}

QString noImage()
{
    return QStringLiteral("Kein Datenträgerabbild vorhanden!");
}

QString noCdWithImage()
{
    return QStringLiteral("Keine CD mit der gesuchten Datei vorhanden!");
}

QString noHit(const QString &word)
{
    return QStringLiteral("Keine CD mit dem Inhalt ") + word + QStringLiteral(" gefunden!");
}

QString noMatchingCd()
{
    return QStringLiteral("Keine übereinstimmende CD gefunden!");
}

QString oneCdFound()
{
    return QStringLiteral("Gefundene CDs: 1. Die CD wird nun angezeigt.");
}

QString unreadableImage(const QString &path)
{
    return QStringLiteral("Das Datenträgerabbild %1 kann nicht gelesen werden.").arg(QDir::toNativeSeparators(path));
}

} // namespace searchmessages
