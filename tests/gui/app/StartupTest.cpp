#include "DesktopRun.h"
#include "QStringPrinting.h"

#include "app/Hauptfenster.h"
#include "app/StartDecision.h"
#include "app/Startup.h"

#include <QSystemTrayIcon>

using namespace Qt::StringLiterals;

TEST(Startup, EachKindOfStartLeadsToItsWindow)
{
    enum Folder { NoFolder, EmptyFolder, ArchivesAC, ArchivesAB }; // the default archive is B
    // Start and autoarchiv before (nullptr: missing), the window, Start after, and "notice" or "tray".
    const struct
    {
        const char *name;
        Folder folder;
        const char *start, *autoarchiv, *commandLine, *window, *counted, *extra;
    } cases[] = {
        { "first start", NoFolder, nullptr, nullptr, "", "Form3", "1", "" },
        { "archive folder without a file", EmptyFolder, "7", "0", "", "Form3", "1", "" },
        { "asking, autoarchiv missing", ArchivesAB, "1", nullptr, "", "openarchiv", "2", "" },
        { "asking", ArchivesAB, "1", "1", "", "openarchiv", "2", "" },
        { "asking, -minimized", ArchivesAB, "1", "1", "-minimized", "openarchiv", "2", "notice" },
        { "a second argument", ArchivesAB, "1", "1", "-minimized x", "openarchiv", "2", "" },
        { "automatic", ArchivesAB, "1", "0", "", "Hauptfenster", "2", "" },
        { "automatic, file gone", ArchivesAC, "1", "0", "", "openarchiv", "2", "" },
        { "automatic, -minimized", ArchivesAB, "1", "0", "-minimized", "Hauptfenster", "2", "tray" },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        DesktopRun run(QString::fromLatin1(c.commandLine));
        if (c.folder != NoFolder)
            QDir().mkpath(datapaths::archiveFolder(run.home()));
        if (c.folder >= ArchivesAC) // two, so that the chooser does not open one by itself
            for (const QString &name : { u"A"_s, c.folder == ArchivesAC ? u"C"_s : u"B"_s })
                run.archive(name);
        if (c.start)
            run.settings().setValue(SettingKey::Start, QString::fromLatin1(c.start));
        if (c.autoarchiv)
            run.settings().setValue(SettingKey::autoarchiv, QString::fromLatin1(c.autoarchiv));
        run.settings().setValue(SettingKey::Standard, u"B"_s);
        run.program().show<Startup>()->Timer1_Timer(); // the splash's timer ticks at once
        run.settle();
        EXPECT_EQ(run.form<Startup>(), nullptr) << "the splash unloads itself in every branch";
        const QString extra = QString::fromLatin1(c.extra);
        EXPECT_EQ(run.settings().value(SettingKey::Start), QString::fromLatin1(c.counted));
        ASSERT_EQ(run.program().loadedCount(), 1);
        EXPECT_NE(run.program().form(QString::fromLatin1(c.window)), nullptr);
        EXPECT_EQ(run.prompts().messages(),
            extra == "notice"_L1 ? QStringList { minimizedStartNotice() } : QStringList());
        if (Hauptfenster *main = run.form<Hauptfenster>()) {
            EXPECT_EQ(run.session().archiveName, u"B"_s);
            EXPECT_EQ(std::pair(main->isVisible(), main->trayIcon()->isVisible()),
                std::pair(extra != "tray"_L1, extra == "tray"_L1));
        }
    }
}
