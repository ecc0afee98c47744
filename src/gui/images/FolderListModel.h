#pragma once

#include "images/ImageIndex.h"

#include <QAbstractTableModel>
#include <QIcon>
#include <QString>

#include <vector>

// The files of one folder of an image: name, size and date exactly as the image holds them,
// each row with the picture of its type.
class FolderListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Name, Size, Date };

    explicit FolderListModel(QObject *parent = nullptr);

    // `icons` holds one picture per entry of listing.iconTypes.
    void setListing(const ImageIndex::Listing &listing, std::vector<QIcon> icons);
    void clear();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    struct Row
    {
        QString name;
        QString size;
        QString date;
        int icon = 0;
    };

    std::vector<Row> m_rows;
    std::vector<QIcon> m_icons;
};
