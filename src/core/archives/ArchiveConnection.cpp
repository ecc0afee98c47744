#include "ArchiveConnection.h"

#include "SqlLike.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

namespace {

using Kind = ArchiveError::Kind;

// A second program may hold the file for a moment; wait for it rather than fail at once.
constexpr int kBusyWaitMs = 5000;

QString quoted(const QString &path)
{
    return QStringLiteral("\"") + QDir::toNativeSeparators(path) + QStringLiteral("\"");
}

void bindValue(sqlite3_stmt *statement, int index, const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        sqlite3_bind_int(statement, index, value.toBool() ? 1 : 0);
        break;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::LongLong:
        sqlite3_bind_int64(statement, index, value.toLongLong());
        break;
    case QMetaType::Double:
        sqlite3_bind_double(statement, index, value.toDouble());
        break;
    default:
        if (value.isNull()) {
            sqlite3_bind_null(statement, index);
        } else {
            const QByteArray text = value.toString().toUtf8();
            sqlite3_bind_text(
                statement, index, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
        }
    }
}

} // namespace

ArchiveConnection::ArchiveConnection(const QString &path, Mode mode)
    : m_path(path)
{
    const bool exists = QFileInfo::exists(path);
    if (mode == Mode::Existing && !QFileInfo(path).isFile()) {
        m_openError = fileMissing();
        return;
    }
    if (mode == Mode::Create && exists) {
        m_openError = { Kind::FileError,
            QStringLiteral("Die Datei ") + quoted(path) + QStringLiteral(" existiert bereits.") };
        return;
    }
    const int flags = SQLITE_OPEN_READWRITE | (mode == Mode::Create ? SQLITE_OPEN_CREATE : 0);
    const int code = sqlite3_open_v2(QFile::encodeName(path).constData(), &m_db, flags, nullptr);
    if (code != SQLITE_OK) {
        m_openError = failure(code);
        return;
    }
    sqlite3_extended_result_codes(m_db, 1);
    sqlite3_busy_timeout(m_db, kBusyWaitMs);
    registerSqlLike(m_db, &m_patternError);
}

ArchiveConnection::~ArchiveConnection()
{
    sqlite3_close_v2(m_db);
}

ArchiveError ArchiveConnection::run(const QString &sql, const QVariantList &binds, const RowReader &readRow)
{
    if (!m_openError.ok())
        return m_openError;
    const QByteArray text = sql.toUtf8();
    sqlite3_stmt *statement = nullptr;
    int code = sqlite3_prepare_v2(m_db, text.constData(), static_cast<int>(text.size()), &statement, nullptr);
    if (code != SQLITE_OK) {
        sqlite3_finalize(statement);
        return failure(code);
    }
    for (qsizetype i = 0; i < binds.size(); ++i)
        bindValue(statement, static_cast<int>(i + 1), binds[i]);
    while ((code = sqlite3_step(statement)) == SQLITE_ROW) {
        if (readRow)
            readRow(statement);
    }
    ArchiveError result = code == SQLITE_DONE ? ArchiveError {} : failure(code);
    sqlite3_finalize(statement);
    return result;
}

ArchiveError ArchiveConnection::transaction(const std::function<ArchiveError()> &write)
{
    ArchiveError error = run(QStringLiteral("BEGIN IMMEDIATE"));
    if (!error.ok())
        return error;
    error = write();
    if (error.ok())
        error = run(QStringLiteral("COMMIT"));
    if (!error.ok())
        run(QStringLiteral("ROLLBACK"));
    return error;
}

int ArchiveConnection::changes() const
{
    return m_db ? sqlite3_changes(m_db) : 0;
}

ArchiveError ArchiveConnection::fileMissing() const
{
    return { Kind::FileError,
        QStringLiteral("Die Archivdatei ") + quoted(m_path) + QStringLiteral(" wurde nicht gefunden.") };
}

ArchiveError ArchiveConnection::failure(int code) const
{
    if (m_patternError != LikePattern::Error::None)
        return { Kind::BadPattern, likeErrorMessage(m_patternError) };
    if (code == SQLITE_CONSTRAINT_PRIMARYKEY)
        return { Kind::DuplicateNumber,
            QStringLiteral("Bitte geben Sie eine andere CD Nummer ein, da jede Nummer nur "
                           "einmal vergeben werden darf!") };
    // The only check of the table is the length of the title.
    if (code == SQLITE_CONSTRAINT_CHECK)
        return { Kind::TitleTooLong,
            QStringLiteral("Der Titel ist zu lang: Er darf höchstens 50 Zeichen haben.") };
    const QString file = quoted(m_path);
    switch (code & 0xff) {
    case SQLITE_NOTADB:
        return { Kind::FileError,
            QStringLiteral("Die Datei ") + file + QStringLiteral(" ist keine Archivdatenbank.") };
    case SQLITE_CORRUPT:
        return { Kind::FileError,
            QStringLiteral("Die Archivdatei ") + file + QStringLiteral(" ist beschädigt.") };
    case SQLITE_CANTOPEN:
        return { Kind::FileError,
            QStringLiteral("Die Archivdatei ") + file + QStringLiteral(" kann nicht geöffnet werden.") };
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return { Kind::FileError,
            QStringLiteral("Das Archiv ") + file
                + QStringLiteral(" wird gerade von einem anderen Programm benutzt. Bitte "
                                 "versuchen Sie es gleich noch einmal.") };
    case SQLITE_READONLY:
        return { Kind::FileError,
            QStringLiteral("Das Archiv ") + file
                + QStringLiteral(" ist schreibgeschützt. Die Änderung wurde nicht gespeichert.") };
    case SQLITE_FULL:
        return { Kind::FileError,
            QStringLiteral("Auf dem Datenträger ist kein Platz mehr. Die Änderung wurde nicht "
                           "gespeichert.") };
    case SQLITE_IOERR:
        return { Kind::FileError,
            QStringLiteral("Die Archivdatei ") + file
                + QStringLiteral(" kann nicht gelesen oder geschrieben werden.") };
    default:
        break;
    }
    const QString detail
        = m_db ? QString::fromUtf8(sqlite3_errmsg(m_db)) : QString::fromUtf8(sqlite3_errstr(code));
    if (detail.startsWith(QLatin1String("no such table")))
        return { Kind::FileError,
            QStringLiteral("Die Datei ") + file
                + QStringLiteral(" enthält keine CD-Tabelle und ist "
                                 "daher kein Archiv.") };
    return { Kind::EngineError,
        QStringLiteral("Fehler ") + QString::number(code)
            + QStringLiteral(" beim Zugriff auf "
                             "das Archiv ")
            + file + QStringLiteral(": ") + detail };
}
