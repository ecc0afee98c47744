#include "ArchiveBytes.h"

#include <QFile>
#include <QUrl>

#include <sqlite3.h>

namespace archivebytes {

Kind kindOf(const QByteArray &head)
{
    if (head.startsWith(QByteArrayView("SQLite format 3\0", 16)))
        return Kind::Ours;
    if (head.mid(4, 15) == QByteArrayView("Standard Jet DB"))
        return Kind::Jet;
    return Kind::None;
}

bool hasCdsTable(const QString &path)
{
    const QByteArray uri = "file:" + QUrl::toPercentEncoding(path, QByteArrayLiteral("/")) + "?immutable=1";
    sqlite3 *db = nullptr;
    bool found = false;
    if (sqlite3_open_v2(uri.constData(), &db, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr) == SQLITE_OK) {
        sqlite3_stmt *statement = nullptr;
        if (sqlite3_prepare_v2(db, "SELECT 1 FROM sqlite_master WHERE type='table' AND lower(name)='cds'", -1,
                &statement, nullptr)
            == SQLITE_OK)
            found = sqlite3_step(statement) == SQLITE_ROW;
        sqlite3_finalize(statement);
    }
    sqlite3_close_v2(db);
    return found;
}

} // namespace archivebytes
