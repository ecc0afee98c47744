#include "BufferedFileReader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

// Large enough that a listing of small entries reads the file in a few calls; behind a jump
// over large data a header is all that is wanted, so less is read there.
constexpr size_t kBlockSize = 64 * 1024;
constexpr size_t kBlockAfterSkip = 4 * 1024;

} // namespace

BufferedFileReader::BufferedFileReader(const std::string &path)
{
    m_fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (m_fd < 0)
        m_openError = errno;
    else
        m_buffer.resize(kBlockSize);
}

BufferedFileReader::~BufferedFileReader()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

bool BufferedFileReader::read(char *destination, size_t count)
{
    while (count > 0) {
        if (m_begin == m_end && !fill())
            return false;
        const size_t step = std::min(count, m_end - m_begin);
        std::memcpy(destination, m_buffer.data() + m_begin, step);
        m_begin += step;
        destination += step;
        count -= step;
    }
    return true;
}

void BufferedFileReader::skip(uint64_t count)
{
    const size_t buffered = m_end - m_begin;
    if (count <= buffered) {
        m_begin += static_cast<size_t>(count);
        return;
    }
    m_pendingSkip += count - buffered;
    m_begin = m_end = 0;
}

bool BufferedFileReader::fill()
{
    if (m_fd < 0)
        return false;
    size_t block = kBlockSize;
    if (m_pendingSkip > 0) {
        if (::lseek(m_fd, static_cast<off_t>(m_pendingSkip), SEEK_CUR) < 0)
            return false;
        m_pendingSkip = 0;
        block = kBlockAfterSkip;
    }
    ssize_t got;
    do {
        got = ::read(m_fd, m_buffer.data(), block);
    } while (got < 0 && errno == EINTR);
    if (got <= 0)
        return false;
    m_begin = 0;
    m_end = static_cast<size_t>(got);
    return true;
}
