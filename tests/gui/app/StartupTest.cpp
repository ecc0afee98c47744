#include "DesktopRun.h"
#include "QStringPrinting.h"

#include "app/Form3.h"
#include "app/Hauptfenster.h"
#include "app/StartDecision.h"
#include "app/Startup.h"
#include "archives/openarchiv.h"

#include <QSystemTrayIcon>

using namespace Qt::StringLiterals;

namespace {

// Loads the splash and lets its timer tick at once.
void start(DesktopRun &run)
{
    run.program().show<Startup>()->Timer1_Timer();
    run.settle();
    EXPECT_EQ(run.form<Startup>(), nullptr) << "the splash unloads itself in every branch";
}

} // namespace

TEST(Startup, EachKindOfStartLeadsToItsWindow)
{
    enum Folder { NoFolder, EmptyFolder, ArchiveA, ArchivesAB }; // the default archive is B
    const struct
    {
        const char *name;
        Folder folder;
        const char *start; // the settings before; nullptr: missing
        const char *autoarchiv;
        const char *commandLine;
        const char *window;
        const char *counted;
        const char *extra; // "notice" or "tray"
    } cases[] = {
        { "first start", NoFolder, nullptr, nullptr, "", "Form3", "1", "" },
        { "archive folder without a file", EmptyFolder, "7", "0", "", "Form3", "1", "" },
        { "asking, autoarchiv missing", ArchivesAB, "1", nullptr, "", "openarchiv", "2", "" },
        { "asking", ArchivesAB, "1", "1", "", "openarchiv", "2", "" },
        { "asking, -minimized", ArchivesAB, "1", "1", "-minimized", "openarchiv", "2", "notice" },
        { "a second argument", ArchivesAB, "1", "1", "-minimized x", "openarchiv", "2", "" },
        { "automatic", ArchivesAB, "1", "0", "", "Hauptfenster", "2", "" },
        { "automatic, file gone", ArchiveA, "1", "0", "", "openarchiv", "2", "" },
        { "automatic, -minimized", ArchivesAB, "1", "0", "-minimized", "Hauptfenster", "2", "tray" },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        DesktopRun run(QString::fromLatin1(c.commandLine));
        if (c.folder != NoFolder)
            QDir().mkpath(datapaths::archiveFolder(run.home()));
        if (c.folder >= ArchiveA)
            run.archive(u"A"_s);
        if (c.folder == ArchivesAB)
            run.archive(u"B"_s);
        if (c.start)
            run.settings().setValue(SettingKey::Start, QString::fromLatin1(c.start));
        if (c.autoarchiv)
            run.settings().setValue(SettingKey::autoarchiv, QString::fromLatin1(c.autoarchiv));
        run.settings().setValue(SettingKey::Standard, u"B"_s);
        start(run);
        const QString extra = QString::fromLatin1(c.extra);
        EXPECT_EQ(run.settings().value(SettingKey::Start), QString::fromLatin1(c.counted));
        ASSERT_EQ(run.program().loadedCount(), 1);
        EXPECT_NE(run.program().form(QString::fromLatin1(c.window)), nullptr);
        EXPECT_EQ(run.prompts().messages(),
            extra == "notice"_L1 ? QStringList { minimizedStartNotice() } : QStringList());
        if (Hauptfenster *main = run.form<Hauptfenster>()) {
            EXPECT_EQ(run.session().archiveName, u"B"_s);
            EXPECT_EQ(main->isVisible(), extra != "tray"_L1);
            EXPECT_EQ(main->trayIcon()->isVisible(), extra == "tray"_L1);
        }
    }
}

TEST(Startup, FirstStartWritesThePlaceholdersAndClosingTheWelcomeEndsTheRun)
{
    DesktopRun run;
    bool ended = false;
    QObject::connect(&run.program(), &Program::allUnloaded, [&ended] { ended = true; });
    start(run);
    EXPECT_TRUE(QFile::exists(run.home() + u"/archive/def.ini"_s));
    EXPECT_TRUE(QFile::exists(run.home() + u"/lws/temp.tm1"_s));
    ASSERT_NE(run.form<Form3>(), nullptr);
    run.form<Form3>()->close();
    run.settle();
    EXPECT_TRUE(ended);
    EXPECT_EQ(run.program().loadedCount(), 0);
}

TEST(Startup, AskingWithOneArchiveOpensItByItself)
{
    DesktopRun run;
    run.settings().setValue(SettingKey::Start, u"4"_s);
    run.archive(u"Einzig"_s);
    run.program().show<Startup>()->Timer1_Timer();
    // The chooser opens the archive once its own load is over.
    ASSERT_NE(run.form<openarchiv>(), nullptr);
    EXPECT_EQ(run.form<Hauptfenster>(), nullptr);
    run.settle(30);
    EXPECT_EQ(run.form<openarchiv>(), nullptr);
    ASSERT_NE(run.form<Hauptfenster>(), nullptr);
    EXPECT_EQ(run.session().archiveName, u"Einzig"_s);
    EXPECT_EQ(run.session().startedAskingArchive, u"1"_s);
}
