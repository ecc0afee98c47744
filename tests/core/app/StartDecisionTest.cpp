#include "AppTestFolder.h"

#include "app/StartDecision.h"

namespace {

using namespace Qt::StringLiterals;
using StartDecisionTest = AppTestFolder;
using Window = StartDecision::Window;
constexpr Window Welcome = Window::WelcomeDialog, Choose = Window::ArchiveChooser, Main = Window::MainWindow;

TEST_F(StartDecisionTest, FollowsTheStartTable)
{
    // name; Start, autoarchiv, Standard (nullptr: not stored); archive file there; command line; the window,
    // asking, minimized notice, tray
    using S = const char *;
    const std::tuple<S, S, S, S, bool, S, Window, bool, bool, bool> cases[] = {
        { "firstStartMissingCounter", nullptr, "0", "CDs", true, "", Welcome, false, false, false },
        { "firstStartCounterOne", "1", "0", "CDs", true, "-minimized", Welcome, false, false, false },
        { "askingWhenAutoarchivMissing", "2", nullptr, "CDs", true, "", Choose, true, false, false },
        { "askingWhenAutoarchivOne", "5", "1", nullptr, false, "", Choose, true, false, false },
        { "askingMinimizedNoticeNoTray", "5", "1", "CDs", true, "-minimized", Choose, true, true, false },
        { "unreadableAutoarchivAsks", "5", "immer", "CDs", true, "", Choose, true, false, false },
        { "automaticOpensDefault", "5", "0", "CDs", true, "", Main, false, false, false },
        { "automaticMinimizedGoesToTray", "5", "0", "CDs", true, "-minimized", Main, false, false, true },
        { "automaticFileGone", "5", "0", "CDs", false, "", Choose, false, false, false },
        { "automaticNoStandard", "5", "0", nullptr, false, "", Choose, false, false, false }
    };
    const QString data = path(u"data"_s);
    const QString archive = data + u"/archive/CDs.mdb"_s;
    QDir().mkpath(data + u"/archive"_s);
    int row = 0;
    for (const auto &[name, start, autoarchiv, standard, fileExists, commandLine, window, asking, notice,
             tray] : cases) {
        SCOPED_TRACE(name);
        Settings own(path(u"case%1.ini"_s.arg(++row)));
        for (const auto &[key, text] :
            { std::pair { SettingKey::Start, start }, std::pair { SettingKey::autoarchiv, autoarchiv },
                std::pair { SettingKey::Standard, standard } })
            if (text)
                own.setValue(key, QString::fromLatin1(text));
        fileExists ? void(writeFile(archive, "db")) : void(QFile::remove(archive));

        const StartDecision decision = decideStart(own, data, QString::fromLatin1(commandLine));
        EXPECT_EQ(std::tuple(decision.window, decision.askingArchive, decision.showMinimizedNotice,
                      decision.goToTray),
            std::tuple(window, asking, notice, tray));
        Session session;
        decision.applyTo(session);
        const bool opens = window == Main;
        EXPECT_EQ(std::tuple(session.startedAskingArchive, session.archivePath, session.archiveName),
            std::tuple(
                asking ? u"1"_s : QString(), opens ? archive : QString(), opens ? u"CDs"_s : QString()));
    }
}

TEST(StartCommandLine, WholeTextIsTheArgumentsAfterTheProgram)
{
    const QString program = u"/usr/bin/silberbuch"_s;
    EXPECT_EQ(wholeCommandLine({ program }), QString());
    EXPECT_TRUE(isMinimizedStart(wholeCommandLine({ program, u"-minimized"_s })));
    EXPECT_FALSE(isMinimizedStart(wholeCommandLine({ program, u"-minimized"_s, u"x"_s })));
    EXPECT_FALSE(isMinimizedStart(wholeCommandLine({ program, QString(), u"-minimized"_s })));
}

} // namespace
