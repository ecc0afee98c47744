#pragma once

#include "search/ResultColumns.h"

#include <QAbstractTableModel>

#include <vector>

// The rows of the result list: one per hit, in the columns CD-Name, Dateien, Größe and
// Datum, every cell a text. A folder hit has no size and no date.
class ResultsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { CdName, File, Size, Date, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    // Replaces all rows.
    void setRows(std::vector<ResultColumns> rows);
    const ResultColumns &row(int index) const { return m_rows[static_cast<size_t>(index)]; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    std::vector<ResultColumns> m_rows;
};
