#include "services/Restart.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

// The program starts again as the user started it: "-minimized" only when it was given, since
// that means a start with the desktop session; the minimized window is asked for in the new
// process's environment, and that wish is taken once.
TEST(Restart, StartsAsTheUserDidAndAsksForAMinimizedWindowAside)
{
    const std::pair<const char *, QStringList> cases[] = {
        { "started plainly", {} },
        { "started with the desktop session", { u"-minimized"_s } },
        { "other arguments", { u"--archiv"_s, u"Musik CDs"_s } },
    };
    for (const auto &[what, arguments] : cases) {
        SCOPED_TRACE(what);
        const restart::Command command = restart::commandFor(u"/opt/silberbuch/silberbuch"_s, arguments);
        EXPECT_EQ(QStringList { command.program } + command.arguments,
            QStringList { u"/opt/silberbuch/silberbuch"_s } + arguments);
        // The new process's view of its environment.
        for (const QString &variable : command.environment) {
            const qsizetype equals = variable.indexOf(u'=');
            qputenv(variable.left(equals).toLocal8Bit().constData(), variable.mid(equals + 1).toLocal8Bit());
        }
        const bool first = restart::takeMinimizedWindowWish();
        EXPECT_EQ(std::pair(first, restart::takeMinimizedWindowWish()), std::pair(true, false));
    }
}

} // namespace
