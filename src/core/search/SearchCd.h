#pragma once

#include <QString>

#include <cstdint>

// One CD as the file search sees it: what stands in front of each of its hits, and where its
// image lies.
struct SearchCd
{
    int32_t number = 0;
    QString title;
    int32_t imageId = 0; // 0: the CD has no image
};
