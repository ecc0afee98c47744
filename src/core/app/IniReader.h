#pragma once

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

// Readers for the ".ini" text databases of older versions: code page 1252, lines ending in
// CR LF (a lone CR or LF ends a line too).
namespace inireader {

// A ".ini" text read once, with the look-ups the readers below make, each in time linear in
// its result: an old database of thousands of sections is not read again for each one.
class IniText
{
public:
    // Nothing when the file cannot be read.
    static std::optional<IniText> read(const QString &path);
    explicit IniText(const QByteArray &bytes);

    // As readIniSectionNames.
    std::vector<QString> sectionNames() const;
    // As readIniSectionLines.
    std::optional<std::vector<QString>> sectionLines(const QString &section) const;

private:
    std::vector<QString> m_lines; // line n of the file at index n; index 0 stays empty
    std::vector<size_t> m_stop; // for each index the first stop line from there on
    QHash<QString, size_t> m_headers; // lower-cased "[" lines, the index of the first of each
};

// The names of all "[name]" lines, in file order, followed by one empty element (so the
// count of names is size() - 1). A missing file gives just the empty element.
std::vector<QString> readIniSectionNames(const QString &path);

// The lines after the first "[section]" line (compared case-insensitively, untrimmed), up
// to and including the stop line: the first blank line, the next "[" line or the file's
// last line, whichever comes first. Callers skip the stop line when they don't want it.
// When the stop line directly follows the header, and when the section is missing, the
// result is one empty element. No result when the header is the file's last line, or the
// file cannot be read.
std::optional<std::vector<QString>> readIniSectionLines(const QString &path, const QString &section);

} // namespace inireader
