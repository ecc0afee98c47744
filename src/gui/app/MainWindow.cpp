#include "MainWindow.h"

#include "Program.h"
#include "Resources.h"
#include "TrayAvailability.h"
#include "ShellOpen.h"
#include "archives/CdDetailView.h"
#include "archives/ArchiveChooser.h"
#include "common/Prompts.h"
#include "images/ImageBrowser.h"
#include "images/CaptureDialog.h"
#include "records/EditCdDialog.h"
#include "records/NewCdDialog.h"
#include "print/PrintDialog.h"
#include "search/SearchWindows.h"
#include "search/SearchDialog.h"
#include "ui_MainWindow.h"

#include "app/DataFolder.h"
#include "app/MainWindowLayout.h"
#include "app/Settings.h"
#include "app/StartDecision.h"
#include "archives/ArchiveStore.h"
#include "services/ServiceRequest.h"
#include "archives/JetConversion.h"
#include "archives/CdList.h"
#include "screen/SplitterLayout.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QFile>
#include <QMouseEvent>
#include <QStyle>
#include <QSystemTrayIcon>
#include <QTimer>

namespace {

QIcon themeIcon(const char *name, QStyle::StandardPixmap fallback, const QStyle *style)
{
    return QIcon::fromTheme(QString::fromLatin1(name), style->standardIcon(fallback));
}

// The CD list pane's width as the window was designed.
constexpr float designListWidth = 3300;
// Below this width of the tree's pane the print button under it has no room.
constexpr int printButtonRoom = 2295;
constexpr int treeSharePercent = 31;

} // namespace

MainWindow::MainWindow(Program &program)
    : m_program(program)
    , m_ui(std::make_unique<Ui::MainWindow>())
{
    m_program.adopt(this);
    resources::init();
    m_ui->setupUi(this);
    setWindowIcon(QIcon(resources::programIcon()));
    Session &session = m_program.session();

    m_browser = new ImageBrowser(session, m_program.settings(), m_ui->TV, m_ui->LV, m_ui->Check1, this);
    m_detail = std::make_unique<CdDetailView>(m_program,
        CdDetailControls { m_ui->List2, m_ui->List1, m_ui->Text2, m_ui->Label8, m_ui->lblsn, m_ui->Picture2,
            m_ui->lblDateien, m_ui->lblOrdner, m_ui->Frame2, m_ui->fr_2 },
        *m_browser);
    m_search = new SearchWindows(session, m_program.settings(),
        SearchLink { m_ui->List2, m_ui->lblsn, m_ui->Label8, m_ui->Text2 }, this);
    connect(m_search, &SearchWindows::windowLoaded, &m_program, &Program::adopt);
    m_program.setOpener(QStringLiteral("PrintDialog"), [this](Program &program) {
        program.show<PrintDialog>(PrintLink { m_ui->List2, m_ui->List1, m_ui->Text2, m_ui->lblsn, m_ui->lblDateien,
            m_ui->lblOrdner, m_ui->Picture2, [this] { m_ui->TabStrip1->setCurrentIndex(1); },
            [this]() -> const FolderTree & { return m_browser->folderTree(); },
            [this] { return m_browser->selectedNode(); } });
    });
    m_tray = new QSystemTrayIcon(QIcon(resources::programIcon()), this);
    connect(m_tray, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        const auto press = reason == QSystemTrayIcon::DoubleClick ? TrayDoubleClick::Press::LeftDouble
            : reason == QSystemTrayIcon::Trigger                  ? TrayDoubleClick::Press::Left
            : reason == QSystemTrayIcon::Context                  ? TrayDoubleClick::Press::Right
                                                                  : TrayDoubleClick::Press::Other;
        if (m_trayClicks.completes(press, m_trayClock.elapsed())) {
            show();
            raise();
            activateWindow();
        }
    });
    m_trayClock.start();
    m_timer1 = new QTimer(this);
    m_timer1->setObjectName(QStringLiteral("Timer1"));
    m_timer1->setSingleShot(true);
    m_timer1->setInterval(10);
    connect(m_timer1, &QTimer::timeout, m_browser, &ImageBrowser::fitColumns);

    buildToolbar();
    buildTabs();
    connectMenus();

    connect(m_ui->List2, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0)
            List2_Click();
    });
    m_ui->List2->viewport()->installEventFilter(this);
    connect(m_ui->Command5, &QPushButton::clicked, m_browser, &ImageBrowser::expandAllFolders);
    connect(m_ui->Command6, &QPushButton::clicked, m_browser, &ImageBrowser::collapseAllFolders);
    connect(m_ui->Command7, &QPushButton::clicked, this, [this] { m_program.open(QStringLiteral("PrintDialog")); });

    // The bar's clamps are the layout's own: the list's frame would otherwise hold it at the
    // width of its title.
    m_ui->Frame3->setMinimumWidth(twipsToPixels(SplitterLimits::mainWindow().objectLeftMinWidth));
    m_ui->splitterMain->setStretchFactor(0, 0);
    m_ui->splitterMain->setStretchFactor(1, 1);
    m_ui->splitterMain->installEventFilter(this);
    connect(m_ui->splitterMain, &QSplitter::splitterMoved, this, &MainWindow::layoutPanes);
    // The tree's pane may get narrow: its print button then goes (see splitterStep), and the
    // buttons under the tree don't hold the pane open.
    m_ui->Frame5->setMinimumWidth(twipsToPixels(600));
    m_ui->Command7->setMinimumWidth(1);
    m_ui->Splitter1->installEventFilter(this);
    connect(m_ui->Splitter1, &QSplitter::splitterMoved, this, &MainWindow::splitterStep);
    setMinimumWidth(twipsToPixels(kResizeWidthFloor));

    setWindowTitle(windowTitle() + QStringLiteral("   |   Archiv: ") + session.archiveName);
    refresh_cdlist();
    if (isMinimizedStart(m_program.commandLine())) {
        m_tray->setToolTip(QStringLiteral("Silberbuch 5.1"));
        m_tray->show();
    }
    getsettings();
    m_ui->Label9->setText(QString::number(m_ui->List2->count()));
}

