#include "CdDetailView.h"

#include "app/Program.h"
#include "common/Prompts.h"
#include "images/ImageBrowser.h"

#include "app/DataFolder.h"
#include "app/DataPaths.h"
#include "app/NumberText.h"
#include "archives/ArchiveStore.h"
#include "archives/CdList.h"
#include "common/Cp1252.h"
#include "records/CommentCodec.h"

#include <QLabel>
#include <QListWidget>
#include <QPixmap>
#include <QStackedWidget>

namespace {

const QString notAvailable = QStringLiteral("Nicht Verfügbar!");

} // namespace

CdDetailView::CdDetailView(Program &program, const CdDetailControls &controls, ImageBrowser &browser)
    : m_program(program)
    , m_ui(controls)
    , m_browser(browser)
{
}

void CdDetailView::showSelectedCd()
{
    m_ui.commentList->clear();
    QListWidgetItem *entry = m_ui.cdList->currentItem();
    if (!entry)
        return;
    const std::optional<int16_t> number = cdlist::numberOf(entry->text());
    if (!number || *number == 0)
        return;
    const StoreResult<CdRow> row = ArchiveStore(m_program.session().archivePath).selectByNumber(*number);
    if (row.error.kind == ArchiveError::Kind::NotFound)
        return;
    if (!row.ok()) {
        Prompts::message(m_ui.cdList->window(), row.error.message, Prompts::Icon::Critical);
        return;
    }
    const CdRow &cd = row.value;
    m_ui.titleLabel->setText(cd.name);
    m_ui.numberLabel->setText(QString::number(cd.number));
    m_ui.imageIdLabel->setText(QString::number(cd.imageId));
    m_ui.commentList->addItems(commentcodec::decode(cd.comments));
    if (!showCover(cd.cover))
        return;
    showCounts();

    if (m_ui.tabPanes->currentWidget() != m_ui.imagePane || m_ui.imageIdLabel->text() == QLatin1String("0"))
        return;
    showImage();
}

QString CdDetailView::imagePath()
{
    return datapaths::imageFile(m_program.dataFolder(), m_ui.imageIdLabel->text().toInt());
}

bool CdDetailView::imagePresent()
{
    return m_ui.imageIdLabel->text() != QLatin1String("0") && fileExists(imagePath());
}

void CdDetailView::showImage()
{
    m_browser.loadImage(imagePath(), m_ui.titleLabel->text());
    m_browser.showFolder(cp1252::fromQString(m_browser.firstNodeText() + QLatin1Char(':')));
    m_browser.expandFirstNode();
}

bool CdDetailView::showCover(const QString &cover)
{
    const std::optional<double> coverNumber = parseNumberText(cover);
    if (!coverNumber) {
        Prompts::runtimeError(m_ui.cdList->window(), 13, QStringLiteral("Typen unverträglich"));
        return false;
    }
    const QString data = m_program.dataFolder();
    const QString noPicture = datapaths::coverFolder(data) + QStringLiteral("nopic.bmp");
    QString picture;
    if (*coverNumber != 0) {
        const QString own = datapaths::coverFile(data, cover);
        if (fileExists(own))
            picture = own;
        else if (fileExists(noPicture))
            picture = noPicture;
        else
            return true; // the picture of the CD before stays
    } else if (fileExists(noPicture)) {
        picture = noPicture;
    }
    if (picture.isEmpty()) {
        m_ui.coverLabel->clear();
        return true;
    }
    const QPixmap pixmap(picture);
    if (pixmap.isNull()) {
        Prompts::runtimeError(m_ui.cdList->window(), 481, QStringLiteral("Ungültiges Bild"));
        return false;
    }
    // A cover larger than the box is shown whole, scaled down.
    const QSize box = m_ui.coverLabel->size();
    m_ui.coverLabel->setPixmap(pixmap.width() > box.width() || pixmap.height() > box.height()
            ? pixmap.scaled(box, Qt::KeepAspectRatio, Qt::SmoothTransformation)
            : pixmap);
    return true;
}

void CdDetailView::showCounts()
{
    if (m_ui.imageIdLabel->text() == QLatin1String("0")) {
        m_ui.fileCountLabel->setText(notAvailable);
        m_ui.folderCountLabel->setText(notAvailable);
        m_browser.clearImage();
        return;
    }
    const QString path = imagePath();
    if (!fileExists(path)) {
        // From here on the CD counts as one without an image; the old counts stay.
        m_browser.clearList();
        m_ui.imageIdLabel->setText(QStringLiteral("0"));
        m_browser.clearImage();
        return;
    }
    const std::shared_ptr<const ImageIndex> image = m_browser.image(path);
    m_ui.fileCountLabel->setText(QString::number(image->fileLineCount()));
    m_ui.folderCountLabel->setText(QString::number(image->folderLineCount() - 1));
}
