#pragma once

#include "QStringPrinting.h"
#include "TestPaths.h"
#include "app/Settings.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

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
