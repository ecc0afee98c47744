#pragma once

#include "ImageIndex.h"

#include <QString>

#include <memory>

// Keeps the image last asked for, so that clicks on one CD and its folders read the file
// once. A changed file (size or modification time) or another path loads afresh.
class ImageIndexCache
{
public:
    std::shared_ptr<const ImageIndex> get(const QString &path);
    void clear() { m_image.reset(); }

private:
    std::shared_ptr<const ImageIndex> m_image;
};
