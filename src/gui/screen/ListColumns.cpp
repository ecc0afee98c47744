#include "ListColumns.h"

#include <QHeaderView>
#include <QTreeView>

#include <algorithm>

void fitListColumns(QTreeView *view, int available, std::span<const ColumnNeed> needs, int minimumRest)
{
    const QAbstractItemView *items = view;
    const auto widestText = [view, items](int column) {
        const int header = view->header()->isHidden() ? 0 : view->header()->sectionSizeHint(column);
        return std::max(items->sizeHintForColumn(column), header);
    };
    const std::vector<int> widths = fitColumns(available, needs, widestText, minimumRest);
    for (size_t column = 0; column < widths.size(); ++column)
        view->header()->resizeSection(static_cast<int>(column), widths[column]);
}
