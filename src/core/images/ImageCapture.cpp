#include "ImageCapture.h"

#include "CaptureFilter.h"
#include "CaptureProgress.h"
#include "ImageWriter.h"
#include "VolumeWalk.h"

#include "app/DataPaths.h"
#include "common/Cp1252.h"

#include <QDir>
#include <QFile>

#include <cerrno>

namespace {

QString reasonText(int error)
{
    switch (error) {
    case ENOSPC:
        return QStringLiteral("Der Datenträger ist voll.");
    case EDQUOT:
        return QStringLiteral("Der zugeteilte Speicherplatz ist aufgebraucht.");
    case EACCES:
    case EPERM:
        return QStringLiteral("Keine Schreibberechtigung.");
    case EROFS:
        return QStringLiteral("Der Datenträger ist schreibgeschützt.");
    case ENOENT:
    case ENOTDIR:
        return QStringLiteral("Der Ordner existiert nicht.");
    case EIO:
        return QStringLiteral("Ein-/Ausgabefehler.");
    default:
        return QStringLiteral("Systemfehler %1.").arg(error);
    }
}

QString writeError(const QString &path, int error)
{
    return QStringLiteral("Das Laufwerksabbild \"%1\" konnte nicht geschrieben werden: %2")
        .arg(QDir::toNativeSeparators(path), reasonText(error));
}

bool isDrive(const QString &drive)
{
    return drive.size() == 2 && drive[0].isLetter() && drive[1] == QLatin1Char(':');
}

} // namespace

ImageCapture::ImageCapture(const QString &dataFolder)
    : m_dataFolder(dataFolder)
{
}

CaptureResult ImageCapture::capture(const QString &drive, const QString &rootFolder, int32_t imageId,
    const QString &filter, bool prune, CaptureProgress *progress) const
{
    CaptureResult result;
    result.imageId = imageId;
    if (!isDrive(drive)) {
        result.error = QStringLiteral("\"%1\" ist kein Laufwerk (erwartet wird z.B. \"d:\").").arg(drive);
        return result;
    }
    const CaptureFilter captureFilter(cp1252::fromQString(filter));
    result.error = captureFilter.errorMessage();
    if (!result.ok())
        return result;

    const QString target = datapaths::imageFile(m_dataFolder, imageId);
    QDir().mkpath(datapaths::imageFolder(m_dataFolder));
    ImageWriter writer(QFile::encodeName(target).toStdString());
    if (!writer.open()) {
        result.error = writeError(target, writer.error());
        return result;
    }
    const std::string driveText = cp1252::lower(cp1252::fromQString(drive));
    writer.rootLine(driveText);
    VolumeWalk walk(writer, captureFilter, prune, progress);
    const bool walked = walk.run(QFile::encodeName(rootFolder).toStdString(), driveText);
    result.folders = walk.folders();
    result.files = walk.files();
    if (!walked) {
        result.cancelled = walk.cancelled();
        result.error = walk.cancelled()
            ? QStringLiteral("Die Erstellung des Laufwerksabbilds wurde abgebrochen.")
            : walk.error();
        return result;
    }
    if (!writer.finish() || !writer.commit())
        result.error = writeError(target, writer.error());
    return result;
}
