#include "PdfFileProposal.h"

#include "app/Settings.h"

#include <QDir>
#include <QFileInfo>

namespace {

const QString group = QStringLiteral("Drucken");
const QString folderKey = QStringLiteral("PDF-Ordner");

} // namespace

QString proposedPdfFile(const Settings &settings, const QString &printedName)
{
    // A slash would make the name a path.
    QString name = printedName.trimmed().replace(QLatin1Char('/'), QLatin1Char('-'));
    if (name.isEmpty())
        name = QStringLiteral("Suchergebnis");
    const QString folder = settings.groupValue(group, folderKey);
    const QString file = name + QStringLiteral(".pdf");
    return folder.isEmpty() || !QFileInfo(folder).isDir() ? file : QDir(folder).filePath(file);
}

void rememberPdfFolder(Settings &settings, const QString &pdfFile)
{
    settings.setGroupValue(group, folderKey, QFileInfo(pdfFile).absolutePath());
}
