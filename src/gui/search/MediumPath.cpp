#include "MediumPath.h"

#include "images/DriveTable.h"

QString mediumPath(const QString &imagePath, DriveTable &drives)
{
    if (imagePath.size() < 2 || imagePath.at(1) != QLatin1Char(':'))
        return {};
    const std::optional<Drive> drive = drives.find(imagePath.left(2));
    if (!drive || drive->mountPoint.isEmpty())
        return {};
    QString rest = imagePath.mid(2);
    rest.replace(QLatin1Char('\\'), QLatin1Char('/'));
    QString root = drive->mountPoint;
    if (root.endsWith(QLatin1Char('/')))
        root.chop(1);
    return root + rest;
}
