#pragma once

#include <QByteArray>
#include <QString>

// Where the shared test data lies: $SILBERBUCH_FIXTURES, set by ctest for every test.
QString fixturePath(const QString &relative);

// The bytes of a file, or "<missing>" when it cannot be read, so that a missing file never
// equals an empty one.
QByteArray fileBytes(const QString &path);

// Writes the bytes, making the folders on the way; a failure fails the test. Gives the path.
QString writeFile(const QString &path, const QByteArray &bytes = {});
