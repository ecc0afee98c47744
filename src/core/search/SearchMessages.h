#pragma once

#include <QString>

// The German messages of the search dialog and the navigator, in one place for every caller.
namespace searchmessages {

QString emptyWord();                       // no icon
QString noImage();                         // stop icon; the dialog closes
QString noCdWithImage();                   // stop icon
QString noHit(const QString &word);        // information icon
QString noMatchingCd();                    // stop icon
QString oneCdFound();                      // no icon
QString unreadableImage(const QString &path); // critical icon

} // namespace searchmessages