MainWindow::~MainWindow() = default;

void MainWindow::buildToolbar()
{
    const QStyle *style = this->style();
    const struct
    {
        const char *key;
        const char *tip;
        const char *icon;
        QStyle::StandardPixmap fallback;
    } buttons[] = {
        { "a", "In ein anderes Archiv wechseln", "document-open-symbolic", QStyle::SP_DialogOpenButton },
        { "b", nullptr, nullptr, QStyle::SP_CustomBase },
        { "c", "Neue CD hinzufügen", "list-add-symbolic", QStyle::SP_FileDialogNewFolder },
        { "d", "Suchen nach Dateien oder Kommentaren", "edit-find-symbolic",
            QStyle::SP_FileDialogContentsView },
        { "e", "Drucken", "document-print-symbolic", QStyle::SP_ComputerIcon },
        { "f", nullptr, nullptr, QStyle::SP_CustomBase },
        { "g", "CD Kommentare anzeigen", "format-justify-left-symbolic", QStyle::SP_FileDialogDetailedView },
        { "h", "Abbild dieser CD anzeigen", "media-optical-symbolic", QStyle::SP_DriveCDIcon },
        { "i", "CD Cover und Zusatz-Informationen anzeigen", "image-x-generic-symbolic",
            QStyle::SP_FileIcon },
        { "j", nullptr, nullptr, QStyle::SP_CustomBase },
        { "k", "Für diese CD ein neues CD-Abbild erstellen", "drive-optical-symbolic",
            QStyle::SP_DriveDVDIcon },
        { "l", "CD bearbeiten", "document-edit-symbolic", QStyle::SP_FileDialogInfoView },
        { "m", "Diese CD löschen", "edit-delete-symbolic", QStyle::SP_TrashIcon },
        { "n", nullptr, nullptr, QStyle::SP_CustomBase },
        { "o", "Optionen", "emblem-system-symbolic", QStyle::SP_FileDialogListView },
        { "p", nullptr, nullptr, QStyle::SP_CustomBase },
        { "q", "Programm beenden", "application-exit-symbolic", QStyle::SP_DialogCloseButton },
    };
    for (const auto &button : buttons) {
        const QString key = QString::fromLatin1(button.key);
        QAction *action = button.tip ? m_ui->Toolbar1->addAction(
                              themeIcon(button.icon, button.fallback, style), QString::fromUtf8(button.tip))
                                     : m_ui->Toolbar1->addSeparator();
        action->setObjectName(key);
        if (button.tip) {
            action->setToolTip(QString::fromUtf8(button.tip));
            connect(action, &QAction::triggered, this, [this, key] { Toolbar1_ButtonClick(key); });
        }
    }
}

