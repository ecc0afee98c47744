#pragma once

#include <string>
#include <string_view>

// What a name may hold inside an image line. The line's grammar knows only "|" between the
// fields, "\" between the names of a path and CR LF at its end, and readers print names as
// they stand, so these characters cannot stay in a name.
namespace imagenames {

// The field separator "|" and the control characters 0x00-0x1F and 0x7F: CR and LF would
// end the line, the others would reach terminals and lists raw.
inline bool breaksLine(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F || c == '|';
}

// Every character from `from` on that breaks a line becomes "?", as a character outside the
// code page does.
void maskLineBreakers(std::string &text, size_t from = 0);

// A file or folder name of the volume (UTF-8) in its image form: code page 1252, with "?" for
// what breaks a line and for "\", which readers would take for a folder separator.
void appendVolumeName(std::string_view utf8, std::string &out);

} // namespace imagenames
