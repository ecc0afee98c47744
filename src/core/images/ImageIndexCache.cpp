#include "ImageIndexCache.h"

std::shared_ptr<const ImageIndex> ImageIndexCache::get(const QString &path)
{
    if (!m_image || m_image->path() != path || !m_image->isCurrent())
        m_image = ImageIndex::load(path);
    return m_image;
}