void MainWindow::buildTabs()
{
    const struct
    {
        const char *caption;
        const char *tip;
    } tabs[] = { { "CD Kommentare!", "Der manuell eingegebene CD-Inhalt" },
        { "CD Abbild", "Das Datenabbild" }, { "CD Cover / Infos ", "Zusätzliche Informationen zur CD" } };
    QTabBar *bar = m_ui->TabStrip1;
    bar->setDrawBase(false);
    bar->setExpanding(false);
    for (const auto &tab : tabs) {
        const int index = bar->addTab(QString::fromUtf8(tab.caption));
        bar->setTabToolTip(index, QString::fromUtf8(tab.tip));
    }
    // Tabs added before the window is shown don't tell the layout their height by themselves.
    bar->updateGeometry();
    connect(bar, &QTabBar::currentChanged, this, &MainWindow::TabStrip1_Click);
}

void MainWindow::connectMenus()
{
    Ui::MainWindow &ui = *m_ui;
    const auto openNamed
        = [this](const char *name) { return [this, name] { m_program.open(QString::fromLatin1(name)); }; };
    connect(ui.newarchivieren, &QAction::triggered, this, &MainWindow::showNewCd);
    connect(ui.open, &QAction::triggered, this, &MainWindow::open_Click);
    connect(ui.mnuImport, &QAction::triggered, this, openNamed("ImportDialog"));
    connect(ui.mnuExport, &QAction::triggered, this, openNamed("ExportDialog"));
    connect(ui.close, &QAction::triggered, this, &MainWindow::unloadall);
    connect(ui.mnunewCD, &QAction::triggered, this, &MainWindow::showNewCd);
    connect(ui.mnueditCD, &QAction::triggered, this, &MainWindow::changecd2);
    connect(ui.mnudeleteCD, &QAction::triggered, this, &MainWindow::mnudeleteCD_Click);
    connect(ui.sortListe, &QAction::triggered, this, &MainWindow::sortListe_Click);
    connect(ui.sortNummer, &QAction::triggered, this, &MainWindow::sortNummer_Click);
    connect(ui.mnusearch2, &QAction::triggered, this, [this] {
        setCurrentCdFromSelection();
        showSearch();
    });
    connect(ui.printt, &QAction::triggered, this, openNamed("PrintDialog"));
    connect(ui.mnuoptionss, &QAction::triggered, this, openNamed("OptionsDialog"));
    connect(ui.hilfe, &QAction::triggered, this, &MainWindow::hilfe_Click);
    connect(ui.mnusupport, &QAction::triggered, this, [this] {
        shellopen::open(this, QUrl(QStringLiteral("mailto:") + service::vendorMailAddress()
            + QStringLiteral("?Subject=Supportanfrage Silberbuch 5.0&Body=")));
    });
    connect(ui.mnuwunsch, &QAction::triggered, this, openNamed("WishDialog"));
    connect(ui.mnuUpdate, &QAction::triggered, this, openNamed("UpdateCheckDialog"));
    connect(ui.mnusofthome, &QAction::triggered, this, [this] { shellopen::open(this, QUrl(service::vendorWebAddress())); });
    connect(ui.about3, &QAction::triggered, this, openNamed("AboutDialog"));
    connect(ui.mntray, &QAction::triggered, this, &MainWindow::mntray_Click);

    // "In Tray" stands on its own at the right end of the menu bar.
    auto *corner = new QMenuBar(menuBar());
    corner->setObjectName(QStringLiteral("trayBar"));
    corner->addAction(ui.mntray);
    menuBar()->setCornerWidget(corner, Qt::TopRightCorner);
}

MainWindowLink MainWindow::link()
{
    MainWindowLink link;
    link.window = this;
    link.selectedNumberText = [this] { return m_ui->Label8->text(); };
    link.refresh_cdlist = [this] { refresh_cdlist(); };
    link.sortList1 = [this] { sortList1(); };
    return link;
}

// ---- CD list --------------------------------------------------------------------------

