#pragma once

#include <functional>
#include <span>
#include <vector>

// What one column of a list asks for when the list divides its width.
struct ColumnNeed
{
    // The width it gets as its share of the list, 0 when it has no share of its own.
    int share = 0;
    // Never cut: at least as wide as its widest text, header included.
    bool whole = false;
    // The one column that takes whatever the others leave; its texts are elided when that is little.
    bool takesRest = false;
};

// The widths of a list's columns for the given width. Each column gets its share, a whole one
// at least its widest text (widestText(column)); the column that takes the rest gets what the
// others leave, but at least minimumRest.
std::vector<int> fitColumns(int available, std::span<const ColumnNeed> needs,
    const std::function<int(int column)> &widestText, int minimumRest);
