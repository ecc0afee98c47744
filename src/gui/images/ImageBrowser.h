#pragma once

#include "images/ImageIndexCache.h"

#include "FileTypeIcons.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>
#include <string>

class FileListView;
class FolderListModel;
class FolderTree;
class ImageTreeModel;
class QCheckBox;
class QMenu;
class QModelIndex;
class QSortFilterProxyModel;
class QTreeView;
class QWidget;
class Settings;
struct Session;

// The image tab of the main window: the folder tree and the file list over the drive image
// of the CD on display, the list's popup menu (view and pictures) and the opening of a file
// from the list. The image is read once and kept until its file changes.
class ImageBrowser : public QObject
{
    Q_OBJECT

public:
    // The popup menu is made as a child of `window`, under the name "fileListMenu".
    ImageBrowser(Session &session, Settings &settings, QTreeView *tree, FileListView *list,
        QCheckBox *noIcons, QWidget *window);
    ~ImageBrowser() override;

    // The image at `path`, read anew only when its file has changed. Also serves the counts.
    std::shared_ptr<const ImageIndex> image(const QString &path);

    // Fills the tree from the image; a root shows `title` with its drive. An image that can't
    // be read leaves the tree empty.
    void loadImage(const QString &path, const QString &title);
    // Lists the files of one folder of the loaded image; the folder is the image's text, as a
    // node's key or anything else (which lists nothing). Becomes the current folder.
    void showFolder(const std::string &folder);
    // The text of the first node, empty without one.
    QString firstNodeText() const;
    void expandFirstNode();
    // Empties tree and list.
    void clearImage();
    void clearList();

    // The popup menu's entries: the four views, and file pictures on or off.
    void setView(int view);
    void showFileTypeIcons();
    void showStandardIcons();
    // The buttons under the tree: all nodes open, all closed.
    void expandAllFolders();
    void collapseAllFolders();
    // Sorts by the clicked column, the order turning at each click whatever the column.
    void sortByColumn(int section);
    // Opens the file of the selected item, or asks for its medium.
    void openSelectedFile();

    // The folders of the tree as loaded, and the tree's node that is selected, -1 for none.
    const FolderTree &folderTree() const;
    int selectedNode() const;
    QSortFilterProxyModel *listModel() const { return m_sorted; }

private:
    void showNode(const QModelIndex &node);
    void showSelectedNodeAgain();

    Session &m_session;
    Settings &m_settings;
    QTreeView *m_treeView;
    FileListView *m_listView;
    QCheckBox *m_noIcons;
    QPointer<QWidget> m_window;
    QMenu *m_fileListMenu;

    ImageIndexCache m_cache;
    QString m_path;
    ImageTreeModel *m_tree;
    FolderListModel *m_files;
    QSortFilterProxyModel *m_sorted;
    FileTypeIcons m_icons;
    bool m_descending = false; // the list starts ascending; each click turns the order round
};
