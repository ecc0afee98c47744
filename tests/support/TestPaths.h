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

// Sets an environment variable for the life of the object, then restores or unsets it.
class ScopedEnvironment
{
public:
    ScopedEnvironment(const char *name, const QByteArray &value)
        : m_name(name)
        , m_old(qgetenv(name)) // null when unset
    {
        qputenv(name, value);
    }
    ~ScopedEnvironment() { m_old.isNull() ? qunsetenv(m_name) : qputenv(m_name, m_old); }

private:
    const char *m_name;
    QByteArray m_old;
};
