#include "ArchiveChooser.h"

#include "app/MainWindow.h"
#include "app/Program.h"
#include "ui_ArchiveChooser.h"

#include "app/Settings.h"
#include "archives/ArchiveCatalog.h"
#include "common/Prompts.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QTimer>

ArchiveChooser::ArchiveChooser(Program &program)
    : QWidget(nullptr, Qt::Window)
    , m_program(program)
    , m_ui(std::make_unique<Ui::ArchiveChooser>())
    , m_archiveMenu(new QMenu(QStringLiteral("Menu"), this))
    , m_openOnlyArchiveTimer(new QTimer(this))
    , m_unloadTimer(new QTimer(this))
{
    m_program.adopt(this);
    m_ui->setupUi(this);

    m_archiveMenu->setObjectName(QStringLiteral("archiveMenu"));
    QAction *openAction
        = m_archiveMenu->addAction(QStringLiteral("Archiv öffnen"), this, &ArchiveChooser::openTypedArchive);
    openAction->setObjectName(QStringLiteral("openAction"));
    QAction *deleteAction
        = m_archiveMenu->addAction(QStringLiteral("Archiv löschen"), this, &ArchiveChooser::deleteArchive);
    deleteAction->setObjectName(QStringLiteral("deleteAction"));

    for (QTimer *timer : { m_openOnlyArchiveTimer, m_unloadTimer }) {
        timer->setSingleShot(true);
        timer->setInterval(1);
    }
    m_openOnlyArchiveTimer->setObjectName(QStringLiteral("openOnlyArchiveTimer"));
    m_unloadTimer->setObjectName(QStringLiteral("unloadTimer"));
    connect(m_openOnlyArchiveTimer, &QTimer::timeout, this, &ArchiveChooser::openTypedArchive);
    connect(m_unloadTimer, &QTimer::timeout, this, [this] { m_program.unload(this); });

    connect(m_ui->openButton, &QPushButton::clicked, this, &ArchiveChooser::openTypedArchive);
    connect(m_ui->createButton, &QPushButton::clicked, this, &ArchiveChooser::createArchive);
    connect(m_ui->cancelButton, &QPushButton::clicked, this, &ArchiveChooser::cancel);
    connect(m_ui->quitButton, &QPushButton::clicked, this, &ArchiveChooser::quit);
    connect(m_ui->defaultButton, &QPushButton::clicked, this, &ArchiveChooser::makeSelectedDefault);
    connect(m_ui->nameEdit, &QLineEdit::returnPressed, this, &ArchiveChooser::openTypedArchive);
    connect(m_ui->archiveList, &QListWidget::currentRowChanged, this, &ArchiveChooser::takeSelectedName);
    connect(m_ui->archiveList, &QListWidget::itemDoubleClicked, this, &ArchiveChooser::openSelectedArchive);
    m_ui->archiveList->viewport()->installEventFilter(this);

    m_files = ArchiveCatalog(m_program.dataFolder()).names();
    m_ui->archiveList->addItems(m_files);
    const int count = m_ui->archiveList->count();
    if (count == 1 && !m_program.session().changingArchive) {
        // The only archive opens by itself once the window has finished loading.
        m_ui->nameEdit->setText(m_ui->archiveList->item(0)->text());
        m_openOnlyArchiveTimer->start();
    } else if (count > 1) {
        m_ui->archiveList->setCurrentRow(0);
    } else if (count == 0) {
        createArchive();
    }
}

ArchiveChooser::~ArchiveChooser() = default;

void ArchiveChooser::takeSelectedName()
{
    if (QListWidgetItem *item = m_ui->archiveList->currentItem())
        m_ui->nameEdit->setText(item->text());
}

void ArchiveChooser::openTypedArchive()
{
    const QString typed = m_ui->nameEdit->text();
    if (m_ui->archiveList->currentRow() < 0 && typed.isEmpty()) {
        Prompts::message(this, QStringLiteral("Bitte wählen Sie ein Archiv aus der Liste aus!"));
        return;
    }
    if (typed.isEmpty())
        return;
    QStringList entries;
    for (int i = 0; i < m_ui->archiveList->count(); ++i)
        entries << m_ui->archiveList->item(i)->text();
    if (!archiveNameMatches(typed, entries)) {
        Prompts::message(this, archiveNotFoundMessage());
        return;
    }
    // A typed name with ".mdb" passes the test and gets the extension twice; that archive
    // then fails to open in the main window.
    Session &session = m_program.session();
    session.archivePath = ArchiveCatalog(m_program.dataFolder()).pathOf(typed);
    session.archiveName = typed;
    m_program.show<MainWindow>();
    session.archiveChosen = true;
    m_program.unload(this);
}

