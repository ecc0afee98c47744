#include "ResultsModel.h"

void ResultsModel::setRows(std::vector<ResultColumns> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

int ResultsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int ResultsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ResultsModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const ResultColumns &columns = row(index.row());
    switch (index.column()) {
    case CdName:
        return columns.cd;
    case File:
        return columns.file;
    case Size:
        return columns.size;
    case Date:
        return columns.date;
    default:
        return {};
    }
}

QVariant ResultsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case CdName:
        return QStringLiteral("CD-Name");
    case File:
        return QStringLiteral("Dateien");
    case Size:
        return QStringLiteral("Größe");
    case Date:
        return QStringLiteral("Datum");
    default:
        return {};
    }
}
