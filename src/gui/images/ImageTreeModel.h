#pragma once

#include <QAbstractItemModel>
#include <QIcon>
#include <QString>

#include <string>
#include <vector>

class ImageIndex;

// The folders of a drive image as a tree: ZIP and RAR files are folders like the others.
// A root shows the CD's title with its drive, "Meine CD (d:)"; every other folder its name.
// Each node keeps its key (the folder's path in the image) as the image spells it.
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

private:
    struct Node
    {
        std::string key;
        QString text;
        int parent = -1;
        int row = 0;
        std::vector<int> children;
    };

    QModelIndex indexOfNode(int node) const;

    std::vector<Node> m_nodes;
    std::vector<int> m_roots;
    QIcon m_folderIcon;
};
