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
#include "screen/ButtonFace.h"
#include "screen/SplitterLayout.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QFile>
#include <QMouseEvent>
#include <QStyle>
#include <QSystemTrayIcon>

namespace {

QIcon themeIcon(const char *name, QStyle::StandardPixmap fallback, const QStyle *style)
{
    return QIcon::fromTheme(QString::fromLatin1(name), style->standardIcon(fallback));
}

// The CD list pane's width as the window was designed.
constexpr float designListWidth = 3300;
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

    m_browser = new ImageBrowser(
        session, m_program.settings(), m_ui->folderTree, m_ui->fileList, m_ui->noIconsCheck, this);
    m_detail = std::make_unique<CdDetailView>(m_program,
        CdDetailControls { m_ui->cdList, m_ui->commentList, m_ui->titleLabel, m_ui->numberLabel,
            m_ui->serialLabel, m_ui->coverPicture, m_ui->fileCountLabel, m_ui->folderCountLabel,
            m_ui->paneStack, m_ui->imagePage },
        *m_browser);
    m_search = new SearchWindows(session, m_program.settings(),
        SearchLink { m_ui->cdList, m_ui->serialLabel, m_ui->numberLabel, m_ui->titleLabel }, this);
    connect(m_search, &SearchWindows::windowLoaded, &m_program, &Program::adopt);
    m_program.setOpener(QStringLiteral("PrintDialog"), [this](Program &program) {
        program.show<PrintDialog>(PrintLink { m_ui->cdList, m_ui->commentList, m_ui->titleLabel,
            m_ui->serialLabel, m_ui->fileCountLabel, m_ui->folderCountLabel, m_ui->coverPicture,
            [this] { m_ui->paneTabs->setCurrentIndex(1); },
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

    buildToolbar();
    buildTabs();
    connectMenus();

    connect(m_ui->cdList, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0)
            showSelectedCd();
    });
    m_ui->cdList->viewport()->installEventFilter(this);
    connect(m_ui->expandAllButton, &QPushButton::clicked, m_browser, &ImageBrowser::expandAllFolders);
    connect(m_ui->collapseAllButton, &QPushButton::clicked, m_browser, &ImageBrowser::collapseAllFolders);
    connect(m_ui->printTreeButton, &QPushButton::clicked, this,
        [this] { m_program.open(QStringLiteral("PrintDialog")); });

    // The bar's clamps are the layout's own: the list's frame would otherwise hold it at the
    // width of its title.
    m_ui->cdListBox->setMinimumWidth(twipsToPixels(SplitterLimits::mainWindow().objectLeftMinWidth));
    m_ui->mainSplitter->setStretchFactor(0, 0);
    m_ui->mainSplitter->setStretchFactor(1, 1);
    m_ui->mainSplitter->installEventFilter(this);
    connect(m_ui->mainSplitter, &QSplitter::splitterMoved, this, &MainWindow::layoutPanes);
    // The tree's pane may get narrow: its print button then shortens (see fitPrintTreeButton),
    // and the buttons under the tree don't hold the pane open.
    m_ui->treePane->setMinimumWidth(twipsToPixels(600));
    m_ui->printTreeButton->setMinimumWidth(1);
    m_ui->imageSplitter->installEventFilter(this);
    connect(m_ui->imageSplitter, &QSplitter::splitterMoved, this, &MainWindow::fitPrintTreeButton);
    setMinimumWidth(twipsToPixels(kResizeWidthFloor));

    setWindowTitle(windowTitle() + QStringLiteral("   |   Archiv: ") + session.archiveName);
    reloadCdList();
    if (isMinimizedStart(m_program.commandLine())) {
        m_tray->setToolTip(QStringLiteral("Silberbuch 5.1"));
        m_tray->show();
    }
    restoreLayout();
    m_ui->cdCountLabel->setText(QString::number(m_ui->cdList->count()));
}

MainWindow::~MainWindow() = default;

void MainWindow::buildToolbar()
{
    const QStyle *style = this->style();
    const struct
    {
        const char *key;
        const char *name;
        const char *tip;
        const char *icon;
        QStyle::StandardPixmap fallback;
    } buttons[] = {
        { "a", "changeArchiveButton", "In ein anderes Archiv wechseln", "document-open-symbolic",
            QStyle::SP_DialogOpenButton },
        { "b", nullptr, nullptr, nullptr, QStyle::SP_CustomBase },
        { "c", "newCdButton", "Neue CD hinzufügen", "list-add-symbolic", QStyle::SP_FileDialogNewFolder },
        { "d", "searchButton", "Suchen nach Dateien oder Kommentaren", "edit-find-symbolic",
            QStyle::SP_FileDialogContentsView },
        { "e", "printButton", "Drucken", "document-print-symbolic", QStyle::SP_ComputerIcon },
        { "f", nullptr, nullptr, nullptr, QStyle::SP_CustomBase },
        { "g", "commentsTabButton", "CD Kommentare anzeigen", "format-justify-left-symbolic",
            QStyle::SP_FileDialogDetailedView },
        { "h", "imageTabButton", "Abbild dieser CD anzeigen", "media-optical-symbolic",
            QStyle::SP_DriveCDIcon },
        { "i", "coverTabButton", "CD Cover und Zusatz-Informationen anzeigen", "image-x-generic-symbolic",
            QStyle::SP_FileIcon },
        { "j", nullptr, nullptr, nullptr, QStyle::SP_CustomBase },
        { "k", "newImageButton", "Für diese CD ein neues CD-Abbild erstellen", "drive-optical-symbolic",
            QStyle::SP_DriveDVDIcon },
        { "l", "editCdButton", "CD bearbeiten", "document-edit-symbolic", QStyle::SP_FileDialogInfoView },
        { "m", "deleteCdButton", "Diese CD löschen", "edit-delete-symbolic", QStyle::SP_TrashIcon },
        { "n", nullptr, nullptr, nullptr, QStyle::SP_CustomBase },
        { "o", "optionsButton", "Optionen", "emblem-system-symbolic", QStyle::SP_FileDialogListView },
        { "p", nullptr, nullptr, nullptr, QStyle::SP_CustomBase },
        { "q", "quitButton", "Programm beenden", "application-exit-symbolic", QStyle::SP_DialogCloseButton },
    };
    for (const auto &button : buttons) {
        const QString key = QString::fromLatin1(button.key);
        QAction *action = button.tip ? m_ui->toolBar->addAction(
                              themeIcon(button.icon, button.fallback, style), QString::fromUtf8(button.tip))
                                     : m_ui->toolBar->addSeparator();
        if (button.tip) {
            action->setObjectName(QString::fromLatin1(button.name));
            action->setToolTip(QString::fromUtf8(button.tip));
            connect(action, &QAction::triggered, this, [this, key] { runToolbarButton(key); });
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
    QTabBar *bar = m_ui->paneTabs;
    bar->setDrawBase(false);
    bar->setExpanding(false);
    for (const auto &tab : tabs) {
        const int index = bar->addTab(QString::fromUtf8(tab.caption));
        bar->setTabToolTip(index, QString::fromUtf8(tab.tip));
    }
    // Tabs added before the window is shown don't tell the layout their height by themselves.
    bar->updateGeometry();
    connect(bar, &QTabBar::currentChanged, this, &MainWindow::showSelectedTab);
}

void MainWindow::connectMenus()
{
    Ui::MainWindow &ui = *m_ui;
    const auto openNamed
        = [this](const char *name) { return [this, name] { m_program.open(QString::fromLatin1(name)); }; };
    connect(ui.archiveNewCdAction, &QAction::triggered, this, &MainWindow::showNewCd);
    connect(ui.changeArchiveAction, &QAction::triggered, this, &MainWindow::changeArchive);
    connect(ui.importAction, &QAction::triggered, this, openNamed("ImportDialog"));
    connect(ui.exportAction, &QAction::triggered, this, openNamed("ExportDialog"));
    connect(ui.quitAction, &QAction::triggered, this, &MainWindow::endRun);
    connect(ui.addCdAction, &QAction::triggered, this, &MainWindow::showNewCd);
    connect(ui.editCdAction, &QAction::triggered, this, &MainWindow::editSelectedCd);
    connect(ui.deleteCdAction, &QAction::triggered, this, &MainWindow::deleteSelectedCd);
    connect(ui.sortByTitleAction, &QAction::triggered, this, &MainWindow::sortByTitle);
    connect(ui.sortByNumberAction, &QAction::triggered, this, &MainWindow::sortByNumber);
    connect(ui.searchAction, &QAction::triggered, this, [this] {
        setCurrentCdFromSelection();
        showSearch();
    });
    connect(ui.printAction, &QAction::triggered, this, openNamed("PrintDialog"));
    connect(ui.optionsAction, &QAction::triggered, this, openNamed("OptionsDialog"));
    connect(ui.helpAction, &QAction::triggered, this, &MainWindow::showHelp);
    connect(ui.supportAction, &QAction::triggered, this, [this] {
        shellopen::open(this, QUrl(QStringLiteral("mailto:") + service::vendorMailAddress()
            + QStringLiteral("?Subject=Supportanfrage Silberbuch 5.0&Body=")));
    });
    connect(ui.wishAction, &QAction::triggered, this, openNamed("WishDialog"));
    connect(ui.updateCheckAction, &QAction::triggered, this, openNamed("UpdateCheckDialog"));
    connect(ui.homepageAction, &QAction::triggered, this,
        [this] { shellopen::open(this, QUrl(service::vendorWebAddress())); });
    connect(ui.aboutAction, &QAction::triggered, this, openNamed("AboutDialog"));
    connect(ui.trayAction, &QAction::triggered, this, &MainWindow::goToTrayFromMenu);

    // "In Tray" stands on its own at the right end of the menu bar.
    auto *corner = new QMenuBar(menuBar());
    corner->setObjectName(QStringLiteral("trayBar"));
    corner->addAction(ui.trayAction);
    menuBar()->setCornerWidget(corner, Qt::TopRightCorner);
}

MainWindowLink MainWindow::link()
{
    MainWindowLink link;
    link.window = this;
    link.selectedNumberText = [this] { return m_ui->numberLabel->text(); };
    link.reloadCdList = [this] { reloadCdList(); };
    link.sortByTitle = [this] { sortByTitle(); };
    return link;
}

// ---- CD list --------------------------------------------------------------------------

void MainWindow::fillList(const QStringList &entries)
{
    // Filling and emptying the list selects nothing, so the display stays.
    const QSignalBlocker quiet(m_ui->cdList);
    m_ui->cdList->clear();
    m_ui->cdList->addItems(entries);
    // Marks "no current entry" as chosen, so that taking the focus selects nothing.
    m_ui->cdList->setCurrentIndex(QModelIndex());
}

void MainWindow::reloadCdList()
{
    const int remembered = m_ui->cdList->currentRow();
    fillList({});
    m_ui->commentList->clear();
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
    if (remembered >= 0 && remembered < m_ui->cdList->count())
        m_ui->cdList->setCurrentRow(remembered);
    m_ui->cdCountLabel->setText(QString::number(m_ui->cdList->count()));
}

void MainWindow::sortByTitle()
{
    QStringList entries;
    for (int i = 0; i < m_ui->cdList->count(); ++i)
        entries << m_ui->cdList->item(i)->text();
    bool &sorted = m_program.session().listSorted;
    cdlist::sortByTitle(entries, sorted);
    if (!entries.isEmpty())
        fillList(entries);
}

void MainWindow::sortByNumber()
{
    reloadCdList();
    m_program.session().listSorted = false;
}

int16_t MainWindow::selectedCd() const
{
    const QListWidgetItem *entry = m_ui->cdList->currentItem();
    if (!entry)
        return -1;
    return cdlist::numberOf(entry->text()).value_or(-1);
}

void MainWindow::setCurrentCdFromSelection()
{
    m_program.session().currentCd = selectedCd();
}

void MainWindow::deleteSelectedCd()
{
    setCurrentCdFromSelection();
    deleteCd(m_program.session().currentCd);
}

void MainWindow::deleteCd(int16_t number, bool quietFailure)
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
            const QSignalBlocker quiet(m_ui->cdList);
            delete m_ui->cdList->takeItem(m_ui->cdList->currentRow());
            m_ui->cdList->setCurrentRow(-1);
        }
        Prompts::message(this, cdlist::deletedMessage(), Prompts::Icon::Information);
        m_ui->commentList->clear();
    }
    m_ui->cdCountLabel->setText(QString::number(m_ui->cdList->count()));
}

void MainWindow::showSelectedCd()
{
    m_detail->showSelectedCd();
}

// ---- tabs -----------------------------------------------------------------------------

int MainWindow::selectedTab() const
{
    return m_ui->paneTabs->currentIndex() + 1;
}

void MainWindow::showPane(int tab)
{
    QWidget *panes[] = { m_ui->commentsPage, m_ui->imagePage, m_ui->coverPage };
    m_ui->paneStack->setCurrentWidget(panes[tab - 1]);
}

void MainWindow::showSelectedTab()
{
    const int tab = selectedTab();
    if (tab != 2 || !m_ui->cdList->currentItem()) {
        showPane(tab);
        return;
    }
    if (!m_detail->imagePresent()) {
        Prompts::message(this, QStringLiteral("Kein CD Abbild vorhanden!"));
        m_ui->paneTabs->setCurrentIndex(0);
        return;
    }
    showPane(2);
    m_detail->showImage();
}

// ---- layout ---------------------------------------------------------------------------

void MainWindow::restoreLayout()
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
    m_ui->paneTabs->setCurrentIndex(layout.tab - 1);
    if (!m_ui->cdList->currentItem())
        showPane(layout.tab);
    if (layout.sorted)
        sortByTitle();
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
    QSplitter *splitter = m_ui->mainSplitter;
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
        = layoutSplitter(limits, barLeft, window, box(m_ui->cdListBox), box(m_ui->cdPane));
    const int left = twipsToPixels(layout.left.width);
    const int total = splitter->width() - splitter->handleWidth();
    splitter->setSizes({ left, std::max(total - left, 0) });
}

