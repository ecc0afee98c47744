#include "ImageFileBuffer.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Closes the descriptor on every way out of load().
struct Descriptor
{
    int fd;
    ~Descriptor()
    {
        if (fd >= 0)
            ::close(fd);
    }
};

} // namespace

ImageFileBuffer::Status ImageFileBuffer::load(const QString &path)
{
    m_size = 0;
    const QByteArray name = QFile::encodeName(path);
    const Descriptor file{::open(name.constData(), O_RDONLY | O_CLOEXEC)};
    if (file.fd < 0)
        return errno == ENOENT || errno == ENOTDIR ? Status::Missing : Status::Unreadable;
    struct stat info {};
    if (::fstat(file.fd, &info) != 0)
        return Status::Unreadable;
    if (S_ISDIR(info.st_mode))
        return Status::Missing;
    // One read per image in the common case; a file that grows meanwhile is read to its end.
    size_t expected = static_cast<size_t>(info.st_size) + 1;
    for (;;) {
        if (m_size == m_capacity)
            grow(m_size < expected ? expected : m_size * 2);
        const ssize_t got = ::read(file.fd, m_data.get() + m_size, m_capacity - m_size);
        if (got < 0) {
            if (errno == EINTR)
                continue;
            m_size = 0;
            return Status::Unreadable;
        }
        if (got == 0)
            return Status::Loaded;
        m_size += static_cast<size_t>(got);
        expected = 0;
    }
}

void ImageFileBuffer::grow(size_t size)
{
    auto bigger = std::make_unique_for_overwrite<char[]>(size);
    std::copy(m_data.get(), m_data.get() + m_size, bigger.get());
    m_data = std::move(bigger);
    m_capacity = size;
}
