#pragma once

#include "QStringPrinting.h"
#include "app/Settings.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

// Sets an environment variable for the life of the object and restores the old state.
class ScopedEnvironment
{
public:
    ScopedEnvironment(const char *name, const QByteArray &value)
        : m_name(name)
        , m_hadValue(qEnvironmentVariableIsSet(name))
        , m_oldValue(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~ScopedEnvironment()
    {
        if (m_hadValue)
            qputenv(m_name, m_oldValue);
        else
            qunsetenv(m_name);
    }
    ScopedEnvironment(const ScopedEnvironment &) = delete;
    ScopedEnvironment &operator=(const ScopedEnvironment &) = delete;

private:
    const char *m_name;
    bool m_hadValue;
    QByteArray m_oldValue;
};

// A fresh temporary tree per test: the program folder ($SILBERBUCH_HOME) under "program",
// and a settings file of its own.
class AppTestFolder : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_root.isValid());
        m_home = std::make_unique<ScopedEnvironment>("SILBERBUCH_HOME", programPath().toLocal8Bit());
        m_settings = std::make_unique<Settings>(path(QStringLiteral("settings.ini")));
    }

    QString path(const QString &relative) const { return m_root.filePath(relative); }
    QString programPath() const { return path(QStringLiteral("program")); }
    Settings &settings() { return *m_settings; }

    static QByteArray fileBytes(const QString &file)
    {
        QFile f(file);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<unreadable>");
    }
    static void writeFile(const QString &file, const QByteArray &bytes)
    {
        QFile f(file);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate)) << file.toStdString();
        f.write(bytes);
    }

private:
    QTemporaryDir m_root;
    std::unique_ptr<ScopedEnvironment> m_home;
    std::unique_ptr<Settings> m_settings;
};
