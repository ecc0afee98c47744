#pragma once

#include <QFile>

#include <cstdint>
#include <string>

// A ZIP written byte by byte, for what the fixtures do not hold: local headers only, since
// the lister never looks further. The date word 0x2A43 is 03.02.2001.
class ZipBytes
{
public:
    ZipBytes &entry(const std::string &name, const std::string &data, uint16_t dateWord = 0x2A43)
    {
        return header(name, static_cast<uint32_t>(data.size()), dateWord).raw(data);
    }
    // Version 20, no flags, stored, time 0, CRC 0.
    ZipBytes &header(const std::string &name, uint32_t size, uint16_t dateWord = 0x2A43)
    {
        raw("PK\x03\x04").put(20, 2).put(0, 6).put(dateWord, 2).put(0, 4).put(size, 4).put(size, 4);
        return put(name.size(), 2).put(0, 2).raw(name);
    }
    ZipBytes &raw(const std::string &bytes)
    {
        m_bytes += bytes;
        return *this;
    }
    ZipBytes &cutLast(size_t count)
    {
        m_bytes.resize(m_bytes.size() - count);
        return *this;
    }
    // Writes the file and gives its path in file system bytes.
    std::string writeTo(const QString &path) const
    {
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(m_bytes.data(), static_cast<qint64>(m_bytes.size()));
        return QFile::encodeName(path).toStdString();
    }

    // `count` stored one-byte entries "f0.txt", "f1.txt", ...
    static ZipBytes stored(int count)
    {
        ZipBytes zip;
        for (int i = 0; i < count; ++i)
            zip.entry("f" + std::to_string(i) + ".txt", "x");
        return zip;
    }

private:
    ZipBytes &put(uint64_t value, int bytes)
    {
        for (int i = 0; i < bytes; ++i, value >>= 8)
            m_bytes.push_back(static_cast<char>(value & 0xFF));
        return *this;
    }

    std::string m_bytes;
};
