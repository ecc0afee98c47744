#include "DesktopRun.h"

#include "app/Form3.h"
#include "app/Hauptfenster.h"
#include "app/Startup.h"
#include "archives/openarchiv.h"

#include "app/StartDecision.h"

#include <QFile>
#include <QListWidget>
#include <QSystemTrayIcon>
#include <QTimer>

namespace {

QString fileText(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : QString();
}

// Loads the splash and lets its timer tick at once.
void start(DesktopRun &run)
{
    Startup *splash = run.program().show<Startup>();
    ASSERT_NE(splash, nullptr);
    splash->Timer1_Timer();
    run.settle();
    EXPECT_EQ(run.form<Startup>(), nullptr) << "the splash unloads itself in every branch";
}

} // namespace

TEST(Startup, FirstStartCreatesTheFoldersCountsAndWelcomes)
{
    DesktopRun run;
    Startup *splash = run.program().show<Startup>();
    const QString placeholder = QStringLiteral("Do not delete this file! Temporary used!\r\n");
    EXPECT_EQ(fileText(run.home() + QStringLiteral("/archive/def2.ini")), placeholder);
    EXPECT_EQ(fileText(run.home() + QStringLiteral("/archive/def.ini")), placeholder);
    EXPECT_EQ(fileText(run.home() + QStringLiteral("/lws/temp.tm1")), placeholder);
    EXPECT_EQ(run.settings().value(SettingKey::Start), QStringLiteral("1"));

    const auto *timer = splash->findChild<QTimer *>(QStringLiteral("Timer1"));
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->isActive());
    EXPECT_TRUE(timer->isSingleShot());
    EXPECT_EQ(timer->interval(), 1000);

    splash->Timer1_Timer();
    run.settle();
    EXPECT_EQ(run.form<Startup>(), nullptr);
    ASSERT_NE(run.form<Form3>(), nullptr);
    EXPECT_EQ(run.form<Form3>()->windowTitle(), QStringLiteral("Silberbuch 5.0"));
    EXPECT_EQ(run.program().loadedCount(), 1);
}

TEST(Startup, SplashHasThePictureShapeWithoutTheRed)
{
    DesktopRun run;
    Startup *splash = run.program().show<Startup>();
    EXPECT_EQ(splash->size(), QSize(300, 302));
    const QRegion mask = splash->mask();
    EXPECT_FALSE(mask.isEmpty());
    EXPECT_FALSE(mask.contains(QPoint(0, 0))) << "the red corner is cut away";
    EXPECT_FALSE(mask.contains(QPoint(299, 301)));
    EXPECT_TRUE(mask.contains(QPoint(150, 150)));
    EXPECT_TRUE(splash->windowFlags().testFlag(Qt::FramelessWindowHint));
}

TEST(Startup, LaterStartsFollowTheSettings)
{
    struct Case
    {
        const char *name;
        const char *autoarchiv; // nullptr: missing
        const char *standard;
        QStringList archives;
        const char *commandLine;
        const char *window;
        QStringList messages;
    };
    const QString notice = minimizedStartNotice();
    const Case cases[] = {
        { "asking, autoarchiv missing", nullptr, nullptr, { QStringLiteral("A"), QStringLiteral("B") }, "",
            "openarchiv", {} },
        { "asking, autoarchiv 1", "1", "A", { QStringLiteral("A"), QStringLiteral("B") }, "", "openarchiv",
            {} },
        { "automatic", "0", "B", { QStringLiteral("A"), QStringLiteral("B") }, "", "Hauptfenster", {} },
        { "automatic, file gone", "0", "Weg", { QStringLiteral("A"), QStringLiteral("B") }, "", "openarchiv",
            {} },
        { "asking with -minimized shows the notice", "1", "A", { QStringLiteral("A"), QStringLiteral("B") },
            "-minimized", "openarchiv", { notice } },
        { "a second argument is no -minimized start", "1", "A", { QStringLiteral("A"), QStringLiteral("B") },
            "-minimized x", "openarchiv", {} },
    };
    for (const Case &c : cases) {
        DesktopRun run(QString::fromLatin1(c.commandLine));
        run.settings().setValue(SettingKey::Start, QStringLiteral("1"));
        if (c.autoarchiv)
            run.settings().setValue(SettingKey::autoarchiv, QString::fromLatin1(c.autoarchiv));
        if (c.standard)
            run.settings().setValue(SettingKey::Standard, QString::fromLatin1(c.standard));
        for (const QString &name : c.archives)
            run.archive(name);
        start(run);
        EXPECT_EQ(run.settings().value(SettingKey::Start), QStringLiteral("2")) << c.name;
        ASSERT_EQ(run.program().loadedCount(), 1) << c.name;
        EXPECT_NE(run.program().form(QString::fromLatin1(c.window)), nullptr) << c.name;
        EXPECT_EQ(run.prompts().messages(), c.messages) << c.name;
        if (QString::fromLatin1(c.window) == QLatin1String("Hauptfenster")) {
            EXPECT_EQ(run.session().archiveName, QString::fromLatin1(c.standard)) << c.name;
            EXPECT_TRUE(run.form<Hauptfenster>()->windowTitle().endsWith(QStringLiteral("   |   Archiv: B")))
                << c.name;
        }
    }
}

