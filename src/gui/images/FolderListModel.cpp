#include "FolderListModel.h"

#include "common/Cp1252.h"

FolderListModel::FolderListModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

void FolderListModel::setListing(const ImageIndex::Listing &listing, std::vector<QIcon> icons)
{
    beginResetModel();
    m_icons = std::move(icons);
    m_rows.clear();
    m_rows.reserve(listing.rows.size());
    for (const ImageIndex::Row &row : listing.rows)
        m_rows.push_back({ cp1252::toQString(row.name), cp1252::toQString(row.size),
            cp1252::toQString(row.date), row.icon });
    endResetModel();
}

void FolderListModel::clear()
{
    beginResetModel();
    m_rows.clear();
    m_icons.clear();
    endResetModel();
}

int FolderListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int FolderListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 3;
}

QVariant FolderListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= static_cast<int>(m_rows.size()))
        return {};
    const Row &row = m_rows[static_cast<size_t>(index.row())];
    if (role == Qt::DisplayRole) {
        switch (index.column()) {
        case Name:
            return row.name;
        case Size:
            return row.size;
        case Date:
            return row.date;
        default:
            return {};
        }
    }
    if (role == Qt::DecorationRole && index.column() == Name && row.icon < static_cast<int>(m_icons.size()))
        return m_icons[static_cast<size_t>(row.icon)];
    return {};
}

QVariant FolderListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Name:
        return QStringLiteral("Dateien");
    case Size:
        return QStringLiteral("Größe");
    case Date:
        return QStringLiteral("Zuletzt geändert");
    default:
        return {};
    }
}
