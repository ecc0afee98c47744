#include "ImageWriter.h"

#include "ImageNames.h"

#include "common/DateText.h"
#include "common/Temporaries.h"

#include <QFile>

#include <cerrno>
#include <charconv>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

const QString kTemporaryPrefix = QStringLiteral(".capture-");

// Lines are handed to the file system in pieces of about this size.
constexpr size_t kWriteSize = size_t { 1 } << 20;

void appendName(std::string_view name, std::string &out)
{
    const size_t start = out.size();
    out.append(name);
    imagenames::maskLineBreakers(out, start);
}

void appendNumber(long long value, std::string &out)
{
    char digits[24];
    const auto result = std::to_chars(digits, digits + sizeof digits, value);
    out.append(digits, result.ptr);
}

std::string folderOfPath(const std::string &path)
{
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string(".") : path.substr(0, slash);
}

} // namespace

ImageWriter::ImageWriter(std::string targetPath)
    : m_targetPath(std::move(targetPath))
{
    m_buffer.reserve(kWriteSize + kWriteSize / 4);
}

ImageWriter::~ImageWriter()
{
    if (m_fd >= 0)
        ::close(m_fd);
    if (!m_committed)
        removeTemporary();
}

bool ImageWriter::open()
{
    // Named after this process, so that a later capture can tell the file of a killed one.
    const QString folder = QFile::decodeName(QByteArray::fromStdString(folderOfPath(m_targetPath)));
    temporaries::removeStale(folder, kTemporaryPrefix);
    const std::string candidate = QFile::encodeName(temporaries::freshName(folder, kTemporaryPrefix)).toStdString();
    m_fd = ::open(candidate.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (m_fd < 0) {
        m_error = errno;
        return false;
    }
    m_tempPath = candidate;
    return true;
}

void ImageWriter::beginLine()
{
    m_starts.push_back(m_buffer.size());
}

void ImageWriter::endLine()
{
    m_buffer.append("\r\n", 2);
}

void ImageWriter::appendPath(std::string_view folder, std::string_view name)
{
    appendName(folder, m_buffer);
    if (folder.empty() || folder.back() != '\\')
        m_buffer.push_back('\\');
    appendName(name, m_buffer);
}

void ImageWriter::rootLine(std::string_view drive)
{
    beginLine();
    m_buffer.push_back('>');
    m_buffer.append(drive.substr(0, 3));
    endLine();
}

void ImageWriter::folderLine(std::string_view folder, std::string_view name)
{
    beginLine();
    m_buffer.push_back('>');
    appendPath(folder, name);
    endLine();
}

void ImageWriter::fileLine(std::string_view folder, std::string_view name, int64_t size, int64_t mtimeSeconds)
{
    beginLine();
    appendPath(folder, name);
    m_buffer.push_back('|');
    appendNumber(static_cast<int32_t>(static_cast<uint32_t>(size)), m_buffer);
    m_buffer.push_back('|');
    appendGermanDateText(utcDateTime(mtimeSeconds), m_buffer);
    endLine();
}

void ImageWriter::entryLine(std::string_view folder, std::string_view archive, std::string_view name,
    std::string_view size, std::string_view date)
{
    beginLine();
    appendPath(folder, archive);
    m_buffer.push_back('\\');
    appendName(name, m_buffer);
    m_buffer.push_back('|');
    m_buffer.append(size);
    m_buffer.push_back('|');
    m_buffer.append(date);
    endLine();
}

void ImageWriter::dropLastLine()
{
    if (m_starts.empty())
        return;
    m_buffer.resize(m_starts.back());
    m_starts.pop_back();
}

void ImageWriter::settle(size_t mayStillDrop)
{
    if (m_starts.size() > mayStillDrop) {
        const size_t firstKept = m_starts.size() - mayStillDrop;
        m_finalEnd = mayStillDrop == 0 ? m_buffer.size() : m_starts[firstKept];
        m_starts.erase(m_starts.begin(), m_starts.begin() + static_cast<std::ptrdiff_t>(firstKept));
    }
    if (m_finalEnd >= kWriteSize)
        writeOut();
}

void ImageWriter::writeOut()
{
    const char *data = m_buffer.data();
    size_t left = m_finalEnd;
    while (left > 0 && m_error == 0 && m_fd >= 0) {
        const ssize_t n = ::write(m_fd, data, left);
        if (n < 0) {
            if (errno != EINTR)
                m_error = errno;
            continue;
        }
        data += n;
        left -= static_cast<size_t>(n);
    }
    m_buffer.erase(0, m_finalEnd);
    for (size_t &start : m_starts)
        start -= m_finalEnd;
    m_finalEnd = 0;
}

bool ImageWriter::finish()
{
    settle(0);
    beginLine();
    endLine();
    settle(0);
    writeOut();
    if (m_fd >= 0) {
        if (m_error == 0 && ::fdatasync(m_fd) != 0)
            m_error = errno;
        if (::close(m_fd) != 0 && m_error == 0)
            m_error = errno;
        m_fd = -1;
    }
    return m_error == 0;
}

bool ImageWriter::commit()
{
    if (m_error != 0 || m_tempPath.empty())
        return false;
    if (::rename(m_tempPath.c_str(), m_targetPath.c_str()) != 0) {
        m_error = errno;
        return false;
    }
    m_committed = true;
    return true;
}

void ImageWriter::removeTemporary()
{
    if (!m_tempPath.empty())
        ::unlink(m_tempPath.c_str());
}
