#include "Cp1252.h"

#include <QList>

#include <algorithm>

namespace cp1252 {

namespace {

// Unicode code points of the bytes 0x80-0x9F; the rest of the code page equals Latin-1.
constexpr char16_t kHighControls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char32_t codePointOf(unsigned char byte)
{
    if (byte >= 0x80 && byte < 0xA0)
        return kHighControls[byte - 0x80];
    return byte;
}

char byteOf(char32_t codePoint)
{
    if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF))
        return static_cast<char>(codePoint);
    for (int i = 0; i < 32; ++i) {
        if (kHighControls[i] == codePoint)
            return static_cast<char>(0x80 + i);
    }
    return '?';
}

void appendUtf8(char32_t cp, std::string &out)
{
    if (cp < 0x80) {
        out.push_back(static_cast<char>(cp));
    } else if (cp < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    }
}

std::array<unsigned char, 256> makeLowerTable()
{
    std::array<unsigned char, 256> table{};
    for (int c = 0; c < 256; ++c)
        table[c] = static_cast<unsigned char>(c);
    for (int c = 'A'; c <= 'Z'; ++c)
        table[c] = static_cast<unsigned char>(c + 32);
    for (int c = 0xC0; c <= 0xDE; ++c) {
        if (c != 0xD7)
            table[c] = static_cast<unsigned char>(c + 32);
    }
    table[0x8A] = 0x9A; // Š
    table[0x8C] = 0x9C; // Œ
    table[0x8E] = 0x9E; // Ž
    table[0x9F] = 0xFF; // Ÿ
    return table;
}

} // namespace

void appendFromUtf8(std::string_view utf8, std::string &out)
{
    const auto *s = reinterpret_cast<const unsigned char *>(utf8.data());
    const size_t n = utf8.size();
    size_t i = 0;
    while (i < n) {
        const unsigned char lead = s[i];
        if (lead < 0x80) {
            out.push_back(static_cast<char>(lead));
            ++i;
            continue;
        }
        int length = 0;
        char32_t cp = 0;
        if ((lead & 0xE0) == 0xC0) {
            length = 2;
            cp = lead & 0x1F;
        } else if ((lead & 0xF0) == 0xE0) {
            length = 3;
            cp = lead & 0x0F;
        } else if ((lead & 0xF8) == 0xF0) {
            length = 4;
            cp = lead & 0x07;
        }
        bool valid = length > 0 && i + length <= n;
        for (int k = 1; valid && k < length; ++k) {
            if ((s[i + k] & 0xC0) != 0x80)
                valid = false;
            else
                cp = (cp << 6) | (s[i + k] & 0x3F);
        }
        if (!valid) {
            out.push_back('?');
            ++i;
            continue;
        }
        out.push_back(byteOf(cp));
        i += length;
    }
}

bool holds(char32_t codePoint)
{
    return codePoint == U'?' || byteOf(codePoint) != '?';
}

QString missingCharacters(const QString &text)
{
    QString missing;
    for (const char32_t c : text.toUcs4()) {
        const QString character = QString::fromUcs4(&c, 1);
        if (!holds(c) && !missing.contains(character))
            missing += character;
    }
    return missing;
}

bool holdsControlCharacter(const QString &text)
{
    const QList<uint> characters = text.toUcs4();
    return std::any_of(characters.begin(), characters.end(),
        [](uint c) { return QChar::category(char32_t { c }) == QChar::Other_Control; });
}

std::string fromUtf8(std::string_view utf8)
{
    std::string out;
    out.reserve(utf8.size());
    appendFromUtf8(utf8, out);
    return out;
}

std::string toUtf8(std::string_view bytes)
{
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 8);
    for (const char c : bytes)
        appendUtf8(codePointOf(static_cast<unsigned char>(c)), out);
    return out;
}

QString toQString(std::string_view bytes)
{
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (const char c : bytes)
        text.append(QChar(static_cast<char16_t>(codePointOf(static_cast<unsigned char>(c)))));
    return text;
}

std::string fromQString(const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    return fromUtf8(std::string_view(utf8.constData(), static_cast<size_t>(utf8.size())));
}

const std::array<unsigned char, 256> &lowerTable()
{
    static const std::array<unsigned char, 256> table = makeLowerTable();
    return table;
}

void lowerInPlace(std::string &bytes)
{
    const auto &table = lowerTable();
    for (char &c : bytes)
        c = static_cast<char>(table[static_cast<unsigned char>(c)]);
}

std::string lower(std::string_view bytes)
{
    std::string out(bytes);
    lowerInPlace(out);
    return out;
}

} // namespace cp1252
