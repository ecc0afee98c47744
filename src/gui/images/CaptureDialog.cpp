#include "CaptureDialog.h"

#include "ui_CaptureDialog.h"

#include "CaptureRelay.h"
#include "ProgressWindow.h"

#include "app/DataFolder.h"
#include "app/Session.h"
#include "app/Settings.h"
#include "archives/ArchiveStore.h"
#include "common/Prompts.h"
#include "images/DriveTable.h"
#include "screen/ProgressLine.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QMenu>
#include <QThread>

namespace {

ProgressWindow::LineForWidth progressLine(quint32 folders, quint32 files, const QString &currentFolder)
{
    return [=](int width, const QFontMetrics &metrics) {
        return captureProgressLine(folders, files, currentFolder, width, metrics);
    };
}

} // namespace

CaptureDialog::CaptureDialog(Session &session, Settings &settings, MainWindowLink link, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_ui(std::make_unique<Ui::CaptureDialog>())
    , m_session(session)
    , m_settings(settings)
    , m_link(std::move(link))
{
    m_ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    m_ui->skipEmptyFoldersCaption->installEventFilter(this);

    // A stored drive that is gone leaves the list at its own default, without a word.
    DriveTable table(m_settings);
    m_ui->driveCombo->reload(table);
    if (!m_ui->driveCombo->selectDrive(m_settings.value(SettingKey::DefDrive, QStringLiteral("C:"))))
        m_ui->driveCombo->selectDrive(QStringLiteral("c:"));

    connect(m_ui->allFilesOption, &QRadioButton::clicked, this, &CaptureDialog::enableFilterEdit);
    connect(m_ui->filterOption, &QRadioButton::clicked, this, &CaptureDialog::enableFilterEdit);
    connect(m_ui->filterHelpButton, &QPushButton::clicked, this, &CaptureDialog::showFilterHelp);
    connect(m_ui->addFolderButton, &QPushButton::clicked, this, &CaptureDialog::addFolder);
    connect(m_ui->captureButton, &QPushButton::clicked, this, &CaptureDialog::captureNewImage);
    connect(m_ui->cancelButton, &QPushButton::clicked, this, &QWidget::close);
    m_ui->driveCombo->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_ui->driveCombo, &QWidget::customContextMenuRequested, this, [this](const QPoint &at) {
        if (QMenu *menu = driveMenu())
            menu->exec(m_ui->driveCombo->mapToGlobal(at));
    });
}

QMenu *CaptureDialog::driveMenu()
{
    DriveTable table(m_settings);
    if (!table.isAddedFolder(m_ui->driveCombo->letter()))
        return nullptr;
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu->addAction(QStringLiteral("Laufwerk entfernen")), &QAction::triggered, this, &CaptureDialog::removeDrive);
    return menu;
}

void CaptureDialog::removeDrive()
{
    DriveTable table(m_settings);
    const QString problem = table.removeFolder(m_ui->driveCombo->letter());
    if (!problem.isEmpty())
        Prompts::message(this, problem, Prompts::Icon::Critical);
    m_ui->driveCombo->reload(table);
    if (m_ui->driveCombo->currentIndex() < 0)
        m_ui->driveCombo->selectDrive(QStringLiteral("c:"));
}

CaptureDialog::~CaptureDialog()
{
    if (m_thread) {
        m_relay->cancel();
        m_thread->wait();
        QApplication::restoreOverrideCursor();
    }
}

void CaptureDialog::closeEvent(QCloseEvent *event)
{
    // A running capture is stopped first; its end reports and leaves the dialog open.
    if (m_thread) {
        m_relay->cancel();
        event->ignore();
        return;
    }
    QWidget::closeEvent(event);
}

