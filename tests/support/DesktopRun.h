#pragma once

#include "QStringPrinting.h"
#include "TempCatalog.h"
#include "TestPaths.h"

#include "app/DataPaths.h"
#include "app/Program.h"
#include "app/ShellOpen.h"
#include "app/TrayAvailability.h"
#include "common/PromptScript.h"

#include <QTest>

#include <string>

// One run of the desktop program in a catalogue of its own, with an empty program folder.
// Prompts are answered from a script and nothing is opened on the desktop. Header only, for
// the GUI tests.
class DesktopRun
{
public:
    explicit DesktopRun(const QString &commandLine = {})
        : m_home(m_catalog.dataFolder())
    {
        // The catalogue's ready-made archive would show in every list of archives.
        QDir(datapaths::archiveFolder(m_home)).removeRecursively();
        m_program = std::make_unique<Program>(m_catalog.settings(), commandLine);
    }

    ~DesktopRun()
    {
        m_program->closeAllWindows();
        settle();
    }

    QString home() const { return m_home; }
    Settings &settings() { return m_catalog.settings(); }
    Program &program() { return *m_program; }
    Session &session() { return m_program->session(); }
    PromptScript &prompts() { return m_prompts; }
    const QList<QUrl> &opened() const { return m_shell.opened(); }

    template <class W> W *form() const { return m_program->form<W>(); }

    // An archive in the data folder, filled through the real store.
    std::unique_ptr<ArchiveBuilder> archive(const QString &name)
    {
        return std::make_unique<ArchiveBuilder>(m_home, name);
    }

    // Opens the archive as a start would, for windows loaded directly.
    void openArchive(const QString &name)
    {
        session().archiveName = name;
        session().archivePath = datapaths::archiveFile(m_home, name);
    }

    // A drive image file in lws/, the bytes as given (code page 1252, CR LF).
    void image(int32_t id, const std::string &bytes)
    {
        writeFile(datapaths::imageFile(m_home, id), QByteArray::fromStdString(bytes));
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
    TempCatalog m_catalog;
    QString m_home;
    PromptScript m_prompts;
    shellopen::ShellRecorder m_shell;
    // The offscreen platform has no tray; the tests of the tray's own flows assume one.
    tray::TrayOverride m_tray { true };
    std::unique_ptr<Program> m_program;
};
