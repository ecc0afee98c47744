#include "CliCommand.h"
#include "CliData.h"
#include "CliOptions.h"

#include "app/DataFolder.h"
#include "archives/ArchiveStore.h"
#include "common/Cp1252.h"
#include "images/CaptureFilter.h"
#include "images/DriveTable.h"
#include "images/ImageCapture.h"

#include <QDir>

#include <optional>

namespace {

const char *const kUsage = "capture LAUFWERK|ORDNER [--filter MUSTER] [--keep-empty] [--cd NUMMER]";

const QString kFilter = QStringLiteral("--filter");
const QString kKeepEmpty = QStringLiteral("--keep-empty");
const QString kCd = QStringLiteral("--cd");

// The drive of a letter ("d", "d:") or of a folder, which becomes a drive when it is none yet.
std::optional<Drive> driveOf(DriveTable &table, const QString &word, QString *problem)
{
    const QString letter = DriveTable::normalLetter(word);
    if (!letter.isEmpty()) {
        std::optional<Drive> drive = table.find(letter);
        if (!drive)
            *problem = QStringLiteral("Das Laufwerk %1 gibt es nicht.").arg(letter);
        return drive;
    }
    if (!folderExists(word)) {
        *problem = QStringLiteral("Der Ordner \"%1\" existiert nicht.").arg(QDir::toNativeSeparators(word));
        return std::nullopt;
    }
    const Drive drive = table.driveForFolder(QDir(word).absolutePath());
    if (!table.problem().isEmpty()) {
        *problem = table.problem();
        return std::nullopt;
    }
    if (drive.letter.isEmpty()) {
        *problem = QStringLiteral("Für den Ordner \"%1\" ist kein Laufwerksbuchstabe mehr frei.")
                       .arg(QDir::toNativeSeparators(word));
        return std::nullopt;
    }
    return drive;
}

// Captures a drive into <data>/lws/<id>.dat and prints the id; with --cd the id goes into that
// CD's row. Everything that can be refused is checked before the capture starts.
int capture(CliContext &context)
{
    const CliOptions options(context.words, { kFilter, kCd }, { kKeepEmpty });
    if (!options.ok() || options.plainWords().size() != 1)
        return usageError(kUsage);
    const QString filter = options.has(kFilter) ? options.value(kFilter) : QStringLiteral("*.*");
    const QString filterProblem = CaptureFilter(cp1252::fromQString(filter)).errorMessage();
    if (!filterProblem.isEmpty())
        return refuse(filterProblem);

    CliData data(context);
    if (!data.ok())
        return refuse(data.problem());

    std::optional<ArchiveStore> store;
    int32_t cdNumber = 0;
    if (options.has(kCd)) {
        const std::optional<int32_t> number = wholeNumber(options.value(kCd));
        if (!number)
            return refuse(cdNumberNotWholeMessage());
        cdNumber = *number;
        QString problem;
        const QString archivePath = data.archivePath(&problem);
        if (archivePath.isEmpty())
            return refuse(problem);
        store.emplace(archivePath);
        const StoreResult<CdRow> row = store->selectByNumber(cdNumber);
        if (!row.ok())
            return refuse(row.error.message);
    }

    DriveTable table(data.settings());
    QString problem;
    const std::optional<Drive> drive = driveOf(table, options.plainWords().first(), &problem);
    if (!drive)
        return refuse(problem);
    const int32_t id = table.getSerial(*drive);
    if (!table.problem().isEmpty())
        return refuse(table.problem());
    const CaptureResult result
        = ImageCapture(data.dataFolder())
              .capture(drive->letter, drive->mountPoint, id, filter, !options.has(kKeepEmpty));
    if (!result.ok())
        return refuse(result.error);
    if (store) {
        const ArchiveError stored = store->setImageId(cdNumber, id);
        if (!stored.ok())
            return refuse(stored.message);
    }
    printLine(QString::number(id));
    return ExitOk;
}

const CliCommand registration(
    "capture", kUsage, &capture,
    "Nimmt das Laufwerksabbild eines Laufwerks oder Ordners auf und gibt seine ID aus; mit --cd wird es der CD zugeordnet.");

} // namespace
