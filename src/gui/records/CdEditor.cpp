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
    m_ui->Frame3->setTitle(m_variant.frame3Caption);
    m_ui->Command10->setIcon(style()->standardIcon(QStyle::SP_MessageBoxInformation));
    setStatus(m_ui->Label3, m_ui->Label3->text(), false);
    setStatus(m_ui->Label10, m_ui->Label10->text(), false);

    m_ui->Text1->installEventFilter(this);
    m_ui->Text2->installEventFilter(this);
    m_ui->Text4->installEventFilter(this);

    connect(m_ui->Command9, &QPushButton::clicked, this, &CdEditor::addTypedComment);
    connect(m_ui->Command1, &QPushButton::clicked, this, &CdEditor::deleteComment);
    connect(m_ui->Command8, &QPushButton::clicked, this, [this] {
        const int line = selectedLine();
        if (line < 0) {
            QApplication::beep();
            return;
        }
        editComment(line);
    });
    if (m_variant.editsOnDoubleClick)
        connect(m_ui->List2, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem *item) { editComment(m_ui->List2->row(item)); });
    connect(m_ui->Command11, &QPushButton::clicked, this, &CdEditor::pasteComments);
    connect(m_ui->Command6, &QPushButton::clicked, this, &CdEditor::readTitle);
    connect(m_ui->Command2, &QPushButton::clicked, this, &CdEditor::startCapture);
    connect(m_ui->Command10, &QToolButton::clicked, this, &CdEditor::showImageInfo);
    connect(m_ui->Command4, &QPushButton::clicked, this, &CdEditor::chooseCover);
    connect(m_ui->Command7, &QPushButton::clicked, this, &CdEditor::showCover);
    connect(m_ui->Command5, &QPushButton::clicked, this, &CdEditor::cancel);
    connect(m_ui->Command3, &QPushButton::clicked, this, &CdEditor::save);

    if (m_variant.editsSelectedRow)
        loadSelectedRow();
    else
        proposeNumber();
}

CdEditor::~CdEditor() = default;

void CdEditor::enterid(int32_t id)
{
    if (id == 0)
        return;
    m_imageId = id;
    setStatus(m_ui->Label3, QStringLiteral("Vorhanden! ID: ") + QString::number(id), true);
}

bool CdEditor::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (watched == m_ui->Text2)
        return !numberBoxTakes(key);
    if (watched == m_ui->Text4 && isEnter(key)) {
        addTypedComment();
        return true;
    }
    if (watched == m_ui->Text1 && isEnter(key)) {
        m_ui->Text4->setFocus();
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
        m_ui->Text2->setText(cdsaverules::proposeNumber(cdsaverules::numberList(rows.value)));
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
    m_ui->Text1->setText(row.value.name);
    m_ui->Text2->setText(QString::number(row.value.number));
    if (row.value.imageId == 0) {
        setStatus(m_ui->Label3, notPresent, false);
    } else {
        m_imageId = row.value.imageId;
        setStatus(m_ui->Label3, QStringLiteral("Vorhanden! ID: ") + QString::number(m_imageId), true);
    }
    m_rowCover = row.value.cover;
    if (m_rowCover == QLatin1String("0")) {
        setStatus(m_ui->Label10, notPresent, false);
        m_ui->Command4->setText(QStringLiteral("CD Cover Bild hinzufügen"));
    } else {
        setStatus(m_ui->Label10, QStringLiteral("Vorhanden"), true);
        m_ui->Command4->setText(QStringLiteral("CD Cover Bild ändern"));
        // Loaded as it is, so that saving stores it again under a new number.
        m_cover = CoverStore(dataFolder()).load(m_rowCover);
    }
    for (const QString &comment : commentcodec::decode(row.value.comments))
        m_ui->List2->addItem(comment);
    if (m_ui->List2->count() > 0)
        m_ui->Command1->setEnabled(true);
}

void CdEditor::addComment(const QString &text)
{
    m_ui->Command1->setEnabled(true);
    m_ui->List2->addItem(text);
}

int CdEditor::selectedLine() const
{
    const QList<QListWidgetItem *> selected = m_ui->List2->selectedItems();
    return selected.isEmpty() ? -1 : m_ui->List2->row(selected.constFirst());
}

void CdEditor::addTypedComment()
{
    if (m_ui->Text4->text().isEmpty()) {
        QApplication::beep();
        return;
    }
    addComment(m_ui->Text4->text());
    m_ui->Text4->clear();
}

void CdEditor::deleteComment()
{
    const int line = selectedLine();
    if (line < 0) {
        QApplication::beep();
        return;
    }
    delete m_ui->List2->takeItem(line);
    m_ui->List2->clearSelection();
    m_ui->List2->setCurrentItem(nullptr);
}

void CdEditor::editComment(int line)
{
    QListWidgetItem *item = m_ui->List2->item(line);
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
    TitleDriveDialog form(m_session, m_settings, this);
    form.exec();
    // A cancel keeps the letter of the last choice; with none the title becomes empty.
    m_ui->Text1->setText(DriveTable(m_settings).volumeName(m_session.titleDriveLetter));
}

void CdEditor::startCapture()
{
    m_session.captureMode = m_variant.captureMode;
    if (!m_abbild) {
        m_abbild = new CaptureDialog(m_session, m_settings, m_link, this);
        connect(m_abbild, &CaptureDialog::imageCaptured, this, &CdEditor::enterid);
    }
    m_abbild->show();
    m_abbild->raise();
    m_abbild->activateWindow();
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
    setStatus(m_ui->Label10, QStringLiteral("Vorhanden"), true);
    m_cover = coverimage::fitCover(loaded.picture, 300, 300);
    m_ui->Command4->setText(QStringLiteral("CD Cover Bild ändern"));
    if (m_variant.offersCoverView)
        m_ui->Command7->setVisible(true);
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
    draft.numberText = m_ui->Text2->text();
    draft.title = m_ui->Text1->text();
    for (int i = 0; i < m_ui->List2->count(); ++i)
        draft.comments << m_ui->List2->item(i)->text();
    draft.imageId = m_imageId;
    // The caption says whether there is a cover. A row's cover whose file has gone is kept
    // as its number, since there is no picture to store anew.
    if (m_ui->Label10->text() != notPresent) {
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

    m_ui->Text1->clear();
    m_ui->Text2->setText(QStringLiteral("0"));
    m_ui->Text4->setText(QStringLiteral("0"));
    setStatus(m_ui->Label10, notPresent, false);
    setStatus(m_ui->Label3, notPresent, false);
    m_ui->List2->clear();
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
