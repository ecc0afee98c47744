#pragma once

#include "images/ArchiveListing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

// Compares a ZIP or RAR listing with the rows the image must get, row by row.
inline void expectRows(const ArchiveListing &listing, const std::vector<ArchiveEntry> &expected)
{
    EXPECT_TRUE(listing.error.isEmpty()) << listing.error.toStdString();
    ASSERT_EQ(listing.rows.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE("row " + std::to_string(i));
        EXPECT_EQ(listing.rows[i].name, expected[i].name);
        EXPECT_EQ(listing.rows[i].size, expected[i].size);
        EXPECT_EQ(listing.rows[i].date, expected[i].date);
    }
}