void MainWindow::fillList(const QStringList &entries)
{
    // Filling and emptying the list selects nothing, so the display stays.
    const QSignalBlocker quiet(m_ui->List2);
    m_ui->List2->clear();
    m_ui->List2->addItems(entries);
    // Marks "no current entry" as chosen, so that taking the focus selects nothing.
    m_ui->List2->setCurrentIndex(QModelIndex());
}

void MainWindow::refresh_cdlist()
{
    const int remembered = m_ui->List2->currentRow();
    fillList({});
    m_ui->List1->clear();
    // An archive of the Windows version becomes ours when it is first listed.
    const JetConversion conversion = convertIfJet(m_program.session().archivePath);
    if (!conversion.ok()) {
        Prompts::message(this, conversion.error.message, Prompts::Icon::Critical);
        return;
    }
    if (conversion.converted)
        Prompts::message(this, conversion.notice, Prompts::Icon::Information);
    const StoreResult<std::vector<CdRow>> rows = ArchiveStore(m_program.session().archivePath).selectAll();
    if (!rows.ok()) {
        Prompts::message(this, rows.error.message, Prompts::Icon::Critical);
        return;
    }
    if (rows.value.empty())
        return;
    const cdlist::Fill fill = cdlist::entriesOf(rows.value);
    fillList(fill.entries);
    if (!fill.error.isEmpty())
        Prompts::message(this, fill.error, Prompts::Icon::Critical);
    // The row, not the CD: after a change the same row may hold another CD.
    if (remembered >= 0 && remembered < m_ui->List2->count())
        m_ui->List2->setCurrentRow(remembered);
    m_ui->Label9->setText(QString::number(m_ui->List2->count()));
}

void MainWindow::sortList1()
{
    QStringList entries;
    for (int i = 0; i < m_ui->List2->count(); ++i)
        entries << m_ui->List2->item(i)->text();
    bool &sorted = m_program.session().listSorted;
    cdlist::sortList1(entries, sorted);
    if (!entries.isEmpty())
        fillList(entries);
}

void MainWindow::sortListe_Click()
{
    sortList1();
}

void MainWindow::sortNummer_Click()
{
    refresh_cdlist();
    m_program.session().listSorted = false;
}

int16_t MainWindow::selectedCd() const
{
    const QListWidgetItem *entry = m_ui->List2->currentItem();
    if (!entry)
        return -1;
    return cdlist::numberOf(entry->text()).value_or(-1);
}

void MainWindow::setCurrentCdFromSelection()
{
    m_program.session().currentCd = selectedCd();
}

void MainWindow::mnudeleteCD_Click()
{
    setCurrentCdFromSelection();
    deletecd(m_program.session().currentCd);
}

void MainWindow::deletecd(int16_t number, bool quietFailure)
{
    if (number < 0) {
        Prompts::message(this, cdlist::noCdSelectedMessage(), Prompts::Icon::Critical);
    } else if (Prompts::message(this, cdlist::deleteQuestion(number), Prompts::Icon::None, QString(),
                   Prompts::Buttons::YesNo)
        == Prompts::Answer::Yes) {
        const ArchiveError error = ArchiveStore(m_program.session().archivePath).deleteRow(number);
        if (!error.ok()) {
            if (!quietFailure)
                Prompts::message(this, error.message, Prompts::Icon::Critical);
            return;
        }
        {
            const QSignalBlocker quiet(m_ui->List2);
            delete m_ui->List2->takeItem(m_ui->List2->currentRow());
            m_ui->List2->setCurrentRow(-1);
        }
        Prompts::message(this, cdlist::deletedMessage(), Prompts::Icon::Information);
        m_ui->List1->clear();
    }
    m_ui->Label9->setText(QString::number(m_ui->List2->count()));
}

void MainWindow::List2_Click()
{
    m_detail->showSelectedCd();
}

// ---- tabs -----------------------------------------------------------------------------

int MainWindow::selectedTab() const
{
    return m_ui->TabStrip1->currentIndex() + 1;
}

void MainWindow::showPane(int tab)
{
    QWidget *panes[] = { m_ui->fr_1, m_ui->fr_2, m_ui->fr_3 };
    m_ui->Frame2->setCurrentWidget(panes[tab - 1]);
}

void MainWindow::TabStrip1_Click()
{
    const int tab = selectedTab();
    if (tab != 2 || !m_ui->List2->currentItem()) {
        showPane(tab);
        return;
    }
    if (!m_detail->imagePresent()) {
        Prompts::message(this, QStringLiteral("Kein CD Abbild vorhanden!"));
        m_ui->TabStrip1->setCurrentIndex(0);
        return;
    }
    showPane(2);
    m_detail->showImage();
}

