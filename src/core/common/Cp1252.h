#pragma once

#include <QString>

#include <array>
#include <string>
#include <string_view>

// Code page 1252, the single-byte encoding of every text file and name the catalogue keeps.
// The undefined positions 0x81, 0x8D, 0x8F, 0x90 and 0x9D round-trip through U+0081 etc.,
// as the Windows conversion does.
namespace cp1252 {

// UTF-8 to code page 1252; a character outside the code page, or a broken UTF-8 sequence,
// becomes "?".
std::string fromUtf8(std::string_view utf8);
void appendFromUtf8(std::string_view utf8, std::string &out);

// Whether the code page has a byte for the Unicode character.
bool holds(char32_t codePoint);

// The characters of `text` that the code page lacks, each once, in their order.
QString missingCharacters(const QString &text);

// Whether `text` holds a control character (C0, DEL or C1; a NUL too).
bool holdsControlCharacter(const QString &text);

std::string toUtf8(std::string_view bytes);

QString toQString(std::string_view bytes);
std::string fromQString(const QString &text);

// Letter case by the rules of the code page: A-Z, the accented capitals 0xC0-0xDE (not the
// multiplication sign 0xD7) and Š Œ Ž Ÿ. ß has no capital here and stays as it is.
const std::array<unsigned char, 256> &lowerTable();
inline char toLower(char c)
{
    return static_cast<char>(lowerTable()[static_cast<unsigned char>(c)]);
}
void lowerInPlace(std::string &bytes);
std::string lower(std::string_view bytes);

} // namespace cp1252
