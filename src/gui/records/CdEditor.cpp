#include "CdEditor.h"

#include "ui_CdEditor.h"

#include "TitleDriveDialog.h"
#include "CoverWindow.h"

#include "app/DataFolder.h"
#include "app/Session.h"
#include "app/Settings.h"
#include "archives/ArchiveStore.h"
#include "common/Prompts.h"
#include "images/DriveTable.h"
#include "images/CaptureDialog.h"
#include "records/CdSaveRules.h"
#include "records/CdSaver.h"
#include "records/CommentCodec.h"
#include "records/CoverImage.h"
#include "records/CoverStore.h"
#include "screen/FileDialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QStyle>

namespace {

const QString notPresent = QStringLiteral("Nicht vorhanden!");

bool isEnter(const QKeyEvent *key)
{
    return key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
}

// The number box takes digits and the backspace key; every other key that types something
// is swallowed. Keys that type nothing (arrows, Tab, Delete) keep their meaning.
bool numberBoxTakes(const QKeyEvent *key)
{
    if (key->key() == Qt::Key_Backspace || key->key() == Qt::Key_Delete || key->key() == Qt::Key_Tab
        || key->key() == Qt::Key_Backtab)
        return true;
    const QString text = key->text();
    return text.isEmpty() || (text.size() == 1 && text[0] >= u'0' && text[0] <= u'9');
}

QString imageInfoText()
{
    return QStringLiteral("Hier können Sie die komplette Dateien und Ordnerstruktur Ihres Datenträgers")
        + QStringLiteral("(CD, Festplatte, ...) einlesen und abspeichern lassen. Dabei werden sowohl")
        + QStringLiteral(
            "die Datei- / und Ordnernamen als auch die Größe und das Datum der Dateien gespeichert.")
        + QStringLiteral(
            "Der Inhalt der Dateien wird nicht gespeichert! Es wird nur ein Abbild der Datenstruktur "
            "erstellt.")
        + QStringLiteral("\r\n\r\n")
        + QStringLiteral("Dies dient dazu, dass wenn Sie z.b. später nach einer bestimmten Datei suchen")
        + QStringLiteral("(z.b. Mahnung_Müller.doc) im Silberbuch dies einfach als Suchbegriff eingeben")
        + QStringLiteral(
            "und das Programm kann Ihnen dann sofort sagen auf welchem Datenträger sich die gewünschte "
            "Datei befindet.")
        + QStringLiteral("Sehr nützlich ist dies z.b. auch zum Archivieren von MP3s, Dokumenten, etc.");
}

} // namespace

CdEditor::CdEditor(
    CdEditorVariant variant, Session &session, Settings &settings, MainWindowLink link, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_ui(std::make_unique<Ui::CdEditor>())
    , m_variant(std::move(variant))
    , m_session(session)
    , m_settings(settings)
    , m_link(std::move(link))
{
    m_ui->setupUi(this);
    setObjectName(m_variant.objectName);
    setWindowTitle(m_variant.caption);
    setAttribute(Qt::WA_DeleteOnClose);
    m_ui->imageBox->setTitle(m_variant.imageBoxTitle);
    m_ui->imageInfoButton->setIcon(style()->standardIcon(QStyle::SP_MessageBoxInformation));
    setStatus(m_ui->imageStatusLabel, m_ui->imageStatusLabel->text(), false);
    setStatus(m_ui->coverStatusLabel, m_ui->coverStatusLabel->text(), false);

    m_ui->titleEdit->installEventFilter(this);
    m_ui->numberEdit->installEventFilter(this);
    m_ui->newCommentEdit->installEventFilter(this);

    connect(m_ui->addCommentButton, &QPushButton::clicked, this, &CdEditor::addTypedComment);
    connect(m_ui->deleteCommentButton, &QPushButton::clicked, this, &CdEditor::deleteComment);
    connect(m_ui->editCommentButton, &QPushButton::clicked, this, [this] {
        const int line = selectedLine();
        if (line < 0) {
            QApplication::beep();
            return;
        }
        editComment(line);
    });
    if (m_variant.editsOnDoubleClick)
        connect(m_ui->commentList, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem *item) { editComment(m_ui->commentList->row(item)); });
    connect(m_ui->pasteCommentsButton, &QPushButton::clicked, this, &CdEditor::pasteComments);
    connect(m_ui->readTitleButton, &QPushButton::clicked, this, &CdEditor::readTitle);
    connect(m_ui->captureButton, &QPushButton::clicked, this, &CdEditor::startCapture);
    connect(m_ui->imageInfoButton, &QToolButton::clicked, this, &CdEditor::showImageInfo);
    connect(m_ui->chooseCoverButton, &QPushButton::clicked, this, &CdEditor::chooseCover);
    connect(m_ui->showCoverButton, &QPushButton::clicked, this, &CdEditor::showCover);
    connect(m_ui->cancelButton, &QPushButton::clicked, this, &CdEditor::cancel);
    connect(m_ui->saveButton, &QPushButton::clicked, this, &CdEditor::save);

    if (m_variant.editsSelectedRow)
        loadSelectedRow();
    else
        proposeNumber();
}

