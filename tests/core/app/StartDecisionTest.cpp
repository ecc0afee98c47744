#include "AppTestFolder.h"

#include "app/StartDecision.h"

namespace {

using Window = StartDecision::Window;

struct DecisionCase
{
    const char *name;
    const char *start;      // nullptr: not stored
    const char *autoarchiv; // nullptr: not stored
    const char *standard;   // nullptr: not stored
    bool archiveFileExists;
    const char *commandLine;
    Window window;
    bool askingArchive;
    bool notice;
    bool tray;
};

const DecisionCase kCases[] = {
    {"firstStartMissingCounter", nullptr, "0", "CDs", true, "", Window::Form3, false, false, false},
    {"firstStartCounterOne", "1", "0", "CDs", true, "-minimized", Window::Form3, false, false, false},
    {"unreadableCounterCountsAsFirst", "viel", "0", "CDs", true, "", Window::Form3, false, false, false},
    {"askingWhenAutoarchivMissing", "2", nullptr, "CDs", true, "", Window::openarchiv, true, false, false},
    {"askingWhenAutoarchivOne", "5", "1", nullptr, false, "", Window::openarchiv, true, false, false},
    {"askingMinimizedShowsNoticeNoTray", "5", "1", "CDs", true, "-minimized", Window::openarchiv, true, true,
     false},
    {"askingMinimizedNeedsExactText", "5", "1", "CDs", true, "-minimized ", Window::openarchiv, true, false,
     false},
    {"askingSecondArgumentIsNoMinimized", "5", "1", "CDs", true, "-minimized x", Window::openarchiv, true, false,
     false},
    {"askingMinimizedIsCaseSensitive", "5", "1", "CDs", true, "-Minimized", Window::openarchiv, true, false,
     false},
    {"unreadableAutoarchivAsks", "5", "immer", "CDs", true, "", Window::openarchiv, true, false, false},
    {"automaticOpensDefault", "5", "0", "CDs", true, "", Window::Hauptfenster, false, false, false},
    {"automaticMinimizedGoesToTray", "5", "0", "CDs", true, "-minimized", Window::Hauptfenster, false, false,
     true},
    {"automaticAnyOtherNumber", "5", "2", "CDs", true, "", Window::Hauptfenster, false, false, false},
    {"automaticFileGone", "5", "0", "CDs", false, "", Window::openarchiv, false, false, false},
    {"automaticFileGoneMinimizedNoNotice", "5", "0", "CDs", false, "-minimized", Window::openarchiv, false, false,
     false},
    {"automaticNoStandard", "5", "0", nullptr, false, "", Window::openarchiv, false, false, false},
};

class StartDecisionRow : public AppTestFolder, public ::testing::WithParamInterface<DecisionCase>
{
};

TEST_P(StartDecisionRow, FollowsTheStartTable)
{
    const DecisionCase &c = GetParam();
    const QString data = path(QStringLiteral("data"));
    QDir().mkpath(data + QStringLiteral("/archive"));
    auto store = [this](SettingKey key, const char *text) {
        if (text)
            settings().setValue(key, QString::fromLatin1(text));
    };
    store(SettingKey::Start, c.start);
    store(SettingKey::autoarchiv, c.autoarchiv);
    store(SettingKey::Standard, c.standard);
    if (c.archiveFileExists)
        writeFile(data + QStringLiteral("/archive/CDs.mdb"), "db");

    const StartDecision decision = decideStart(settings(), data, QString::fromLatin1(c.commandLine));
    EXPECT_EQ(decision.window, c.window);
    EXPECT_EQ(decision.askingArchive, c.askingArchive);
    EXPECT_EQ(decision.showMinimizedNotice, c.notice);
    EXPECT_EQ(decision.goToTray, c.tray);

    Session session;
    decision.applyTo(session);
    EXPECT_EQ(session.startedAskingArchive, c.askingArchive ? QStringLiteral("1") : QString());
    if (c.window == Window::Hauptfenster) {
        EXPECT_EQ(session.archivePath, data + QStringLiteral("/archive/CDs.mdb"));
        EXPECT_EQ(session.archiveName, QStringLiteral("CDs"));
    } else {
        EXPECT_TRUE(session.archivePath.isEmpty());
        EXPECT_TRUE(session.archiveName.isEmpty());
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, StartDecisionRow, ::testing::ValuesIn(kCases),
                         [](const ::testing::TestParamInfo<DecisionCase> &info) { return info.param.name; });

TEST(StartCommandLine, WholeTextIsTheArgumentsAfterTheProgram)
{
    const QString program = QStringLiteral("/usr/bin/silberbuch");
    EXPECT_EQ(wholeCommandLine({program}), QString());
    EXPECT_TRUE(isMinimizedStart(wholeCommandLine({program, QStringLiteral("-minimized")})));
    EXPECT_FALSE(isMinimizedStart(wholeCommandLine({program, QStringLiteral("-minimized"), QStringLiteral("x")})));
    EXPECT_FALSE(isMinimizedStart(wholeCommandLine({program, QString(), QStringLiteral("-minimized")})));
}

} // namespace
