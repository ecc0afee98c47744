#include "ColumnFit.h"

#include <algorithm>

std::vector<int> fitColumns(int available, std::span<const ColumnNeed> needs,
    const std::function<int(int column)> &widestText, int minimumRest)
{
    std::vector<int> widths(needs.size(), 0);
    int used = 0;
    for (size_t column = 0; column < needs.size(); ++column) {
        const ColumnNeed &need = needs[column];
        if (need.takesRest)
            continue;
        widths[column] = need.whole ? std::max(need.share, widestText(static_cast<int>(column))) : need.share;
        used += widths[column];
    }
    for (size_t column = 0; column < needs.size(); ++column)
        if (needs[column].takesRest)
            widths[column] = std::max(available - used, minimumRest);
    return widths;
}