TEST(Startup, AskingWithOneArchiveOpensItByItself)
{
    DesktopRun run;
    run.settings().setValue(SettingKey::Start, QStringLiteral("4"));
    run.archive(QStringLiteral("Einzig"));
    run.program().show<Startup>()->Timer1_Timer();
    // The chooser is loaded and opens the archive once its load is over.
    openarchiv *chooser = run.form<openarchiv>();
    ASSERT_NE(chooser, nullptr);
    EXPECT_TRUE(chooser->findChild<QTimer *>(QStringLiteral("Timer1"))->isActive());
    EXPECT_EQ(run.form<Hauptfenster>(), nullptr);
    run.settle(30);
    EXPECT_EQ(run.form<openarchiv>(), nullptr);
    ASSERT_NE(run.form<Hauptfenster>(), nullptr);
    EXPECT_EQ(run.session().archiveName, QStringLiteral("Einzig"));
    EXPECT_EQ(run.session().startedAskingArchive, QStringLiteral("1"));
}

TEST(Startup, MinimizedStartWithDefaultArchiveGoesToTheTray)
{
    DesktopRun run(QStringLiteral("-minimized"));
    run.settings().setValue(SettingKey::Start, QStringLiteral("1"));
    run.settings().setValue(SettingKey::autoarchiv, QStringLiteral("0"));
    run.settings().setValue(SettingKey::Standard, QStringLiteral("A"));
    run.archive(QStringLiteral("A"));
    start(run);
    Hauptfenster *main = run.form<Hauptfenster>();
    ASSERT_NE(main, nullptr);
    EXPECT_FALSE(main->isVisible());
    EXPECT_TRUE(main->trayIcon()->isVisible());
    // The load's icon came first; the tray command's own tip does not replace it.
    EXPECT_EQ(main->trayIcon()->toolTip(), QStringLiteral("Silberbuch 5.1"));
}

TEST(Startup, FolderStepFailureLeadsToTheWelcome)
{
    // An archive folder without a file counts as missing; creating it again fails.
    DesktopRun run;
    QDir().mkpath(run.home() + QStringLiteral("/archive"));
    run.settings().setValue(SettingKey::Start, QStringLiteral("7"));
    start(run);
    EXPECT_EQ(run.settings().value(SettingKey::Start), QStringLiteral("1"));
    EXPECT_NE(run.form<Form3>(), nullptr);
}

TEST(Startup, ClosingTheWelcomeEndsTheRun)
{
    DesktopRun run;
    bool ended = false;
    QObject::connect(&run.program(), &Program::allUnloaded, [&ended] { ended = true; });
    start(run);
    ASSERT_NE(run.form<Form3>(), nullptr);
    run.form<Form3>()->close();
    run.settle();
    EXPECT_TRUE(ended);
    EXPECT_EQ(run.program().loadedCount(), 0);
}
