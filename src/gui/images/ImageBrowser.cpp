#include "ImageBrowser.h"

#include "FileListView.h"
#include "FolderListModel.h"
#include "ImageTreeModel.h"
#include "app/ShellOpen.h"
#include "common/Prompts.h"
#include "search/MediumPath.h"

#include "app/Session.h"
#include "common/Cp1252.h"
#include "images/DriveTable.h"

#include <QApplication>
#include <QCheckBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QMenu>
#include <QSortFilterProxyModel>
#include <QTreeView>

ImageBrowser::ImageBrowser(Session &session, Settings &settings, QTreeView *tree, FileListView *list,
    QCheckBox *noIcons, QWidget *window)
    : QObject(window)
    , m_session(session)
    , m_settings(settings)
    , m_treeView(tree)
    , m_listView(list)
    , m_noIcons(noIcons)
    , m_window(window)
    , m_fileListMenu(new QMenu(window))
    , m_tree(new ImageTreeModel(this))
    , m_files(new FolderListModel(this))
    , m_sorted(new QSortFilterProxyModel(this))
{
    m_treeView->setModel(m_tree);
    m_treeView->setHeaderHidden(true);
    connect(m_treeView, &QTreeView::clicked, this, &ImageBrowser::showNode);
    connect(m_treeView->selectionModel(), &QItemSelectionModel::currentChanged, this,
        [this](const QModelIndex &node) {
            // A click lists the folder itself; this is for the keyboard.
            if (QApplication::mouseButtons() == Qt::NoButton)
                showNode(node);
        });

    // The list control's sort: texts on every column, sizes and dates too.
    m_sorted->setSourceModel(m_files);
    m_sorted->setSortCaseSensitivity(Qt::CaseInsensitive);
    m_sorted->setDynamicSortFilter(true);
    m_listView->setModel(m_sorted);
    connect(m_listView, &FileListView::headerClicked, this, &ImageBrowser::sortByColumn);
    connect(m_listView, &FileListView::itemDoubleClicked, this, &ImageBrowser::openSelectedFile);
    connect(m_listView, &FileListView::contextMenuRequested, this,
        [this](const QPoint &position) { m_fileListMenu->popup(position); });

    m_fileListMenu->setObjectName(QStringLiteral("fileListMenu"));
    QMenu *viewMenu = m_fileListMenu->addMenu(QStringLiteral("Ansicht"));
    viewMenu->setObjectName(QStringLiteral("viewMenu"));
    const struct
    {
        const char *name;
        const char *caption;
        FileListView::View view;
    } views[] = { { "largeIconsAction", "Große Symbole", FileListView::LargeIcons },
        { "smallIconsAction", "Kleine Symbole", FileListView::SmallIcons },
        { "listAction", "Liste", FileListView::List },
        { "detailsAction", "Details", FileListView::Details } };
    for (const auto &entry : views) {
        QAction *action = viewMenu->addAction(
            QString::fromUtf8(entry.caption), this, [this, view = entry.view] { setView(view); });
        action->setObjectName(QString::fromLatin1(entry.name));
    }
    QMenu *iconsMenu = m_fileListMenu->addMenu(QStringLiteral("Symbole"));
    iconsMenu->setObjectName(QStringLiteral("iconsMenu"));
    iconsMenu->addAction(QStringLiteral("Dateispezifische Symbole"), this, &ImageBrowser::showFileTypeIcons)
        ->setObjectName(QStringLiteral("fileTypeIconsAction"));
    iconsMenu
        ->addAction(QStringLiteral("Keine Symbole (Standardsymbol)"), this, &ImageBrowser::showStandardIcons)
        ->setObjectName(QStringLiteral("standardIconsAction"));
}

ImageBrowser::~ImageBrowser() = default;

std::shared_ptr<const ImageIndex> ImageBrowser::image(const QString &path)
{
    return m_cache.get(path);
}

void ImageBrowser::loadImage(const QString &path, const QString &title)
{
    clearImage();
    m_path = path;
    const std::shared_ptr<const ImageIndex> loaded = image(path);
    if (loaded->isLoaded())
        m_tree->setImage(*loaded, title);
}