void MainWindow::fitPrintTreeButton()
{
    // The print button stays reachable however narrow the tree's pane: it shortens its caption
    // rather than cut it ("Ordnerstruk" helps nobody), and at last shows only its icon.
    QPushButton *button = m_ui->printTreeButton;
    const QString fullCaption = QStringLiteral("Ordnerstruktur Drucken");
    const QString shortCaption = QStringLiteral("Drucken");
    const QIcon icon = themeIcon("document-print-symbolic", QStyle::SP_ComputerIcon, style());
    const auto showFace = [button](const QString &caption, const QIcon &face) {
        button->setText(caption);
        button->setIcon(face);
        return button->sizeHint().width();
    };
    const int fullWidth = showFace(fullCaption, {});
    const int shortWidth = showFace(shortCaption, {});
    const QList<int> sizes = m_ui->imageSplitter->sizes();
    // The caption needs its room beside the two buttons that open and close the nodes.
    const int room = sizes.value(0) - m_ui->expandAllButton->width() - m_ui->collapseAllButton->width()
        - 2 * m_ui->treeButtons->spacing();
    switch (fitButtonFace(room, fullWidth, shortWidth)) {
    case ButtonFace::FullCaption:
        showFace(fullCaption, {});
        break;
    case ButtonFace::ShortCaption:
        showFace(shortCaption, {});
        break;
    case ButtonFace::IconOnly:
        showFace({}, icon);
        break;
    }
    button->setToolTip(fullCaption);
}

bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_ui->mainSplitter && event->type() == QEvent::Resize) {
        layoutPanes();
    } else if (watched == m_ui->imageSplitter && event->type() == QEvent::Resize) {
        // The tree keeps its share of the image tab whatever the tab's width.
        const int width = m_ui->imageSplitter->width() - m_ui->imageSplitter->handleWidth();
        const QList<int> sizes = m_ui->imageSplitter->sizes();
        const int share = sizes.size() == 2 && sizes[0] + sizes[1] > 0 && m_treeShareSet
            ? sizes[0] * 100 / (sizes[0] + sizes[1])
            : treeSharePercent;
        m_treeShareSet = true;
        m_ui->imageSplitter->setSizes({ width * share / 100, width - width * share / 100 });
        fitPrintTreeButton();
    } else if (watched == m_ui->cdList->viewport() && event->type() == QEvent::MouseButtonPress) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::RightButton) {
            // The row under the pointer is selected and offered the CD menu; below the
            // last row nothing happens.
            if (QListWidgetItem *item = m_ui->cdList->itemAt(mouse->position().toPoint())) {
                m_ui->cdList->setCurrentItem(item);
                m_ui->cdMenu->popup(mouse->globalPosition().toPoint());
            }
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

// ---- commands -------------------------------------------------------------------------

void MainWindow::runToolbarButton(const QString &key)
{
    setCurrentCdFromSelection();
    const int16_t cd = m_program.session().currentCd;
    const char k = key.isEmpty() ? ' ' : key.at(0).toLatin1();
    switch (k) {
    case 'a':
        changeArchive();
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
        m_ui->paneTabs->setCurrentIndex(k - 'g');
        break;
    case 'k':
        captureNewImage();
        break;
    case 'l':
        editSelectedCd();
        break;
    case 'm':
        deleteCd(cd, true);
        break;
    case 'o':
        m_program.open(QStringLiteral("OptionsDialog"));
        break;
    case 'q':
        endRun();
        break;
    default:
        break;
    }
}

void MainWindow::changeArchive()
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
    showDialog(m_newCdDialog);
}

void MainWindow::editSelectedCd()
{
    if (selectCurrentCd())
        showDialog(m_editCdDialog);
}

void MainWindow::captureNewImage()
{
    if (!selectCurrentCd())
        return;
    m_program.session().captureMode = QStringLiteral("1");
    showDialog(m_captureDialog);
}

void MainWindow::showSearch()
{
    m_search->showSearch();
}

void MainWindow::showHelp()
{
    // The page travels with the program and is put into the program folder for the browser,
    // unless one lies there already: the user's own page is never overwritten.
    const QString path = programFolder() + QStringLiteral("/Hilfe.html");
    if (!QFileInfo::exists(path))
        QFile::copy(resources::helpPage(), path);
    shellopen::open(this, QUrl::fromLocalFile(path));
}

void MainWindow::goToTrayFromMenu()
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

void MainWindow::endRun()
{
    m_tray->hide();
    m_program.closeAllWindows();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    storeLayout();
    hide();
    endRun();
    QMainWindow::closeEvent(event);
}
