#include "OldDatabaseImport.h"

#include "app/DataPaths.h"
#include "app/IniReader.h"
#include "archives/ArchiveCatalog.h"
#include "archives/ArchiveStore.h"
#include "common/Temporaries.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
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

// Copies an old drive image into the data folder. The old folder may lie inside the data
// folder, the image being the very file it would be copied to: that one is left as it is.
bool copyImage(const QString &source, const QString &target)
{
    if (QFileInfo(source).canonicalFilePath() == QFileInfo(target).canonicalFilePath())
        return true;
    QFile file(source);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    return file.error() == QFileDevice::NoError && QDir().mkpath(QFileInfo(target).absolutePath())
        && temporaries::replaceFile(target, bytes);
}

// The row of one section with its image copied over; none when the section cannot be taken:
// the file ends with its head, or its image has a name that is no number or cannot be copied.
std::optional<CdRow> rowOf(const inireader::IniText &text, const QString &title, int32_t number,
    const QString &images, const QString &dataFolder)
{
    const std::optional<std::vector<QString>> lines = text.sectionLines(title);
    if (!lines)
        return std::nullopt;
    CdRow row;
    row.number = number;
    row.name = title;
    row.comments = commentOf(*lines);
    const QString &first = lines->front();
    const QString lower = first.toLower();
    if (lines->size() > 1 && first.startsWith(kIdPrefix) && lower != QLatin1String("seriennummer=no")
        && lower != QLatin1String("seriennummer=0")) {
        const QString id = first.mid(kIdPrefix.size());
        const QString source = images + QLatin1Char('/') + id + QStringLiteral(".dat");
        if (QFileInfo::exists(source)) {
            bool isNumber = false;
            row.imageId = id.trimmed().toInt(&isNumber);
            if (!isNumber || !copyImage(source, datapaths::imageFile(dataFolder, row.imageId)))
                return std::nullopt;
        }
    }
    return row;
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

QString leftOutMessage(const QStringList &titles)
{
    if (titles.isEmpty())
        return {};
    constexpr qsizetype kNamed = 10;
    QStringList named;
    for (qsizetype i = 0; i < std::min(titles.size(), kNamed); ++i)
        named.append(QLatin1Char('[') + titles[i] + QLatin1Char(']'));
    QString message = QStringLiteral("Diese CDs der alten Datenbank konnten nicht übernommen werden: ")
        + named.join(QStringLiteral(", "));
    if (titles.size() > kNamed)
        message
            += QStringLiteral(" und ") + QString::number(titles.size() - kNamed) + QStringLiteral(" weitere");
    return message + QLatin1Char('.');
}

ImportResult importIni(const QString &iniPath, const QString &dataFolder, const QString &name)
{
    ImportResult result;
    if (const ArchiveError refused = checkNewArchiveName(name); !refused.ok()) {
        result.error = refused.message;
        return result;
    }
    QDir().mkpath(datapaths::archiveFolder(dataFolder));
    const QString mdbPath = datapaths::archiveFile(dataFolder, name);
    const ArchiveError created = ArchiveStore::create(mdbPath, ArchiveStore::TitleLimit::None);
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
    const QString images = imageFolderBeside(iniPath);
    const std::vector<QString> names = text->sectionNames();
    std::vector<CdRow> rows;
    for (size_t i = 0; i < names.size(); ++i) {
        // "[]" and the element behind the last name: the number still counts.
        if (names[i].isEmpty())
            continue;
        const std::optional<CdRow> row
            = rowOf(*text, names[i], static_cast<int32_t>(i + 1), images, dataFolder);
        if (row)
            rows.push_back(*row);
        else
            result.leftOut.append(names[i]);
    }
    const ArchiveError added = ArchiveStore(mdbPath).addRows(rows);
    if (!added.ok())
        result.error = failure(3022, added.message);
    else
        result.cds = static_cast<int>(rows.size());
    return result;
}

} // namespace olddatabase
