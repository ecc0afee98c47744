#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

#include <cstdint>

// What a CD dialog holds when it is saved.
struct CdDraft
{
    QString numberText; // the number box as typed, e.g. "007"
    QString title;
    QStringList comments;
    int32_t imageId = 0; // 0: no drive image
    QImage cover {}; // the fitted cover, stored under a new number at saving; null for none
    // Written to cd_cover when there is no picture: "0", or the number of a cover whose file
    // has gone, which is kept rather than lost.
    QString keptCover = QStringLiteral("0");
};
