#pragma once

#include "ArchiveBuilder.h"

#include "app/Program.h"
#include "app/ShellOpen.h"
#include "common/PromptScript.h"

#include "app/DataPaths.h"
#include "app/Settings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <string>

// One run of the desktop program in a folder of its own: the program folder (which is the
// data folder) and the settings file in a temporary folder ($SILBERBUCH_HOME,
// $SILBERBUCH_CONFIG). Prompts are answered from a script and nothing is opened on the
// desktop. Header only, for the GUI tests.
class DesktopRun
{
public:
    explicit DesktopRun(const QString &commandLine = {})
        : m_oldHome(qgetenv("SILBERBUCH_HOME"))
        , m_oldConfig(qgetenv("SILBERBUCH_CONFIG"))
    {
        qputenv("SILBERBUCH_HOME", QFile::encodeName(home()));
        qputenv("SILBERBUCH_CONFIG", QFile::encodeName(m_temp.filePath(QStringLiteral("silberbuch.ini"))));
        QDir().mkpath(home());
        m_settings = std::make_unique<Settings>();
        m_program = std::make_unique<Program>(*m_settings, commandLine);
    }

    ~DesktopRun()
    {
        m_program->unloadAll();
        settle();
        m_program.reset();
        restore("SILBERBUCH_HOME", m_oldHome);
        restore("SILBERBUCH_CONFIG", m_oldConfig);
    }

    DesktopRun(const DesktopRun &) = delete;
    DesktopRun &operator=(const DesktopRun &) = delete;

    QString home() const { return m_temp.filePath(QStringLiteral("home")); }
    Settings &settings() { return *m_settings; }
    Program &program() { return *m_program; }
    Session &session() { return m_program->session(); }
    PromptScript &prompts() { return m_prompts; }
    const QList<QUrl> &opened() const { return m_shell.opened(); }

    template <class W> W *form() const { return m_program->form<W>(); }

    // An archive in the data folder, filled through the real store.
    std::unique_ptr<ArchiveBuilder> archive(const QString &name)
    {
        return std::make_unique<ArchiveBuilder>(home(), name);
    }

    // Opens the archive as a start would, for windows loaded directly.
    void openArchive(const QString &name)
    {
        session().archiveName = name;
        session().archivePath = datapaths::archiveFile(home(), name);
    }

    // A drive image file in lws/, the bytes as given (code page 1252, CR LF).
    void image(int32_t id, const std::string &bytes)
    {
        QDir().mkpath(datapaths::imageFolder(home()));
        QFile file(datapaths::imageFile(home(), id));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    }

    // Lets timers of `ms` milliseconds fire and unloaded windows go.
    void settle(int ms = 0)
    {
        if (ms > 0)
            QTest::qWait(ms);
        for (int i = 0; i < 3; ++i) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCoreApplication::processEvents();
        }
    }

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
    PromptScript m_prompts;
    shellopen::ShellRecorder m_shell;
    std::unique_ptr<Settings> m_settings;
    std::unique_ptr<Program> m_program;
};
