#pragma once

#include "archives/ArchiveError.h"

#include <QImage>
#include <QString>

#include <functional>

// The cover files of a data folder: <data>/Covers/<n>.bmp, n drawn at random from 0 to
// 500000 until the name is free. Covers belong to no archive and are never overwritten.
class CoverStore
{
public:
    // Values from 0 up to, not including, 1.
    using RandomSource = std::function<double()>;

    explicit CoverStore(const QString &dataFolder, RandomSource random = systemRandom());

    static RandomSource systemRandom();

    // Stores the picture as a bitmap under a new number and returns that number as text.
    StoreResult<QString> save(const QImage &cover) const;
    // The stored picture of a number; null when there is no readable file.
    QImage load(const QString &number) const;
    void remove(const QString &number) const;
    QString fileOf(const QString &number) const;

private:
    QString m_dataFolder;
    RandomSource m_random;
};
