#pragma once

#include <QString>

// Where the shared test data lies: $SILBERBUCH_FIXTURES, set by ctest for every test.
QString fixturePath(const QString &relative);
