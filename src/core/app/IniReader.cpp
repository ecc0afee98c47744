#include "IniReader.h"

#include "DataFolder.h"
#include "common/Cp1252.h"

#include <QFile>

#include <algorithm>
#include <string_view>

namespace inireader {

namespace {

// The file's lines, read as the line input does; a line break at the very end adds no line.
std::optional<std::vector<QString>> readLines(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
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

std::vector<QString> readIniSectionNames(const QString &path)
{
    std::vector<QString> names;
    if (dirFinds(path)) {
        for (const QString &line : readLines(path).value_or(std::vector<QString>{})) {
            if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']')) && line.size() >= 2)
                names.push_back(line.mid(1, line.size() - 2));
        }
    }
    names.emplace_back();
    return names;
}

std::optional<std::vector<QString>> readIniSectionLines(const QString &path, const QString &section)
{
    const std::optional<std::vector<QString>> read = readLines(path);
    if (!read)
        return std::nullopt;
    // Line n of the file has index n; index 0 stays empty.
    std::vector<QString> lines{QString()};
    lines.insert(lines.end(), read->begin(), read->end());
    const size_t lastIndex = lines.size() - 1;
    const QString header = (QLatin1Char('[') + section + QLatin1Char(']')).toLower();

    size_t first = 0;
    size_t last = 0;
    for (size_t i = 1; i <= lastIndex && last == 0; ++i) {
        if (lines[i].toLower() != header)
            continue;
        first = i + 1;
        for (size_t j = first; j <= lastIndex; ++j) {
            if (isBlank(lines[j]) || lines[j].startsWith(QLatin1Char('[')) || j == lastIndex) {
                last = j;
                break;
            }
        }
    }
    // The header on the last line leaves no stop line behind it: nothing to return.
    if (first > last)
        return std::nullopt;
    if (first == last)
        return std::vector<QString>{QString()};
    return std::vector<QString>(lines.begin() + static_cast<std::ptrdiff_t>(first),
                                lines.begin() + static_cast<std::ptrdiff_t>(last) + 1);
}

} // namespace inireader
