#include "JetConversion.h"

#include "ArchiveConnection.h"
#include "ArchiveStore.h"
#include "common/Temporaries.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

#include <array>
#include <cstdio>

namespace {

using Kind = ArchiveError::Kind;

constexpr std::array<const char *, 6> kFields
    = { "cd_nummer", "cd_name", "cd_seriennummer", "cd_inhalt", "cd_ausgeliehen", "cd_cover" };

QString fileName(const QString &path)
{
    return QFileInfo(path).fileName();
}

QString archiveName(const QString &mdbPath)
{
    return QFileInfo(mdbPath).completeBaseName();
}

ArchiveError notConverted(const QString &mdbPath, const QString &reason)
{
    return { Kind::FileError,
        QStringLiteral("Das Archiv ") + archiveName(mdbPath)
            + QStringLiteral(" stammt aus der Windows-Version und konnte nicht umgewandelt werden. ")
            + reason };
}

ArchiveError writeRows(const QString &path, const std::vector<QVariantList> &rows)
{
    ArchiveError error = ArchiveStore::create(path);
    if (!error.ok())
        return error;
    ArchiveConnection connection(path, ArchiveConnection::Mode::Existing);
    return connection.transaction([&] {
        for (const QVariantList &row : rows) {
            const ArchiveError insert = connection.run(
                QStringLiteral("INSERT INTO cds (cd_nummer, cd_name, cd_seriennummer, cd_inhalt, "
                               "cd_ausgeliehen, cd_cover) VALUES (?, ?, ?, ?, ?, ?)"),
                row);
            if (!insert.ok())
                return insert;
        }
        return ArchiveError {};
    });
}

QString jetPathOf(const QString &mdbPath)
{
    return mdbPath + QStringLiteral(".jet");
}

JetConversion convertLocked(const QString &mdbPath)
{
    JetConversion result;
    if (QFileInfo::exists(jetPathOf(mdbPath))) {
        result.error = notConverted(mdbPath,
            QStringLiteral("Die Datei ") + fileName(jetPathOf(mdbPath))
                + QStringLiteral(" ist bereits vorhanden; bitte benennen Sie sie um."));
        return result;
    }
    const JetTableRead read = readJetTable(mdbPath, QStringLiteral("cds"));
    if (!read.ok()) {
        result.error = notConverted(mdbPath, read.error);
        return result;
    }
    const StoreResult<std::vector<QVariantList>> rows = cdsRowsOf(read.table);
    if (!rows.ok()) {
        result.error = notConverted(mdbPath, rows.error.message);
        return result;
    }
    return replaceByArchive(mdbPath, rows.value);
}

} // namespace

JetConversion convertIfJet(const QString &mdbPath)
{
    if (!isJetFile(mdbPath))
        return {};
    // Two programs opening the same new archive at once convert it once.
    QLockFile lock(mdbPath + QStringLiteral(".lock"));
    if (!lock.lock())
        return { false, 0, {}, notConverted(mdbPath, QStringLiteral("Die Sperrdatei kann nicht angelegt werden.")) };
    if (!isJetFile(mdbPath))
        return {};
    return convertLocked(mdbPath);
}

JetConversion replaceByArchive(const QString &mdbPath, const std::vector<QVariantList> &rows)
{
    JetConversion result;
    const QString jetPath = jetPathOf(mdbPath);
    // Named as our temporaries are, so that the next run sweeps what a killed conversion left.
    const QString temporary = temporaries::freshName(
        QFileInfo(mdbPath).absolutePath(), QStringLiteral(".") + fileName(mdbPath) + QStringLiteral(".umwandeln-"));
    ArchiveError error = writeRows(temporary, rows);
    // The original stays readable under one of its two names at every moment.
    if (error.ok() && !QFile::copy(mdbPath, jetPath))
        error = { Kind::FileError,
            QStringLiteral("Die Datei ") + fileName(jetPath) + QStringLiteral(" kann nicht angelegt werden.") };
    if (error.ok()
        && std::rename(QFile::encodeName(temporary).constData(), QFile::encodeName(mdbPath).constData()) != 0) {
        QFile::remove(jetPath);
        error = { Kind::FileError,
            QStringLiteral("Die Datei ") + fileName(mdbPath) + QStringLiteral(" kann nicht ersetzt werden.") };
    }
    if (!error.ok()) {
        temporaries::removeWithCompanions(temporary);
        result.error = notConverted(mdbPath, error.message);
        return result;
    }
    result.converted = true;
    result.cdCount = static_cast<int>(rows.size());
    result.notice = QStringLiteral("Das Archiv ") + archiveName(mdbPath)
        + QStringLiteral(" stammt aus der Windows-Version und wurde umgewandelt. Die Originaldatei liegt unter ")
        + fileName(jetPath) + QStringLiteral(".");
    return result;
}

StoreResult<std::vector<QVariantList>> cdsRowsOf(const JetTable &table)
{
    std::array<qsizetype, kFields.size()> columnOf {};
    for (size_t f = 0; f < kFields.size(); ++f) {
        // Jet names are not case-sensitive.
        columnOf[f] = -1;
        for (qsizetype c = 0; c < table.columns.size() && columnOf[f] < 0; ++c)
            if (table.columns[c].compare(QLatin1String(kFields[f]), Qt::CaseInsensitive) == 0)
                columnOf[f] = c;
        if (columnOf[f] < 0)
            return { {}, { Kind::FileError,
                             QStringLiteral("Der Tabelle cds fehlt das Feld ") + QString::fromLatin1(kFields[f])
                                 + QStringLiteral(".") } };
    }
    StoreResult<std::vector<QVariantList>> result;
    result.value.reserve(table.rows.size());
    for (const std::vector<QVariant> &source : table.rows) {
        QVariantList row;
        for (const qsizetype column : columnOf)
            row.append(source[static_cast<size_t>(column)]);
        result.value.push_back(row);
    }
    return result;
}
