#pragma once

#include <QString>

class DriveTable;

// Where a path as an image holds it ("d:\Setup\start.exe") lies in the file system now: the
// folder that the drive letter stands for, then the rest of the path with "/" for "\".
// Empty when the path begins with no letter that the catalogue knows.
QString mediumPath(const QString &imagePath, DriveTable &drives);