CdEditor::~CdEditor() = default;

void CdEditor::setCapturedImage(int32_t id)
{
    if (id == 0)
        return;
    m_imageId = id;
    setStatus(m_ui->imageStatusLabel, QStringLiteral("Vorhanden! ID: ") + QString::number(id), true);
}

bool CdEditor::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (watched == m_ui->numberEdit)
        return !numberBoxTakes(key);
    if (watched == m_ui->newCommentEdit && isEnter(key)) {
        addTypedComment();
        return true;
    }
    if (watched == m_ui->titleEdit && isEnter(key)) {
        m_ui->newCommentEdit->setFocus();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void CdEditor::proposeNumber()
{
    const auto rows = ArchiveStore(m_session.archivePath).selectAll();
    if (!rows.ok()) {
        Prompts::message(this, rows.error.message, Prompts::Icon::Critical);
        return;
    }
    if (!rows.value.empty())
        m_ui->numberEdit->setText(cdsaverules::proposeNumber(cdsaverules::numberList(rows.value)));
}

void CdEditor::loadSelectedRow()
{
    bool numeric = false;
    const int number = m_link.selectedNumberText ? m_link.selectedNumberText().toInt(&numeric) : 0;
    if (!numeric)
        return;
    const auto row = ArchiveStore(m_session.archivePath).selectByNumber(number);
    // A row that is gone leaves the dialog empty, without a word.
    if (!row.ok())
        return;
    m_ui->titleEdit->setText(row.value.name);
    m_ui->numberEdit->setText(QString::number(row.value.number));
    if (row.value.imageId == 0) {
        setStatus(m_ui->imageStatusLabel, notPresent, false);
    } else {
        m_imageId = row.value.imageId;
        setStatus(
            m_ui->imageStatusLabel, QStringLiteral("Vorhanden! ID: ") + QString::number(m_imageId), true);
    }
    m_rowCover = row.value.cover;
    if (m_rowCover == QLatin1String("0")) {
        setStatus(m_ui->coverStatusLabel, notPresent, false);
        m_ui->chooseCoverButton->setText(QStringLiteral("CD Cover Bild hinzufügen"));
    } else {
        setStatus(m_ui->coverStatusLabel, QStringLiteral("Vorhanden"), true);
        m_ui->chooseCoverButton->setText(QStringLiteral("CD Cover Bild ändern"));
        // Loaded as it is, so that saving stores it again under a new number.
        m_cover = CoverStore(dataFolder()).load(m_rowCover);
    }
    for (const QString &comment : commentcodec::decode(row.value.comments))
        m_ui->commentList->addItem(comment);
    if (m_ui->commentList->count() > 0)
        m_ui->deleteCommentButton->setEnabled(true);
}

void CdEditor::addComment(const QString &text)
{
    m_ui->deleteCommentButton->setEnabled(true);
    m_ui->commentList->addItem(text);
}

int CdEditor::selectedLine() const
{
    const QList<QListWidgetItem *> selected = m_ui->commentList->selectedItems();
    return selected.isEmpty() ? -1 : m_ui->commentList->row(selected.constFirst());
}

void CdEditor::addTypedComment()
{
    if (m_ui->newCommentEdit->text().isEmpty()) {
        QApplication::beep();
        return;
    }
    addComment(m_ui->newCommentEdit->text());
    m_ui->newCommentEdit->clear();
}

void CdEditor::deleteComment()
{
    const int line = selectedLine();
    if (line < 0) {
        QApplication::beep();
        return;
    }
    delete m_ui->commentList->takeItem(line);
    m_ui->commentList->clearSelection();
    m_ui->commentList->setCurrentItem(nullptr);
}

void CdEditor::editComment(int line)
{
    QListWidgetItem *item = m_ui->commentList->item(line);
    if (!item)
        return;
    const std::optional<QString> answer = Prompts::input(
        this, QStringLiteral("Kommentar bearbeiten"), QStringLiteral("Komentar bearbeiten"), item->text());
    if (answer && !answer->isEmpty())
        item->setText(*answer);
}

void CdEditor::pasteComments()
{
    // Text copied from a Windows program ends its lines in CR LF, text from here in LF.
    static const QRegularExpression lineEnd(QStringLiteral("\r?\n"));
    for (const QString &piece : QApplication::clipboard()->text().split(lineEnd))
        if (!piece.isEmpty())
            addComment(piece);
}

void CdEditor::readTitle()
{
    TitleDriveDialog dialog(m_session, m_settings, this);
    dialog.exec();
    // A cancel keeps the letter of the last choice; with none the title becomes empty.
    m_ui->titleEdit->setText(DriveTable(m_settings).volumeName(m_session.titleDriveLetter));
}

void CdEditor::startCapture()
{
    m_session.captureMode = m_variant.captureMode;
    if (!m_capture) {
        m_capture = new CaptureDialog(m_session, m_settings, m_link, this);
        connect(m_capture, &CaptureDialog::imageCaptured, this, &CdEditor::setCapturedImage);
    }
    m_capture->show();
    m_capture->raise();
    m_capture->activateWindow();
}

void CdEditor::showImageInfo()
{
    Prompts::message(this, imageInfoText(), Prompts::Icon::Information,
        QStringLiteral("Info: Laufwerksabbild / Abbild der Laufwerksstruktur"));
}

void CdEditor::chooseCover()
{
    FileDialogs dialog(this);
    dialog.filter = QStringLiteral("Bilddateien|*.jpg;*.gif;*.bmp;*.tif;*.png");
    dialog.askFileToOpen();
    if (dialog.fileName.isEmpty())
        return;
    const coverimage::Loaded loaded = coverimage::loadPicture(dialog.fileName);
    if (!loaded.error.isEmpty()) {
        if (m_variant.badPictureIsRuntimeError)
            Prompts::runtimeError(this, 481, QStringLiteral("Ungültiges Bild"));
        else
            Prompts::message(this, loaded.error);
        return;
    }
    m_coverPath = dialog.fileName;
    setStatus(m_ui->coverStatusLabel, QStringLiteral("Vorhanden"), true);
    m_cover = coverimage::fitCover(loaded.picture, 300, 300);
    m_ui->chooseCoverButton->setText(QStringLiteral("CD Cover Bild ändern"));
    if (m_variant.offersCoverView)
        m_ui->showCoverButton->setVisible(true);
}

void CdEditor::showCover()
{
    if (!m_coverView)
        m_coverView = new CoverWindow(this);
    m_coverView->setPicture(m_cover);
    m_coverView->show();
    m_coverView->raise();
}

void CdEditor::cancel()
{
    if (m_link.window)
        m_link.window->show();
    close();
}

void CdEditor::save()
{
    CdDraft draft;
    draft.numberText = m_ui->numberEdit->text();
    draft.title = m_ui->titleEdit->text();
    for (int i = 0; i < m_ui->commentList->count(); ++i)
        draft.comments << m_ui->commentList->item(i)->text();
    draft.imageId = m_imageId;
    // The caption says whether there is a cover. A row's cover whose file has gone is kept
    // as its number, since there is no picture to store anew.
    if (m_ui->coverStatusLabel->text() != notPresent) {
        draft.cover = m_cover;
        if (m_cover.isNull())
            draft.keptCover = m_rowCover;
    }

    const ArchiveStore store(m_session.archivePath);
    const CoverStore covers(dataFolder());
    const CdSaver saver(store, covers);
    CdSaver::Outcome outcome;
    if (m_variant.editsSelectedRow) {
        // The row is the one selected now, which may differ from the one the dialog opened with.
        bool numeric = false;
        const int oldNumber = m_link.selectedNumberText ? m_link.selectedNumberText().toInt(&numeric) : 0;
        outcome = numeric ? saver.saveChangedCd(oldNumber, draft)
                          : CdSaver::Outcome { false, QStringLiteral("Keine CD ausgewählt!") };
    } else {
        outcome = saver.saveNewCd(draft);
    }
    if (!outcome.saved) {
        Prompts::message(this, outcome.message, Prompts::Icon::Critical);
        return;
    }
    Prompts::message(this, outcome.message, Prompts::Icon::Information);

    m_ui->titleEdit->clear();
    m_ui->numberEdit->setText(QStringLiteral("0"));
    m_ui->newCommentEdit->setText(QStringLiteral("0"));
    setStatus(m_ui->coverStatusLabel, notPresent, false);
    setStatus(m_ui->imageStatusLabel, notPresent, false);
    m_ui->commentList->clear();
    m_link.refreshList(m_session);
    close();
}

void CdEditor::setStatus(QLabel *label, const QString &text, bool present)
{
    label->setText(text);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, present ? QColor(0, 0, 0) : QColor(255, 0, 0));
    label->setPalette(palette);
}

QString CdEditor::dataFolder() const
{
    return getDataFolder(m_session, m_settings);
}