// ---- layout ---------------------------------------------------------------------------

void MainWindow::getsettings()
{
    const LayoutLoad load = loadMainWindowLayout(m_program.settings());
    for (const QString &message : load.messages)
        Prompts::message(this, message, Prompts::Icon::Critical);
    const MainWindowLayout &layout = load.layout;
    resize(twipsToPixels(layout.widthTwips), twipsToPixels(layout.heightTwips));
    if (layout.windowState == MainWindowLayout::Minimized)
        setWindowState(windowState() | Qt::WindowMinimized);
    else if (layout.windowState == MainWindowLayout::Maximized)
        setWindowState(windowState() | Qt::WindowMaximized);
    m_ui->TabStrip1->setCurrentIndex(layout.tab - 1);
    if (!m_ui->List2->currentItem())
        showPane(layout.tab);
    if (layout.sorted)
        sortListe_Click();
}

void MainWindow::storeLayout()
{
    MainWindowLayout layout;
    layout.widthTwips = pixelsToTwips(width());
    layout.heightTwips = static_cast<float>(pixelsToTwips(height()));
    const Qt::WindowStates state = windowState();
    layout.windowState = state.testFlag(Qt::WindowMinimized) ? MainWindowLayout::Minimized
        : state.testFlag(Qt::WindowMaximized)                ? MainWindowLayout::Maximized
                                                             : MainWindowLayout::Normal;
    layout.tab = selectedTab();
    layout.sorted = m_program.session().listSorted;
    storeMainWindowLayout(m_program.settings(), layout);
}

void MainWindow::layoutPanes()
{
    QSplitter *splitter = m_ui->splitterMain;
    const QList<int> sizes = splitter->sizes();
    if (sizes.size() != 2)
        return;
    const SplitterLimits limits = SplitterLimits::mainWindow();
    const float margin = limits.fromLeftMin;
    const float barLeft
        = sizes[0] > 0 ? margin + static_cast<float>(pixelsToTwips(sizes[0])) : margin + designListWidth;
    const SplitterWindow window { static_cast<float>(pixelsToTwips(centralWidget()->width())),
        static_cast<float>(pixelsToTwips(centralWidget()->height())),
        static_cast<float>(pixelsToTwips(frameGeometry().width())) };
    const auto box = [](const QWidget *pane) {
        return PaneBox { static_cast<float>(pixelsToTwips(pane->x())),
            static_cast<float>(pixelsToTwips(pane->y())), static_cast<float>(pixelsToTwips(pane->width())),
            static_cast<float>(pixelsToTwips(pane->height())) };
    };
    const SplitterLayout layout
        = layoutSplitter(limits, barLeft, window, box(m_ui->Frame3), box(m_ui->Frame1));
    const int left = twipsToPixels(layout.left.width);
    const int total = splitter->width() - splitter->handleWidth();
    splitter->setSizes({ left, std::max(total - left, 0) });
}

void MainWindow::splitterStep()
{
    // The print button goes where the tree's pane is narrow, and also where its caption would
    // be cut: a button reading "Ordnerstruk" helps nobody.
    const QList<int> sizes = m_ui->Splitter1->sizes();
    // The caption needs its room beside the two buttons that open and close the nodes.
    const int row = m_ui->Command5->width() + m_ui->Command6->width() + 2 * m_ui->treeButtons->spacing()
        + m_ui->Command7->sizeHint().width();
    const bool room = !sizes.isEmpty() && pixelsToTwips(sizes[0]) >= printButtonRoom && sizes[0] >= row;
    m_ui->Command7->setVisible(room);
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    if (windowState().testFlag(Qt::WindowMinimized))
        return;
    m_timer1->start();
}

bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_ui->splitterMain && event->type() == QEvent::Resize) {
        layoutPanes();
    } else if (watched == m_ui->Splitter1 && event->type() == QEvent::Resize) {
        // The tree keeps its share of the image tab whatever the tab's width.
        const int width = m_ui->Splitter1->width() - m_ui->Splitter1->handleWidth();
        const QList<int> sizes = m_ui->Splitter1->sizes();
        const int share = sizes.size() == 2 && sizes[0] + sizes[1] > 0 && m_treeShareSet
            ? sizes[0] * 100 / (sizes[0] + sizes[1])
            : treeSharePercent;
        m_treeShareSet = true;
        m_ui->Splitter1->setSizes({ width * share / 100, width - width * share / 100 });
        splitterStep();
    } else if (watched == m_ui->List2->viewport() && event->type() == QEvent::MouseButtonPress) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::RightButton) {
            // The row under the pointer is selected and offered the CD menu; below the
            // last row nothing happens.
            if (QListWidgetItem *item = m_ui->List2->itemAt(mouse->position().toPoint())) {
                m_ui->List2->setCurrentItem(item);
                m_ui->mCD->popup(mouse->globalPosition().toPoint());
            }
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

// ---- commands -------------------------------------------------------------------------

void MainWindow::Toolbar1_ButtonClick(const QString &key)
{
    setCurrentCdFromSelection();
    const int16_t cd = m_program.session().currentCd;
    const char k = key.isEmpty() ? ' ' : key.at(0).toLatin1();
    switch (k) {
    case 'a':
        open_Click();
        break;
    case 'c':
        showNewCd();
        break;
    case 'd':
        showSearch();
        break;
    case 'e':
        m_program.open(QStringLiteral("PrintDialog"));
        break;
    case 'g':
    case 'h':
    case 'i':
        m_ui->TabStrip1->setCurrentIndex(k - 'g');
        break;
    case 'k':
        abbild2();
        break;
    case 'l':
        changecd2();
        break;
    case 'm':
        deletecd(cd, true);
        break;
    case 'o':
        m_program.open(QStringLiteral("OptionsDialog"));
        break;
    case 'q':
        unloadall();
        break;
    default:
        break;
    }
}

void MainWindow::open_Click()
{
    Program &program = m_program;
    program.session().changingArchive = true;
    program.unload(this);
    program.show<ArchiveChooser>();
}

template <class W> void MainWindow::showDialog(QPointer<W> &dialog)
{
    // One instance of each dialog, made on first use and gone when it closes.
    if (!dialog) {
        dialog = new W(m_program.session(), m_program.settings(), link(), this);
        m_program.adopt(dialog);
    }
    dialog->show();
    dialog->raise();
}

bool MainWindow::selectCurrentCd()
{
    setCurrentCdFromSelection();
    if (m_program.session().currentCd >= 0)
        return true;
    Prompts::message(this, cdlist::noCdSelectedMessage(), Prompts::Icon::Critical);
    return false;
}

void MainWindow::showNewCd()
{
    showDialog(m_newCD);
}

void MainWindow::changecd2()
{
    if (selectCurrentCd())
        showDialog(m_changecd);
}

void MainWindow::abbild2()
{
    if (!selectCurrentCd())
        return;
    m_program.session().captureMode = QStringLiteral("1");
    showDialog(m_abbild);
}

void MainWindow::showSearch()
{
    m_search->showSearch();
}

void MainWindow::hilfe_Click()
{
    // The page travels with the program and is put into the program folder for the browser,
    // unless one lies there already: the user's own page is never overwritten.
    const QString path = programFolder() + QStringLiteral("/Hilfe.html");
    if (!QFileInfo::exists(path))
        QFile::copy(resources::helpPage(), path);
    shellopen::open(this, QUrl::fromLocalFile(path));
}

void MainWindow::mntray_Click()
{
    goToTray();
    if (!tray::available() && !m_noTraySaid) {
        m_noTraySaid = true;
        Prompts::message(this,
            QStringLiteral("Es ist kein Infobereich vorhanden: Das Fenster wird stattdessen minimiert."),
            Prompts::Icon::Information);
    }
}

void MainWindow::goToTray()
{
    // Without a tray the window goes to the task bar: hidden, nothing would bring it back.
    if (!tray::available()) {
        showMinimized();
        return;
    }
    hide();
    // A second add fails while the icon is there, so the first tip stays.
    if (!m_tray->isVisible()) {
        m_tray->setToolTip(QStringLiteral("Silberbuch"));
        m_tray->show();
    }
}

void MainWindow::unloadall()
{
    m_tray->hide();
    m_program.unloadAll();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    storeLayout();
    hide();
    unloadall();
    QMainWindow::closeEvent(event);
}
