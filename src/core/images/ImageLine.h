#pragma once

#include <string_view>

// The shared reading rules of a drive image line (code page 1252 bytes, no line end).
// Every reader of images (browser, search, print, export, backup) cuts lines with these.
namespace imageline {

// A line beginning with ">" is a folder of some kind: root, folder or archive folder.
inline bool isFolder(std::string_view line)
{
    return !line.empty() && line.front() == '>';
}
// The root line ">d:" is the only line of length 3.
inline bool isRoot(std::string_view line)
{
    return isFolder(line) && line.size() == 3;
}

// The line up to, not including, its last backslash; empty when it has none (the end line).
std::string_view folderOf(std::string_view line);
// The key of a folder line: the line from its second character on.
std::string_view folderKey(std::string_view folderLine);
// Root: the key. Else the characters from the second up to, not including, the last backslash.
std::string_view parentKey(std::string_view folderLine);
// Root: the key. Else what follows the last backslash.
std::string_view nodeText(std::string_view folderLine);

// The fields of a file or entry line. Full path: before the first "|"; size: between the
// first and the last "|"; date: after the last "|"; name: after the last backslash of the
// full path.
struct FileFields
{
    std::string_view fullPath;
    std::string_view name;
    std::string_view size;
    std::string_view date;
};
// False for a line without "|", which the readers treat as malformed.
bool cutFileLine(std::string_view line, FileFields &fields);

// The file type: "dat" when the full path holds no "."; else the text after its last ".",
// the folders counting too, so a backslash can land in the type.
std::string_view fileType(std::string_view fullPath);

} // namespace imageline
