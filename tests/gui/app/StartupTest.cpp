#include "DesktopRun.h"

#include "app/Hauptfenster.h"
#include "app/StartDecision.h"
#include "app/Startup.h"

#include <QSystemTrayIcon>

using namespace Qt::StringLiterals;

TEST(Startup, EachKindOfStartLeadsToItsWindow)
{
    // The rules are the core's start table; here one start leads to each window. The default archive is B.
    // name, archives A and B there, Start and autoarchiv before (nullptr: missing), command line, the
    // window, Start after, and "notice" or "tray".
    using S = const char *;
    const std::tuple<S, bool, S, S, S, S, S, S> cases[] = {
        { "first start", false, nullptr, nullptr, "", "Form3", "1", "" },
        { "asking, -minimized", true, "1", "1", "-minimized", "openarchiv", "2", "notice" },
        { "automatic", true, "1", "0", "", "Hauptfenster", "2", "" },
        { "automatic, -minimized", true, "1", "0", "-minimized", "Hauptfenster", "2", "tray" },
    };
    for (const auto &[name, archives, start, autoarchiv, commandLine, window, counted, extra] : cases) {
        SCOPED_TRACE(name);
        DesktopRun run(QString::fromLatin1(commandLine));
        if (archives) { // two, so that the chooser does not open one by itself
            run.archive(u"A"_s);
            run.archive(u"B"_s);
        }
        if (start)
            run.settings().setValue(SettingKey::Start, QString::fromLatin1(start));
        if (autoarchiv)
            run.settings().setValue(SettingKey::autoarchiv, QString::fromLatin1(autoarchiv));
        run.settings().setValue(SettingKey::Standard, u"B"_s);
        run.program().show<Startup>()->Timer1_Timer(); // the splash's timer ticks at once
        run.settle();
        // The splash unloads itself in every branch, leaving the one window.
        ASSERT_EQ(std::tuple(run.form<Startup>(), run.program().loadedCount(),
                      run.program().form(QString::fromLatin1(window)) != nullptr,
                      run.settings().value(SettingKey::Start)),
            std::tuple(nullptr, 1, true, QString::fromLatin1(counted)));
        EXPECT_EQ(run.prompts().messages(),
            extra == std::string_view("notice") ? QStringList { minimizedStartNotice() } : QStringList());
        if (Hauptfenster *main = run.form<Hauptfenster>()) {
            EXPECT_EQ(run.session().archiveName, u"B"_s);
            EXPECT_EQ(std::pair(main->isVisible(), main->trayIcon()->isVisible()),
                std::pair(extra != std::string_view("tray"), extra == std::string_view("tray")));
            // Two quick presses of the right button, as some desktops report a double click.
            for (int press = 0; press < 2; ++press)
                emit main->trayIcon()->activated(QSystemTrayIcon::Context);
            EXPECT_TRUE(main->isVisible());
        }
    }
}
