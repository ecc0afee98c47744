#pragma once

#include "screen/ColumnFit.h"

class QTreeView;

// Sets the columns of a list to the widths fitColumns gives for the given width, measuring the
// widest text of each whole column as the view draws it.
void fitListColumns(QTreeView *view, int available, std::span<const ColumnNeed> needs, int minimumRest = 0);
