#pragma once

#include "HitList.h"
#include "ImageFileBuffer.h"

#include <QString>

#include <cstdint>
#include <string>

// One image to be searched and what came of it.
struct ImageScanJob
{
    int32_t cdNumber = 0;
    std::string entryPrefix; // number + "-" + title + "<", code page 1252
    QString path;
    HitList hits; // entryPrefix + line, in line order
    ImageFileBuffer::Status status = ImageFileBuffer::Status::Loaded;
};
