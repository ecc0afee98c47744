#pragma once

#include "images/FolderTree.h"

#include <QAbstractItemModel>
#include <QIcon>
#include <QString>

class ImageIndex;

// The folders of a drive image as the tree view's model.
class ImageTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Role { KeyRole = Qt::UserRole }; // QByteArray: the key's code page 1252 bytes

    explicit ImageTreeModel(QObject *parent = nullptr);

    void setImage(const ImageIndex &image, const QString &title);
    void clear();

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    // Every node, for opening or closing them all.
    QModelIndexList allNodes() const;
    const FolderTree &folderTree() const { return m_tree; }
    // The tree's node behind an index, -1 for none.
    static int nodeOf(const QModelIndex &index) { return index.isValid() ? static_cast<int>(index.internalId()) : -1; }

private:
    QModelIndex indexOfNode(int node) const;

    FolderTree m_tree;
    QIcon m_folderIcon;
};
