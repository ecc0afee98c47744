#include "ImageTreeModel.h"

#include "images/ImageIndex.h"

#include <QApplication>
#include <QStyle>

namespace {

// Closed folder for a node, open folder for the selected one.
QIcon folderIcon()
{
    QIcon closed = QIcon::fromTheme(
        QStringLiteral("folder"), QApplication::style()->standardIcon(QStyle::SP_DirClosedIcon));
    const QIcon open = QIcon::fromTheme(
        QStringLiteral("folder-open"), QApplication::style()->standardIcon(QStyle::SP_DirOpenIcon));
    QIcon icon;
    for (const QSize &size : { QSize(16, 16), QSize(32, 32) }) {
        icon.addPixmap(closed.pixmap(size), QIcon::Normal);
        icon.addPixmap(open.pixmap(size), QIcon::Selected);
    }
    return icon;
}

} // namespace

ImageTreeModel::ImageTreeModel(QObject *parent)
    : QAbstractItemModel(parent)
    , m_folderIcon(folderIcon())
{
}

void ImageTreeModel::setImage(const ImageIndex &image, const QString &title)
{
    beginResetModel();
    m_tree = FolderTree(image, title);
    endResetModel();
}

void ImageTreeModel::clear()
{
    beginResetModel();
    m_tree = FolderTree();
    endResetModel();
}

QModelIndex ImageTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (column != 0 || row < 0)
        return {};
    const std::vector<int> &rows
        = parent.isValid() ? m_tree.node(nodeOf(parent)).children : m_tree.roots();
    if (row >= static_cast<int>(rows.size()))
        return {};
    return createIndex(row, 0, static_cast<quintptr>(rows[static_cast<size_t>(row)]));
}

QModelIndex ImageTreeModel::parent(const QModelIndex &child) const
{
    if (!child.isValid())
        return {};
    return indexOfNode(m_tree.node(nodeOf(child)).parent);
}

int ImageTreeModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return static_cast<int>(m_tree.roots().size());
    if (parent.column() != 0)
        return 0;
    return static_cast<int>(m_tree.node(nodeOf(parent)).children.size());
}

int ImageTreeModel::columnCount(const QModelIndex &) const
{
    return 1;
}

QVariant ImageTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const FolderTree::Node &node = m_tree.node(nodeOf(index));
    switch (role) {
    case Qt::DisplayRole:
        return node.text;
    case Qt::DecorationRole:
        return m_folderIcon;
    case KeyRole:
        return QByteArray(node.key.data(), static_cast<qsizetype>(node.key.size()));
    default:
        return {};
    }
}

QModelIndexList ImageTreeModel::allNodes() const
{
    QModelIndexList nodes;
    nodes.reserve(static_cast<qsizetype>(m_tree.nodes().size()));
    for (size_t node = 0; node < m_tree.nodes().size(); ++node)
        nodes << indexOfNode(static_cast<int>(node));
    return nodes;
}

QModelIndex ImageTreeModel::indexOfNode(int node) const
{
    if (node < 0)
        return {};
    return createIndex(m_tree.node(node).row, 0, static_cast<quintptr>(node));
}
