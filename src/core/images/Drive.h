#pragma once

#include <QString>

#include <cstdint>

// A drive of the catalogue: a letter standing for a mount point or a folder.
struct Drive
{
    QString letter; // "d:", lower case, as images begin with it
    QString mountPoint; // the folder the letter stands for
    QString label; // the file system's label, else the folder's name
    int32_t serial = 0; // the image id; 0 when nothing is mounted there

    // "d: [LABEL]" as the drive list shows it; the letter alone when there is no label.
    QString listText() const
    {
        return label.isEmpty() ? letter : letter + QStringLiteral(" [") + label + QLatin1Char(']');
    }
};
