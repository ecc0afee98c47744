#pragma once

#include "ArchiveBuilder.h"

#include "app/DataFolder.h"
#include "app/Session.h"
#include "app/Settings.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>

// A catalogue of its own for one test: the program folder and the settings file in a
// temporary folder ($SILBERBUCH_HOME, $SILBERBUCH_CONFIG), an empty archive "Test" in it and
// a session that has it open. Header only, for the tests that link the archive store.
class TempCatalog
{
public:
    TempCatalog()
        : m_oldHome(qgetenv("SILBERBUCH_HOME"))
        , m_oldConfig(qgetenv("SILBERBUCH_CONFIG"))
    {
        qputenv("SILBERBUCH_HOME", QFile::encodeName(m_temp.filePath(QStringLiteral("home"))));
        qputenv("SILBERBUCH_CONFIG", QFile::encodeName(m_temp.filePath(QStringLiteral("silberbuch.ini"))));
        m_settings = std::make_unique<Settings>();
        m_archive = std::make_unique<ArchiveBuilder>(dataFolder(), QStringLiteral("Test"));
        m_session.archiveName = QStringLiteral("Test");
        m_session.archivePath = m_archive->path();
    }

    ~TempCatalog()
    {
        restore("SILBERBUCH_HOME", m_oldHome);
        restore("SILBERBUCH_CONFIG", m_oldConfig);
    }

    QString dataFolder() { return getDataFolder(m_session, *m_settings); }
    // A folder for the test's own files, outside the data folder.
    QString scratch(const QString &name)
    {
        const QString path = m_temp.filePath(QStringLiteral("scratch/") + name);
        QDir().mkpath(path);
        return path;
    }

    Settings &settings() { return *m_settings; }
    Session &session() { return m_session; }
    ArchiveBuilder &archive() { return *m_archive; }
    const ArchiveStore &store() { return m_archive->store(); }

private:
    static void restore(const char *name, const QByteArray &value)
    {
        if (value.isNull())
            qunsetenv(name);
        else
            qputenv(name, value);
    }

    QTemporaryDir m_temp;
    QByteArray m_oldHome;
    QByteArray m_oldConfig;
    std::unique_ptr<Settings> m_settings;
    Session m_session;
    std::unique_ptr<ArchiveBuilder> m_archive;
};
