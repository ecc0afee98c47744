#pragma once

#include <QString>

#include <memory>
#include <string_view>

// Holds one whole image file in memory. A searcher keeps one buffer and loads image after
// image into it, so the memory is allocated once for the largest image and never cleared.
class ImageFileBuffer
{
public:
    enum class Status { Loaded, Missing, Unreadable };

    // Missing when no file of that name exists (a folder of that name counts as missing);
    // Unreadable when it exists but cannot be read to its end.
    Status load(const QString &path);

    // The bytes of the image loaded last.
    std::string_view text() const { return {m_data.get(), m_size}; }

private:
    void grow(size_t size);

    std::unique_ptr<char[]> m_data;
    size_t m_capacity = 0;
    size_t m_size = 0;
};
