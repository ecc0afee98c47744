#include "IniReader.h"

#include "DataFolder.h"
#include "common/Cp1252.h"

#include <QFile>

#include <algorithm>
#include <string_view>

namespace inireader {

namespace {

// The text's lines, read as the line input does; a line break at the very end adds no line.
std::vector<QString> linesOf(const QByteArray &bytes)
{
    const std::string_view text(bytes.constData(), static_cast<size_t>(bytes.size()));
    std::vector<QString> lines;
    size_t start = 0;
    while (start < text.size()) {
        const size_t end = text.find_first_of("\r\n", start);
        if (end == std::string_view::npos) {
            lines.push_back(cp1252::toQString(text.substr(start)));
            break;
        }
        lines.push_back(cp1252::toQString(text.substr(start, end - start)));
        start = end + 1;
        if (text[end] == '\r' && start < text.size() && text[start] == '\n')
            ++start;
    }
    return lines;
}

// Only blanks count, as the old reader's trim removed nothing else.
bool isBlank(const QString &line)
{
    return std::all_of(line.begin(), line.end(), [](QChar c) { return c == QLatin1Char(' '); });
}

} // namespace

std::optional<IniText> IniText::read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return IniText(file.readAll());
}

IniText::IniText(const QByteArray &bytes)
    : m_lines { QString() }
{
    const std::vector<QString> read = linesOf(bytes);
    m_lines.insert(m_lines.end(), read.begin(), read.end());
    const size_t lastIndex = m_lines.size() - 1;
    // Stop lines: a blank line, a "[" line, or the file's last line.
    m_stop.assign(m_lines.size() + 1, lastIndex);
    for (size_t j = lastIndex; j >= 1; --j)
        m_stop[j] = isBlank(m_lines[j]) || m_lines[j].startsWith(QLatin1Char('[')) || j == lastIndex ? j : m_stop[j + 1];
    for (size_t i = 1; i <= lastIndex; ++i) {
        if (!m_lines[i].startsWith(QLatin1Char('[')))
            continue;
        const QString key = m_lines[i].toLower();
        if (!m_headers.contains(key))
            m_headers.insert(key, i);
    }
}

std::vector<QString> IniText::sectionNames() const
{
    std::vector<QString> names;
    for (size_t i = 1; i < m_lines.size(); ++i) {
        const QString &line = m_lines[i];
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']')) && line.size() >= 2)
            names.push_back(line.mid(1, line.size() - 2));
    }
    names.emplace_back();
    return names;
}

std::optional<std::vector<QString>> IniText::sectionLines(const QString &section) const
{
    const QString header = (QLatin1Char('[') + section + QLatin1Char(']')).toLower();
    const auto found = m_headers.constFind(header);
    if (found == m_headers.constEnd())
        return std::vector<QString> { QString() };
    const size_t first = *found + 1;
    // The header on the last line leaves no stop line behind it: nothing to return.
    if (first >= m_lines.size())
        return std::nullopt;
    const size_t last = m_stop[first];
    if (first == last)
        return std::vector<QString> { QString() };
    return std::vector<QString>(m_lines.begin() + static_cast<std::ptrdiff_t>(first),
        m_lines.begin() + static_cast<std::ptrdiff_t>(last) + 1);
}

std::vector<QString> readIniSectionNames(const QString &path)
{
    if (!dirFinds(path))
        return { QString() };
    const std::optional<IniText> text = IniText::read(path);
    return text ? text->sectionNames() : std::vector<QString> { QString() };
}

std::optional<std::vector<QString>> readIniSectionLines(const QString &path, const QString &section)
{
    const std::optional<IniText> text = IniText::read(path);
    if (!text)
        return std::nullopt;
    return text->sectionLines(section);
}

} // namespace inireader
