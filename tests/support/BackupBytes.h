#pragma once

#include <QByteArray>
#include <QtEndian>

// A record of a backup as the format stores it: lengths little-endian, the short form below
// 65535 bytes, else the long one.
inline QByteArray backupRecord(const QByteArray &name, const QByteArray &content)
{
    const auto le = [](quint32 value, int bytes) {
        value = qToLittleEndian(value);
        return QByteArray(reinterpret_cast<const char *>(&value), bytes);
    };
    const auto length = [&le](qsizetype size) {
        const auto n = static_cast<quint32>(size);
        return size < 0xFFFF ? le(n, 2) : QByteArray(le(0xFFFF, 2) + le(n, 4));
    };
    return length(name.size()) + name + length(content.size()) + content;
}

// A whole backup file as the Windows version writes it: the count text, then the inner stream.
inline QByteArray backupFile(int count, const QByteArray &inner)
{
    return backupRecord("C:\\Programme\\Silberbuch\\TmpC.txt", ' ' + QByteArray::number(count) + " \r\n")
        + backupRecord("C:\\Backups\\alt.bup2", inner);
}
