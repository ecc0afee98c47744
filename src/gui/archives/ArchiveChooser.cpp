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
    , m_m1(new QMenu(QStringLiteral("Menu"), this))
    , m_timer1(new QTimer(this))
    , m_timer2(new QTimer(this))
{
    m_program.adopt(this);
    m_ui->setupUi(this);

    m_m1->setObjectName(QStringLiteral("m1"));
    QAction *mopen = m_m1->addAction(QStringLiteral("Archiv öffnen"), this, &ArchiveChooser::Command1_Click);
    mopen->setObjectName(QStringLiteral("mopen"));
    QAction *mdelete = m_m1->addAction(QStringLiteral("Archiv löschen"), this, &ArchiveChooser::mdelete_Click);
    mdelete->setObjectName(QStringLiteral("mdelete"));

    for (QTimer *timer : { m_timer1, m_timer2 }) {
        timer->setSingleShot(true);
        timer->setInterval(1);
    }
    m_timer1->setObjectName(QStringLiteral("Timer1"));
    m_timer2->setObjectName(QStringLiteral("Timer2"));
    connect(m_timer1, &QTimer::timeout, this, &ArchiveChooser::Command1_Click);
    connect(m_timer2, &QTimer::timeout, this, [this] { m_program.unload(this); });

    connect(m_ui->Command1, &QPushButton::clicked, this, &ArchiveChooser::Command1_Click);
    connect(m_ui->Command2, &QPushButton::clicked, this, &ArchiveChooser::Command2_Click);
    connect(m_ui->Command3, &QPushButton::clicked, this, &ArchiveChooser::Command3_Click);
    connect(m_ui->Command4, &QPushButton::clicked, this, &ArchiveChooser::Command4_Click);
    connect(m_ui->Command5, &QPushButton::clicked, this, &ArchiveChooser::Command5_Click);
    connect(m_ui->Text1, &QLineEdit::returnPressed, this, &ArchiveChooser::Command1_Click);
    connect(m_ui->List1, &QListWidget::currentRowChanged, this, &ArchiveChooser::List1_Click);
    connect(m_ui->List1, &QListWidget::itemDoubleClicked, this, &ArchiveChooser::List1_DblClick);
    m_ui->List1->viewport()->installEventFilter(this);

    m_files = ArchiveCatalog(m_program.dataFolder()).names();
    m_ui->List1->addItems(m_files);
    const int count = m_ui->List1->count();
    if (count == 1 && !m_program.session().changingArchive) {
        // The only archive opens by itself once the window has finished loading.
        m_ui->Text1->setText(m_ui->List1->item(0)->text());
        m_timer1->start();
    } else if (count > 1) {
        m_ui->List1->setCurrentRow(0);
    } else if (count == 0) {
        Command2_Click();
    }
}

ArchiveChooser::~ArchiveChooser() = default;

void ArchiveChooser::List1_Click()
{
    if (QListWidgetItem *item = m_ui->List1->currentItem())
        m_ui->Text1->setText(item->text());
}

void ArchiveChooser::Command1_Click()
{
    const QString typed = m_ui->Text1->text();
    if (m_ui->List1->currentRow() < 0 && typed.isEmpty()) {
        Prompts::message(this, QStringLiteral("Bitte wählen Sie ein Archiv aus der Liste aus!"));
        return;
    }
    if (typed.isEmpty())
        return;
    QStringList entries;
    for (int i = 0; i < m_ui->List1->count(); ++i)
        entries << m_ui->List1->item(i)->text();
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

void ArchiveChooser::List1_DblClick()
{
    QListWidgetItem *item = m_ui->List1->currentItem();
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

void ArchiveChooser::Command2_Click()
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
            m_timer2->start();
        else
            m_program.unload(this);
        return;
    }
}

void ArchiveChooser::Command3_Click()
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

void ArchiveChooser::Command4_Click()
{
    m_program.unloadAll();
}

void ArchiveChooser::Command5_Click()
{
    QListWidgetItem *item = m_ui->List1->currentItem();
    if (!item) {
        Prompts::message(this, QStringLiteral("Fehler: Kein Archiv ausgewählt!"), Prompts::Icon::Critical);
        return;
    }
    const QString confirmation = setDefaultArchive(m_program.settings(), item->text());
    Prompts::message(this, confirmation.isEmpty() ? m_program.settings().writeFailure() : confirmation,
        confirmation.isEmpty() ? Prompts::Icon::Critical : Prompts::Icon::None);
}

void ArchiveChooser::mdelete_Click()
{
    if (Prompts::message(this,
            QStringLiteral("Wollen Sie das ausgewählte Archiv wirklich unwiderruflich löschen?"),
            Prompts::Icon::None, QString(), Prompts::Buttons::YesNo)
        != Prompts::Answer::Yes)
        return;
    // The name comes from the text box; the files noted at load stay as they were, so the
    // deleted name stays taken until the window is opened again.
    const ArchiveError error = ArchiveCatalog(m_program.dataFolder()).remove(m_ui->Text1->text());
    if (!error.ok())
        Prompts::message(this, error.message, Prompts::Icon::Critical);
    delete m_ui->List1->takeItem(m_ui->List1->currentRow());
    if (error.ok() || error.kind == ArchiveError::Kind::NotFound)
        m_ui->Text1->clear();
}

void ArchiveChooser::closeEvent(QCloseEvent *event)
{
    // At a start, or when the open archive has been deleted, going away without a choice
    // ends the run.
    const Session &session = m_program.session();
    const bool openArchiveGone = session.changingArchive && !session.archiveChosen
        && !QFileInfo::exists(session.archivePath);
    if ((!session.changingArchive && !session.archiveChosen) || openArchiveGone)
        m_program.unloadAll();
    QWidget::closeEvent(event);
}

bool ArchiveChooser::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_ui->List1->viewport() && event->type() == QEvent::MouseButtonPress) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::RightButton) {
            // Only a row under the pointer is selected and offered the menu.
            if (QListWidgetItem *item = m_ui->List1->itemAt(mouse->position().toPoint())) {
                m_ui->List1->setCurrentItem(item);
                m_m1->popup(mouse->globalPosition().toPoint());
            }
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
