#pragma once

#include "ArchiveBuilder.h"
#include "TestPaths.h"

#include "app/DataFolder.h"
#include "app/Session.h"
#include "app/Settings.h"

#include <QFile>
#include <QTemporaryDir>

// A catalogue of its own for one test: the program folder and the settings file in a
// temporary folder ($SILBERBUCH_HOME, $SILBERBUCH_CONFIG), an empty archive "Test" in it and
// a session that has it open. Header only, for the tests that link the archive store.
class TempCatalog
{
public:
    TempCatalog()
    {
        m_session.archiveName = QStringLiteral("Test");
        m_session.archivePath = m_archive.path();
    }

    QString dataFolder() { return getDataFolder(m_session, m_settings); }
    // A folder for the test's own files, outside the data folder.
    QString scratch(const QString &name)
    {
        const QString path = m_temp.filePath(QStringLiteral("scratch/") + name);
        QDir().mkpath(path);
        return path;
    }

    Settings &settings() { return m_settings; }
    Session &session() { return m_session; }
    ArchiveBuilder &archive() { return m_archive; }
    const ArchiveStore &store() { return m_archive.store(); }

private:
    QTemporaryDir m_temp;
    ScopedEnvironment m_home { "SILBERBUCH_HOME",
        QFile::encodeName(m_temp.filePath(QStringLiteral("home"))) };
    ScopedEnvironment m_config { "SILBERBUCH_CONFIG",
        QFile::encodeName(m_temp.filePath(QStringLiteral("silberbuch.ini"))) };
    // Made after the environment is set, as they read it.
    Settings m_settings;
    Session m_session;
    ArchiveBuilder m_archive { dataFolder(), QStringLiteral("Test") };
};
