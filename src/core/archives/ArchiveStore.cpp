#include "ArchiveStore.h"

#include "ArchiveConnection.h"

#include "common/Temporaries.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <unistd.h>

#include <sqlite3.h>

namespace {

using Kind = ArchiveError::Kind;

const QString kTemporaryPrefix = QStringLiteral(".archive-");

// The six fields in the order of creation. Rows are kept in key order (no row ids), which
// is the order every "Select * FROM cds" must deliver without an ORDER BY.
QString createTable(ArchiveStore::TitleLimit limit)
{
    return QStringLiteral("CREATE TABLE cds ( cd_nummer INTEGER,")
        + (limit == ArchiveStore::TitleLimit::Fifty
                ? QStringLiteral(" cd_name VARCHAR(50) CHECK (length(cd_name) <= 50),")
                : QStringLiteral(" cd_name TEXT,"))
        + QStringLiteral(" cd_seriennummer INTEGER, cd_inhalt TEXT, cd_ausgeliehen BOOLEAN, cd_cover TEXT,"
                         " CONSTRAINT PrimaryKey PRIMARY KEY (cd_nummer)) WITHOUT ROWID");
}

QString columnText(sqlite3_stmt *statement, int column)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
}

// Fields are read by name, so an archive whose table lists them in another order reads alike.
CdRow readRow(sqlite3_stmt *statement)
{
    CdRow row;
    const int columns = sqlite3_column_count(statement);
    for (int c = 0; c < columns; ++c) {
        const std::string_view name = sqlite3_column_name(statement, c);
        const bool null = sqlite3_column_type(statement, c) == SQLITE_NULL;
        if (name == "cd_nummer")
            row.number = sqlite3_column_int(statement, c);
        else if (name == "cd_name")
            row.name = columnText(statement, c);
        else if (name == "cd_seriennummer")
            row.imageId = sqlite3_column_int(statement, c);
        else if (name == "cd_inhalt")
            row.comments = columnText(statement, c);
        else if (name == "cd_ausgeliehen")
            row.lent = sqlite3_column_int(statement, c) != 0;
        else if (name == "cd_cover" && !null)
            row.cover = columnText(statement, c);
    }
    return row;
}

QVariantList fieldsOf(const CdRow &row)
{
    return { row.number, row.name, row.imageId, row.comments, row.lent, row.cover };
}

ArchiveError rowMissing(int32_t number)
{
    return { Kind::NotFound,
        QStringLiteral("Die CD (Nummer: ") + QString::number(number)
            + QStringLiteral(") wurde im Archiv nicht gefunden.") };
}

QString byNumber(int32_t number)
{
    return QStringLiteral("Select * FROM cds WHERE cd_nummer=") + QString::number(number);
}

} // namespace

ArchiveStore::ArchiveStore(const QString &mdbPath)
    : m_path(mdbPath)
{
}

ArchiveError ArchiveStore::create(const QString &mdbPath, TitleLimit limit)
{
    if (QFileInfo::exists(mdbPath))
        return ArchiveConnection(mdbPath, ArchiveConnection::Mode::Create).openError();
    // Made under a name of this process and given its own name only when complete, so a
    // killed creation leaves no file that blocks the name; its debris goes next time.
    const QString folder = QFileInfo(mdbPath).absolutePath();
    temporaries::removeStale(folder, kTemporaryPrefix);
    const QString temporary = temporaries::freshName(folder, kTemporaryPrefix);
    ArchiveError error;
    {
        ArchiveConnection connection(temporary, ArchiveConnection::Mode::Create);
        error = connection.openError();
        if (error.ok())
            error = connection.transaction([&] { return connection.run(createTable(limit)); });
    }
    // A link never replaces an archive that another process made meanwhile; file systems
    // without links (a FAT stick) get a rename after one more look.
    const QByteArray from = QFile::encodeName(temporary);
    const QByteArray to = QFile::encodeName(mdbPath);
    if (error.ok() && ::link(from.constData(), to.constData()) != 0) {
        if (errno == EEXIST || QFileInfo::exists(mdbPath))
            error = ArchiveConnection(mdbPath, ArchiveConnection::Mode::Create).openError();
        else
            ::rename(from.constData(), to.constData());
    }
    if (error.ok() && !QFileInfo::exists(mdbPath))
        error = { Kind::FileError,
            QStringLiteral("Die Archivdatei \"") + QDir::toNativeSeparators(mdbPath)
                + QStringLiteral("\" kann nicht angelegt werden.") };
    temporaries::removeWithCompanions(temporary);
    return error;
}

