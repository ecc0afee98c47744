#pragma once

#include "QStringPrinting.h"
#include "TestPaths.h"
#include "app/Settings.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <optional>

// Sets an environment variable for the life of the object and restores the old state.
class ScopedEnvironment
{
public:
    ScopedEnvironment(const char *name, const QByteArray &value)
        : m_name(name)
        , m_old(qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name)) : std::nullopt)
    {
        qputenv(name, value);
    }
    ~ScopedEnvironment() { m_old ? qputenv(m_name, *m_old) : qunsetenv(m_name); }
    ScopedEnvironment(const ScopedEnvironment &) = delete;
    ScopedEnvironment &operator=(const ScopedEnvironment &) = delete;

private:
    const char *m_name;
    std::optional<QByteArray> m_old;
};

// A fresh temporary tree per test: the program folder ($SILBERBUCH_HOME) under "program",
// and a settings file of its own.
class AppTestFolder : public ::testing::Test
{
protected:
    QString path(const QString &relative) const { return m_root.filePath(relative); }
    QString programPath() const { return path(QStringLiteral("program")); }
    Settings &settings() { return m_settings; }

private:
    QTemporaryDir m_root;
    ScopedEnvironment m_home { "SILBERBUCH_HOME", programPath().toLocal8Bit() };
    Settings m_settings { path(QStringLiteral("settings.ini")) };
};