void ArchiveChooser::openSelectedArchive()
{
    QListWidgetItem *item = m_ui->archiveList->currentItem();
    if (!item)
        return;
    openChosen(item->text());
}

void ArchiveChooser::openChosen(const QString &name)
{
    Session &session = m_program.session();
    session.archivePath = ArchiveCatalog(m_program.dataFolder()).pathOf(name);
    session.archiveName = name;
    session.archiveChosen = true;
    m_program.unload(this);
    m_program.show<MainWindow>();
}

void ArchiveChooser::createArchive()
{
    for (;;) {
        const std::optional<QString> answer
            = Prompts::input(this, QStringLiteral("Bitte geben Sie einen Namen für das neue Archiv ein:"),
                QStringLiteral("Neues Archiv erstellen"));
        if (!answer || answer->isEmpty())
            return;
        const ArchiveCatalog catalog(m_program.dataFolder());
        const ArchiveError error = catalog.create(*answer, m_files);
        // A name taken or not allowed is asked for again.
        if (error.kind == ArchiveError::Kind::DuplicateName) {
            Prompts::message(this, error.message);
            continue;
        }
        if (error.kind == ArchiveError::Kind::BadName) {
            Prompts::message(this, error.message, Prompts::Icon::Critical);
            continue;
        }
        if (!error.ok()) {
            Prompts::message(this, error.message, Prompts::Icon::Critical);
            return;
        }
        Session &session = m_program.session();
        session.archivePath = catalog.pathOf(*answer);
        session.archiveName = *answer;
        m_program.show<MainWindow>();
        session.archiveChosen = true;
        // The press may come from within the load, where the window can't go yet.
        if (session.startedAskingArchive == QLatin1String("1"))
            m_unloadTimer->start();
        else
            m_program.unload(this);
        return;
    }
}

void ArchiveChooser::cancel()
{
    Session &session = m_program.session();
    // The open archive was deleted here: there is nothing to go back to but another archive.
    if (session.changingArchive && !QFileInfo::exists(session.archivePath)) {
        Prompts::message(this,
            QStringLiteral("Das geöffnete Archiv wurde gelöscht. Bitte wählen Sie ein anderes Archiv aus."),
            Prompts::Icon::Information);
        return;
    }
    if (session.changingArchive) {
        m_program.show<MainWindow>();
        session.archiveChosen = true;
    }
    m_program.unload(this);
}

void ArchiveChooser::quit()
{
    m_program.closeAllWindows();
}

void ArchiveChooser::makeSelectedDefault()
{
    QListWidgetItem *item = m_ui->archiveList->currentItem();
    if (!item) {
        Prompts::message(this, QStringLiteral("Fehler: Kein Archiv ausgewählt!"), Prompts::Icon::Critical);
        return;
    }
    const QString confirmation = setDefaultArchive(m_program.settings(), item->text());
    Prompts::message(this, confirmation.isEmpty() ? m_program.settings().writeFailure() : confirmation,
        confirmation.isEmpty() ? Prompts::Icon::Critical : Prompts::Icon::None);
}

void ArchiveChooser::deleteArchive()
{
    if (Prompts::message(this,
            QStringLiteral("Wollen Sie das ausgewählte Archiv wirklich unwiderruflich löschen?"),
            Prompts::Icon::None, QString(), Prompts::Buttons::YesNo)
        != Prompts::Answer::Yes)
        return;
    // The name comes from the text box; the files noted at load stay as they were, so the
    // deleted name stays taken until the window is opened again.
    const ArchiveError error = ArchiveCatalog(m_program.dataFolder()).remove(m_ui->nameEdit->text());
    if (!error.ok())
        Prompts::message(this, error.message, Prompts::Icon::Critical);
    delete m_ui->archiveList->takeItem(m_ui->archiveList->currentRow());
    if (error.ok() || error.kind == ArchiveError::Kind::NotFound)
        m_ui->nameEdit->clear();
}

void ArchiveChooser::closeEvent(QCloseEvent *event)
{
    // At a start, or when the open archive has been deleted, going away without a choice
    // ends the run.
    const Session &session = m_program.session();
    const bool openArchiveGone = session.changingArchive && !session.archiveChosen
        && !QFileInfo::exists(session.archivePath);
    if ((!session.changingArchive && !session.archiveChosen) || openArchiveGone)
        m_program.closeAllWindows();
    QWidget::closeEvent(event);
}

bool ArchiveChooser::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_ui->archiveList->viewport() && event->type() == QEvent::MouseButtonPress) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::RightButton) {
            // Only a row under the pointer is selected and offered the menu.
            if (QListWidgetItem *item = m_ui->archiveList->itemAt(mouse->position().toPoint())) {
                m_ui->archiveList->setCurrentItem(item);
                m_archiveMenu->popup(mouse->globalPosition().toPoint());
            }
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
