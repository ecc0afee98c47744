#include "app/TrayDoubleClick.h"

#include <gtest/gtest.h>

#include <vector>

TEST(TrayDoubleClick, EitherButtonTwiceWithinTheIntervalRestores)
{
    using P = TrayDoubleClick::Press;
    using Step = std::tuple<P, int64_t, bool>; // press, at which millisecond, whether it restores
    const std::pair<const char *, std::vector<Step>> cases[] = {
        { "left double click reported as such", { { P::Left, 0, false }, { P::LeftDouble, 100, true } } },
        { "two right presses", { { P::Right, 0, false }, { P::Right, 400, true } } },
        { "too slow", { { P::Right, 0, false }, { P::Right, 401, false }, { P::Right, 700, true } } },
        { "different buttons", { { P::Left, 0, false }, { P::Right, 100, false } } },
        { "middle button never", { { P::Other, 0, false }, { P::Other, 100, false } } },
        { "a third press starts anew",
            { { P::Left, 0, false }, { P::Left, 100, true }, { P::Left, 200, false } } },
    };
    for (const auto &[why, steps] : cases) {
        TrayDoubleClick clicks(400);
        for (const auto &[press, atMs, restores] : steps)
            EXPECT_EQ(clicks.completes(press, atMs), restores) << why << " at " << atMs;
    }
}