void ImageBrowser::showFolder(const std::string &folder)
{
    m_session.currentFolder = cp1252::toQString(folder);
    const std::shared_ptr<const ImageIndex> loaded = image(m_path);
    const bool noIcons = m_noIcons->isChecked();
    const ImageIndex::Listing listing
        = loaded->listFolder(folder, noIcons ? ImageIndex::Icons::None : ImageIndex::Icons::FileSpecific);
    std::vector<QIcon> icons;
    icons.reserve(listing.iconTypes.size());
    for (const std::string_view type : listing.iconTypes)
        icons.push_back(m_icons.icon(cp1252::toQString(type)));
    m_files->setListing(listing, std::move(icons));
    m_listView->fitColumns();
}

QString ImageBrowser::firstNodeText() const
{
    return m_tree->index(0, 0).data().toString();
}

void ImageBrowser::expandFirstNode()
{
    m_treeView->expand(m_tree->index(0, 0));
}

void ImageBrowser::clearImage()
{
    m_tree->clear();
    clearList();
}

void ImageBrowser::clearList()
{
    m_files->clear();
}

void ImageBrowser::setView(int view)
{
    m_listView->setView(static_cast<FileListView::View>(view));
}

void ImageBrowser::showFileTypeIcons()
{
    m_noIcons->setChecked(false);
    showSelectedNodeAgain();
}

void ImageBrowser::showStandardIcons()
{
    m_noIcons->setChecked(true);
    showSelectedNodeAgain();
}

void ImageBrowser::showSelectedNodeAgain()
{
    const QModelIndex node = m_treeView->currentIndex();
    if (!node.isValid()) {
        Prompts::runtimeError(
            m_window, 91, QStringLiteral("Objektvariable oder With-Blockvariable nicht festgelegt"));
        return;
    }
    showNode(node);
}

void ImageBrowser::showNode(const QModelIndex &node)
{
    if (!node.isValid())
        return;
    const QByteArray key = node.data(ImageTreeModel::KeyRole).toByteArray();
    showFolder(std::string(key.constData(), static_cast<size_t>(key.size())));
}

void ImageBrowser::expandAllFolders()
{
    for (const QModelIndex &node : m_tree->allNodes())
        m_treeView->expand(node);
}

void ImageBrowser::collapseAllFolders()
{
    for (const QModelIndex &node : m_tree->allNodes())
        m_treeView->collapse(node);
}

void ImageBrowser::sortByColumn(int section)
{
    m_descending = !m_descending;
    const Qt::SortOrder order = m_descending ? Qt::DescendingOrder : Qt::AscendingOrder;
    m_sorted->sort(section, order);
    QHeaderView *header = m_listView->detailsView()->header();
    header->setSortIndicatorShown(true);
    header->setSortIndicator(section, order);
}

void ImageBrowser::openSelectedFile()
{
    const QModelIndex item = m_listView->currentIndex();
    if (!item.isValid())
        return;
    const QString folder = m_session.currentFolder;
    const QString lower = folder.toLower();
    // An entry of a ZIP or RAR file can't be opened by itself: the archive file is.
    const QString target = lower.endsWith(QLatin1String(".zip")) || lower.endsWith(QLatin1String(".rar"))
        ? folder
        : folder + QLatin1Char('\\') + item.siblingAtColumn(FolderListModel::Name).data().toString();
    DriveTable drives(m_settings);
    const QString local = mediumPath(target, drives);
    if (!local.isEmpty() && QFileInfo::exists(local)) {
        shellopen::open(m_listView->window(), QUrl::fromLocalFile(local));
        return;
    }
    Prompts::message(m_window,
        QStringLiteral("Bitte legen Sie den Datenträger ein, auf dem die Datei ") + target
            + QStringLiteral(" vorhanden ist!"));
}

const FolderTree &ImageBrowser::folderTree() const
{
    return m_tree->folderTree();
}

int ImageBrowser::selectedNode() const
{
    return ImageTreeModel::nodeOf(m_treeView->currentIndex());
}
