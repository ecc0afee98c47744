#include "CoverStore.h"

#include "app/DataPaths.h"
#include "common/Numbers.h"
#include "common/Temporaries.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

namespace {

constexpr double kNumberRange = 500000;

} // namespace

CoverStore::CoverStore(const QString &dataFolder, RandomSource random)
    : m_dataFolder(dataFolder)
    , m_random(std::move(random))
{
}

CoverStore::RandomSource CoverStore::systemRandom()
{
    return [] { return QRandomGenerator::global()->generateDouble(); };
}

StoreResult<QString> CoverStore::save(const QImage &cover) const
{
    const QString folder = datapaths::coverFolder(m_dataFolder);
    if (!QDir().mkpath(folder))
        return { {},
            { ArchiveError::Kind::FileError,
                QStringLiteral("Der Ordner \"") + QDir::toNativeSeparators(folder)
                    + QStringLiteral("\" kann nicht angelegt werden.") } };
    QString number;
    do
        number = QString::number(bankersRound(m_random() * kNumberRange));
    while (QFileInfo::exists(fileOf(number)));
    // Whole or not at all: a cut bitmap would stand under the number of a cover.
    QByteArray bitmap;
    QBuffer buffer(&bitmap);
    buffer.open(QIODevice::WriteOnly);
    if (!cover.save(&buffer, "BMP") || !temporaries::replaceFile(fileOf(number), bitmap))
        return { {},
            { ArchiveError::Kind::FileError,
                QStringLiteral("Das Cover-Bild \"") + QDir::toNativeSeparators(fileOf(number))
                    + QStringLiteral("\" kann nicht gespeichert werden.") } };
    return { number, {} };
}

QImage CoverStore::load(const QString &number) const
{
    return QImage(fileOf(number));
}

void CoverStore::remove(const QString &number) const
{
    QFile::remove(fileOf(number));
}

QString CoverStore::fileOf(const QString &number) const
{
    return datapaths::coverFile(m_dataFolder, number);
}
