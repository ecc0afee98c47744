#pragma once

#include <QString>

#include <cstdint>

// One row of the table cds, field by field.
struct CdRow
{
    int32_t number = 0; // cd_nummer, unique within the archive
    QString name {}; // cd_name, at most 50 characters
    int32_t imageId = 0; // cd_seriennummer: the drive image's file name, 0 for none
    QString comments {}; // cd_inhalt, the encoded comment list
    bool lent = false; // cd_ausgeliehen
    QString cover = QStringLiteral("0"); // cd_cover: the cover file's number as text, "0" for none

    bool operator==(const CdRow &) const = default;
};
