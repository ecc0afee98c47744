#include "OldDatabaseImport.h"

#include "app/DataPaths.h"
#include "app/IniReader.h"
#include "archives/ArchiveStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <optional>
#include <vector>

namespace olddatabase {

namespace {

const QString kIdPrefix = QStringLiteral("Seriennummer=");

QString failure(int number, const QString &text)
{
    return QStringLiteral("Fehler! Fehlernummer: ") + QString::number(number) + QStringLiteral(" Description: ") + text;
}

// The old image folder: "LWS" beside the folder of the ini file, in whatever case it was made.
QString imageFolderBeside(const QString &iniPath)
{
    const QDir parent(QFileInfo(QFileInfo(iniPath).absolutePath()).absolutePath());
    for (const QString &entry : parent.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        if (entry.compare(QLatin1String("LWS"), Qt::CaseInsensitive) == 0)
            return parent.filePath(entry);
    return parent.filePath(QStringLiteral("LWS"));
}

// The comment: the lines behind the id line, empty ones included, or every non-empty line
// where the first is no id line.
QString commentOf(const std::vector<QString> &lines)
{
    QString comment = QStringLiteral("Sta1");
    if (lines.size() > 1) {
        const bool idLine = lines[0].startsWith(kIdPrefix);
        for (size_t i = idLine ? 1 : 0; i < lines.size(); ++i)
            if (idLine || !lines[i].isEmpty())
                comment += QLatin1Char('|') + lines[i];
    }
    return comment + QStringLiteral("|End1");
}

} // namespace

QString archiveNameFor(const QString &iniPath)
{
    const QString name = QFileInfo(iniPath).fileName();
    return name.isEmpty() ? QStringLiteral("default") : name;
}

QString successMessage()
{
    return QStringLiteral("Die Archivdatenbank wurde erfolgreich importiert. Sie können es nun durch 'Archiv "
                          "wechseln' im Hauptfenster auswählen und öffnen.");
}

ImportResult importIni(const QString &iniPath, const QString &dataFolder, const QString &name)
{
    ImportResult result;
    QDir().mkpath(datapaths::archiveFolder(dataFolder));
    const QString mdbPath = datapaths::archiveFile(dataFolder, name);
    const ArchiveError created = ArchiveStore::create(mdbPath);
    if (!created.ok()) {
        result.error = failure(3044, created.message);
        return result;
    }
    const std::optional<inireader::IniText> text
        = QFileInfo::exists(iniPath) ? inireader::IniText::read(iniPath) : inireader::IniText(QByteArray());
    if (!text) {
        result.error = failure(53, QStringLiteral("Datei nicht gefunden"));
        return result;
    }
    // The rows go in together; those before a failure are kept, as the old import kept them.
    std::vector<CdRow> rows;
    const auto stored = [&](ImportResult &imported) -> ImportResult & {
        const ArchiveError added = ArchiveStore(mdbPath).addRows(rows);
        if (!added.ok())
            imported.error = failure(3022, added.message);
        else
            imported.cds = static_cast<int>(rows.size());
        return imported;
    };
    const QString images = imageFolderBeside(iniPath);
    const std::vector<QString> names = text->sectionNames();
    for (size_t i = 0; i < names.size(); ++i) {
        // "[]" and the element behind the last name: the number still counts.
        if (names[i].isEmpty())
            continue;
        const std::optional<std::vector<QString>> lines = text->sectionLines(names[i]);
        if (!lines) {
            result.error = failure(9, QStringLiteral("Index außerhalb des gültigen Bereichs"));
            return stored(result);
        }
        CdRow row;
        row.number = static_cast<int32_t>(i + 1);
        row.name = names[i];
        row.comments = commentOf(*lines);
        const QString &first = lines->front();
        const QString lower = first.toLower();
        if (lines->size() > 1 && first.startsWith(kIdPrefix) && lower != QLatin1String("seriennummer=no")
            && lower != QLatin1String("seriennummer=0")) {
            const QString id = first.mid(kIdPrefix.size());
            const QString source = images + QLatin1Char('/') + id + QStringLiteral(".dat");
            if (QFileInfo::exists(source)) {
                bool number = false;
                row.imageId = id.trimmed().toInt(&number);
                if (!number) {
                    result.error = failure(13, QStringLiteral("Typen unverträglich"));
                    return stored(result);
                }
                const QString target = datapaths::imageFile(dataFolder, row.imageId);
                QDir().mkpath(datapaths::imageFolder(dataFolder));
                QFile::remove(target);
                if (!QFile::copy(source, target)) {
                    result.error = failure(75, QStringLiteral("Fehler beim Zugriff auf Pfad/Datei"));
                    return stored(result);
                }
            }
        }
        rows.push_back(row);
    }
    return stored(result);
}

} // namespace olddatabase
