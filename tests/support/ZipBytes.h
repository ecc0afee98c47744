#pragma once

#include "TestPaths.h"

#include <QFile>

#include <cstdint>
#include <string>

// ZIP bytes for what the fixtures do not hold: local headers only, since the lister never
// looks further. One stored entry dated 03.02.2001: version 20, time 0, CRC 0, the given
// general-purpose flags and extra field.
inline std::string zipEntry(
    const std::string &name, const std::string &data, uint16_t flags = 0, const std::string &extra = {})
{
    std::string out = "PK\x03\x04";
    const auto put = [&out](uint64_t value, int bytes) {
        for (int i = 0; i < bytes; ++i, value >>= 8)
            out.push_back(static_cast<char>(value & 0xFF));
    };
    for (const auto &[value, bytes] : { std::pair<uint64_t, int> { 20, 2 }, { flags, 2 }, { 0, 4 }, { 0x2A43, 2 },
             { 0, 4 }, { data.size(), 4 }, { data.size(), 4 }, { name.size(), 2 }, { extra.size(), 2 } })
        put(value, bytes);
    return out + name + extra + data;
}

// `count` one-byte entries "f0.txt", "f1.txt", ...
inline std::string zipEntries(int count)
{
    std::string out;
    for (int i = 0; i < count; ++i)
        out += zipEntry("f" + std::to_string(i) + ".txt", "x");
    return out;
}

// Writes `bytes` to `path` (a failure fails the test) and gives the path in file system bytes.
inline std::string writeZip(const QString &path, const std::string &bytes)
{
    return QFile::encodeName(writeFile(path, QByteArray::fromStdString(bytes))).toStdString();
}
