#include "CdOnDisplay.h"

#include "app/DataPaths.h"
#include "app/NumberText.h"
#include "images/ImageIndex.h"
#include "records/CommentCodec.h"

#include <QFileInfo>

namespace {

const QString notAvailable = QStringLiteral("Nicht Verfügbar!");

// The cover file the window shows; empty for none.
QString coverShown(const QString &dataFolder, const QString &cover, double coverNumber)
{
    const QString placeholder = datapaths::coverFolder(dataFolder) + QStringLiteral("nopic.bmp");
    if (coverNumber != 0 && QFileInfo::exists(datapaths::coverFile(dataFolder, cover)))
        return datapaths::coverFile(dataFolder, cover);
    return QFileInfo::exists(placeholder) ? placeholder : QString();
}

} // namespace

std::variant<CdOnDisplay, RuntimeFailure> cdOnDisplay(const QString &dataFolder, const CdRow &row)
{
    CdOnDisplay shown;
    SheetContent &content = shown.content;
    content.title = row.name;
    content.comments = commentcodec::decode(row.comments);
    const std::optional<double> coverNumber = parseNumberText(row.cover);
    if (!coverNumber)
        return RuntimeFailure { 13, QStringLiteral("Typen unverträglich") };
    if (const QString cover = coverShown(dataFolder, row.cover, *coverNumber); !cover.isEmpty()) {
        content.cover = QImage(cover);
        if (content.cover.isNull())
            return RuntimeFailure { 481, QStringLiteral("Ungültiges Bild") };
    }

    shown.imagePath = datapaths::imageFile(dataFolder, row.imageId);
    content.imageId = QString::number(row.imageId);
    if (row.imageId == 0) {
        content.files = notAvailable;
        content.folders = notAvailable;
        return shown;
    }
    const std::shared_ptr<const ImageIndex> image = ImageIndex::load(shown.imagePath);
    if (!image->isLoaded()) {
        content.imageId = QStringLiteral("0");
        shown.imagePath = datapaths::imageFile(dataFolder, 0);
        content.files = QStringLiteral("0");
        content.folders = QStringLiteral("0");
        return shown;
    }
    content.files = QString::number(image->fileLineCount());
    content.folders = QString::number(image->folderLineCount() - 1);
    return shown;
}
