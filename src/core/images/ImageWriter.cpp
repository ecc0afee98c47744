#include "ImageWriter.h"

#include "ImageNames.h"

#include "common/DateText.h"

#include <QFile>

#include <charconv>

namespace {

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

} // namespace

ImageWriter::ImageWriter(std::string targetPath)
    : m_file(QFile::decodeName(QByteArray::fromStdString(targetPath)))
{
    m_buffer.reserve(kWriteSize + kWriteSize / 4);
}

ImageWriter::~ImageWriter() = default;

bool ImageWriter::open()
{
    return m_file.open();
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
    // A failed write is kept by the file and fails the commit.
    m_file.write(m_buffer.data(), static_cast<qint64>(m_finalEnd));
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
    return error() == 0;
}

bool ImageWriter::commit()
{
    return m_file.commit();
}
