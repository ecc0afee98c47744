#pragma once

#include <QString>

#include <optional>
#include <vector>

// Readers for the ".ini" text databases of older versions: code page 1252, lines ending in
// CR LF (a lone CR or LF ends a line too).
namespace inireader {

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