bool CaptureDialog::eventFilter(QObject *watched, QEvent *event)
{
    // The caption of the check box wraps, so it stands beside it as a label that ticks it.
    if (watched == m_ui->skipEmptyFoldersCaption && event->type() == QEvent::MouseButtonRelease
        && m_ui->skipEmptyFoldersCheck->isEnabled()) {
        m_ui->skipEmptyFoldersCheck->toggle();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void CaptureDialog::setControlsEnabled(bool enabled)
{
    // The dialog itself stays enabled: the progress window is its child and takes the cancel.
    for (QWidget *control : { static_cast<QWidget *>(m_ui->filesGroup),
             static_cast<QWidget *>(m_ui->driveGroup), static_cast<QWidget *>(m_ui->optionsGroup),
             static_cast<QWidget *>(m_ui->captureButton), static_cast<QWidget *>(m_ui->cancelButton) })
        control->setEnabled(enabled);
}

void CaptureDialog::enableFilterEdit()
{
    m_ui->filterEdit->setEnabled(m_ui->filterOption->isChecked());
}

void CaptureDialog::showFilterHelp()
{
    Prompts::message(this,
        QStringLiteral("Geben Sie hier einen Filter ein. Wenn Sie z.B: *.txt eingeben, werden nur "
                       "Text-Dateien gesucht und eingelesen."));
}

void CaptureDialog::addFolder()
{
    Prompts::FileRequest request;
    request.mode = Prompts::FileRequest::Mode::Folder;
    request.title = QStringLiteral("Ordner als Laufwerk hinzufügen");
    request.directory = QDir::homePath();
    const std::optional<Prompts::FileAnswer> answer = Prompts::file(this, request);
    if (!answer)
        return;
    DriveTable table(m_settings);
    const Drive drive = table.driveForFolder(answer->path);
    if (drive.letter.isEmpty()) {
        Prompts::message(this,
            QStringLiteral("Der Ordner \"%1\" kann nicht als Laufwerk hinzugefügt werden: Er existiert "
                           "nicht, oder alle Laufwerksbuchstaben sind vergeben.")
                .arg(QDir::toNativeSeparators(answer->path)),
            Prompts::Icon::Critical);
        return;
    }
    m_ui->driveCombo->reload(table);
    m_ui->driveCombo->selectDrive(drive.letter);
}

void CaptureDialog::captureNewImage()
{
    if (m_thread)
        return;
    m_settings.setValue(SettingKey::DefDrive, m_ui->driveCombo->currentText());

    DriveTable table(m_settings);
    const std::optional<Drive> drive = table.find(m_ui->driveCombo->letter());
    const QString letter = drive ? drive->letter : m_ui->driveCombo->currentText().left(2).toLower();
    const QString root = drive ? drive->mountPoint : QString();
    const int32_t id = drive ? table.getSerial(*drive) : 0;
    const bool prune = m_ui->skipEmptyFoldersCheck->isChecked();
    const QString filter = m_ui->filterOption->isChecked() ? m_ui->filterEdit->text() : QStringLiteral("*.*");
    const QString dataFolder = getDataFolder(m_session, m_settings);

    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_progressWindow = new ProgressWindow(this);
    m_progressWindow->setCancellable(true);
    m_progressWindow->setProgressLine(progressLine(0, 0, letter));
    m_progressWindow->show();
    m_progressWindow->repaint();
    setControlsEnabled(false);

    m_relay = new CaptureRelay(this);
    connect(m_relay, &CaptureRelay::progressed, m_progressWindow,
        [this](quint32 folders, quint32 files, const QString &folder) {
            m_progressWindow->setProgressLine(progressLine(folders, files, folder));
        });
    connect(m_progressWindow, &ProgressWindow::cancelRequested, m_relay, &CaptureRelay::cancel);

    CaptureRelay *relay = m_relay;
    m_thread = QThread::create([this, relay, dataFolder, letter, root, id, filter, prune] {
        m_result = ImageCapture(dataFolder).capture(letter, root, id, filter, prune, relay);
    });
    connect(m_thread, &QThread::finished, this, &CaptureDialog::captureFinished);
    emit captureStarted();
    m_thread->start();
}

void CaptureDialog::captureFinished()
{
    m_thread->deleteLater();
    m_thread = nullptr;
    m_relay->deleteLater();
    m_relay = nullptr;
    QApplication::restoreOverrideCursor();
    if (m_progressWindow)
        m_progressWindow->close();
    setControlsEnabled(true);

    if (!m_result.ok()) {
        Prompts::message(
            this, m_result.error, m_result.cancelled ? Prompts::Icon::Information : Prompts::Icon::Critical);
        emit captureEnded();
        return;
    }
    Prompts::message(this, QStringLiteral("Der CD Inhalt wurde erfolgreich eingelesen!"));
    const QString mode = m_session.captureMode;
    if (mode == QLatin1String("1"))
        storeInSelectedCd(m_result.imageId);
    else if (mode == QLatin1String("2") || mode == QLatin1String("3"))
        emit imageCaptured(m_result.imageId);
    emit captureEnded();
    if (mode == QLatin1String("1") || mode == QLatin1String("2") || mode == QLatin1String("3"))
        close();
}

void CaptureDialog::storeInSelectedCd(int32_t id)
{
    const QString numberText = m_link.selectedNumberText ? m_link.selectedNumberText() : QString();
    bool numeric = false;
    const int number = numberText.toInt(&numeric);
    const ArchiveError error = numeric
        ? ArchiveStore(m_session.archivePath).setImageId(number, id)
        : ArchiveError::failure(ArchiveError::Kind::NotFound, QStringLiteral("Keine CD ausgewählt!"));
    if (!error.ok())
        Prompts::message(this, error.message, Prompts::Icon::Critical);
    if (m_link.window)
        m_link.window->setEnabled(true);
    m_link.refreshList(m_session);
    m_session.captureMode = QStringLiteral("0");
}