StoreResult<std::vector<CdRow>> ArchiveStore::selectAll() const
{
    return selectRows(QStringLiteral("Select * FROM cds"));
}

StoreResult<CdRow> ArchiveStore::selectByNumber(int32_t number) const
{
    StoreResult<std::vector<CdRow>> rows = selectRows(byNumber(number));
    if (!rows.ok())
        return { {}, rows.error };
    if (rows.value.empty())
        return { {}, rowMissing(number) };
    return { rows.value.front(), {} };
}

StoreResult<std::vector<CdRow>> ArchiveStore::selectWithImage() const
{
    return selectRows(QStringLiteral("SELECT * FROM cds WHERE cd_seriennummer<>0"));
}

StoreResult<std::vector<int32_t>> ArchiveStore::selectNumbers(
    const QString &queryText, const QVariantList &binds) const
{
    StoreResult<std::vector<int32_t>> result;
    ArchiveConnection connection(m_path, ArchiveConnection::Mode::Existing);
    result.error = connection.run(queryText, binds,
        [&](sqlite3_stmt *statement) { result.value.push_back(sqlite3_column_int(statement, 0)); });
    if (!result.ok())
        result.value.clear();
    return result;
}

StoreResult<std::vector<CdRow>> ArchiveStore::selectRows(const QString &queryText) const
{
    StoreResult<std::vector<CdRow>> result;
    ArchiveConnection connection(m_path, ArchiveConnection::Mode::Existing);
    result.error = connection.run(
        queryText, {}, [&](sqlite3_stmt *statement) { result.value.push_back(readRow(statement)); });
    if (!result.ok())
        result.value.clear();
    return result;
}

const QString kInsertRow = QStringLiteral("INSERT INTO cds (cd_nummer, cd_name, cd_seriennummer, cd_inhalt, "
                                          "cd_ausgeliehen, cd_cover) VALUES (?, ?, ?, ?, ?, ?)");

ArchiveError ArchiveStore::addRow(const CdRow &row) const
{
    return write(kInsertRow, fieldsOf(row), row.number);
}

ArchiveError ArchiveStore::addRows(const std::vector<CdRow> &rows) const
{
    ArchiveConnection connection(m_path, ArchiveConnection::Mode::Existing);
    return connection.transaction([&] {
        for (const CdRow &row : rows)
            if (const ArchiveError error = connection.run(kInsertRow, fieldsOf(row)); !error.ok())
                return error;
        return ArchiveError {};
    });
}

ArchiveError ArchiveStore::updateRow(int32_t oldNumber, const CdRow &row) const
{
    QVariantList binds = fieldsOf(row);
    binds.append(oldNumber);
    return write(QStringLiteral("UPDATE cds SET cd_nummer=?, cd_name=?, cd_seriennummer=?, cd_inhalt=?, "
                                "cd_ausgeliehen=?, cd_cover=? WHERE cd_nummer=?"),
        binds, oldNumber);
}

ArchiveError ArchiveStore::deleteRow(int32_t number) const
{
    return write(QStringLiteral("DELETE FROM cds WHERE cd_nummer=?"), { number }, number);
}

ArchiveError ArchiveStore::setImageId(int32_t number, int32_t imageId) const
{
    return write(
        QStringLiteral("UPDATE cds SET cd_seriennummer=? WHERE cd_nummer=?"), { imageId, number }, number);
}

// Runs one change of the row of number in a transaction; NotFound when it touched no row.
ArchiveError ArchiveStore::write(const QString &statement, const QVariantList &binds, int32_t number) const
{
    ArchiveConnection connection(m_path, ArchiveConnection::Mode::Existing);
    return connection.transaction([&] {
        ArchiveError error = connection.run(statement, binds);
        if (error.ok() && connection.changes() == 0)
            error = rowMissing(number);
        return error;
    });
}
