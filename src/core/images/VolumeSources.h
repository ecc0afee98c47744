#pragma once

#include <QString>

// Where the system tells which file systems are mounted and which ids and labels they have.
// Tests point these at files and folders of their own.
struct VolumeSources
{
    QString mountInfo = QStringLiteral("/proc/self/mountinfo");
    QString byUuid = QStringLiteral("/dev/disk/by-uuid");
    QString byLabel = QStringLiteral("/dev/disk/by-label");
};
