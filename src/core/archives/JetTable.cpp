#include "JetTable.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <glib.h>
// glib first: the header below uses its types without including it.
#include <mdbtools.h>

#include <memory>

namespace {

constexpr char kJetSignature[] = "Standard Jet DB";
constexpr qint64 kSignatureOffset = 4;
// Jet 4 pages are 4096 bytes; a file shorter than its header page cannot hold a table.
constexpr qint64 kHeaderPage = 2048;

struct HandleCloser
{
    void operator()(MdbHandle *handle) const { mdb_close(handle); }
};
struct TableFreer
{
    void operator()(MdbTableDef *table) const { mdb_free_tabledef(table); }
};

QString quoted(const QString &path)
{
    return QStringLiteral("\"") + QDir::toNativeSeparators(path) + QStringLiteral("\"");
}

QString unreadable(const QString &path, const QString &reason)
{
    return QStringLiteral("Die Jet-Datenbank ") + quoted(path) + QStringLiteral(" kann nicht gelesen werden: ")
        + reason;
}

// libmdb hands every bound value over as text; NULL (and, for booleans, false) is told by
// the row's null mask, which the bound text alone cannot show.
QVariant fieldValue(const MdbColumn *column, const char *text, bool isNull)
{
    if (column->col_type == MDB_BOOL)
        return QVariant(!isNull);
    if (isNull)
        return {};
    switch (column->col_type) {
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
        return QVariant(QByteArray(text).toLongLong());
    default:
        return QVariant(QString::fromUtf8(text));
    }
}

// The null mask of the row that mdb_fetch_row has just read.
std::vector<bool> nullMask(MdbTableDef *table)
{
    std::vector<bool> nulls(table->num_cols, false);
    int rowStart = 0;
    size_t rowSize = 0;
    if (mdb_find_row(table->entry->mdb, static_cast<int>(table->cur_row) - 1, &rowStart, &rowSize) != 0)
        return nulls;
    std::vector<MdbField> fields(table->num_cols + 1);
    const int count = mdb_crack_row(table, rowStart, rowSize, fields.data());
    for (int i = 0; i < count; ++i) {
        const auto colnum = static_cast<size_t>(fields[i].colnum);
        if (colnum < nulls.size())
            nulls[colnum] = fields[i].is_null != 0;
    }
    return nulls;
}

} // namespace

bool isJetFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray head = file.read(kSignatureOffset + sizeof kJetSignature - 1);
    return head.mid(kSignatureOffset) == QByteArray(kJetSignature);
}

JetTableRead readJetTable(const QString &path, const QString &tableName)
{
    JetTableRead result;
    if (!isJetFile(path) || QFileInfo(path).size() < kHeaderPage) {
        result.error = unreadable(path, QStringLiteral("Die Datei ist keine vollständige Jet-Datenbank."));
        return result;
    }
    const QByteArray encodedPath = QFile::encodeName(path);
    std::unique_ptr<MdbHandle, HandleCloser> mdb(mdb_open(encodedPath.constData(), MDB_NOFLAGS));
    if (!mdb || !mdb_read_catalog(mdb.get(), MDB_TABLE)) {
        result.error = unreadable(path, QStringLiteral("Ihr Verzeichnis der Tabellen ist beschädigt oder verschlüsselt."));
        return result;
    }
    // Jet files grow by whole pages; anything else was cut short.
    if (QFileInfo(path).size() % mdb->fmt->pg_size != 0) {
        result.error = unreadable(path, QStringLiteral("Die Datei ist unvollständig."));
        return result;
    }
    QByteArray name = tableName.toUtf8();
    std::unique_ptr<MdbTableDef, TableFreer> table(mdb_read_table_by_name(mdb.get(), name.data(), MDB_TABLE));
    if (!table || !mdb_read_columns(table.get()) || mdb_rewind_table(table.get()) != 0) {
        result.error = unreadable(path, QStringLiteral("Sie enthält keine lesbare Tabelle \"") + tableName
                + QStringLiteral("\"."));
        return result;
    }
    const unsigned columnCount = table->num_cols;
    std::vector<std::vector<char>> buffers(columnCount, std::vector<char>(mdb->bind_size + 1));
    for (unsigned c = 0; c < columnCount; ++c) {
        auto *column = static_cast<MdbColumn *>(g_ptr_array_index(table->columns, c));
        result.table.columns.append(QString::fromUtf8(column->name));
        mdb_bind_column(table.get(), static_cast<int>(c) + 1, buffers[c].data(), nullptr);
    }
    while (mdb_fetch_row(table.get())) {
        const std::vector<bool> nulls = nullMask(table.get());
        std::vector<QVariant> row;
        row.reserve(columnCount);
        for (unsigned c = 0; c < columnCount; ++c) {
            const auto *column = static_cast<MdbColumn *>(g_ptr_array_index(table->columns, c));
            row.push_back(fieldValue(column, buffers[c].data(), nulls[c]));
        }
        result.table.rows.push_back(std::move(row));
    }
    if (result.table.rows.size() != table->num_rows)
        result.error = unreadable(path, QStringLiteral("Die Tabelle \"") + tableName
                + QStringLiteral("\" ist beschädigt: Es konnten nur ")
                + QString::number(result.table.rows.size()) + QStringLiteral(" von ")
                + QString::number(table->num_rows) + QStringLiteral(" Zeilen gelesen werden."));
    return result;
}
