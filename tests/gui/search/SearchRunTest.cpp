#include "search/SearchRun.h" // before anything that declares the function wait()

#include "Control.h"
#include "QStringPrinting.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <atomic>

namespace {

// Work that reports an image and then holds until it is told to stop.
void holdUntilCancelled(SearchProgress *progress, std::atomic<bool> &started, std::atomic<bool> &stopped)
{
    progress->imageStarted(2, 5, 12);
    started = true;
    while (!progress->cancelRequested())
        QThread::msleep(1);
    stopped = true;
}

TEST(SearchRun, ShowsProgressAndStopsOnCancel)
{
    QWidget owner;
    owner.show();
    std::atomic<bool> started { false };
    std::atomic<bool> stopped { false };
    bool done = false;
    QPointer<SearchRun> run = new SearchRun(&owner, true);
    run->start([&](SearchProgress *progress) { holdUntilCancelled(progress, started, stopped); }, [&] { done = true; });

    auto *window = control<QWidget>(&owner, "wait");
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(control<QLabel>(window, "Label2")->text(), QStringLiteral("Die Suche läuft..."));
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    auto *progressLine = control<QLabel>(window, "lblProgress");
    ASSERT_TRUE(QTest::qWaitFor([&] { return progressLine->toolTip().contains(QStringLiteral("CD 12")); }, 5000));
    EXPECT_EQ(progressLine->toolTip(), QStringLiteral("CD 12 wird durchsucht (2 von 5 Abbildern fertig)"));
    EXPECT_FALSE(done);

    control<QPushButton>(window, "cmdCancel")->click();
    ASSERT_TRUE(QTest::qWaitFor([&] { return done; }, 5000));
    EXPECT_TRUE(stopped);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    QTest::qWait(5);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(owner.findChild<QWidget *>(QStringLiteral("wait")), nullptr);
    EXPECT_TRUE(run.isNull()); // gone after its end
}

TEST(SearchRun, AQueryThatCannotStopOffersNoCancel)
{
    QWidget owner;
    bool done = false;
    (new SearchRun(&owner, false))->start([](SearchProgress *) {}, [&] { done = true; });
    auto *window = control<QWidget>(&owner, "wait");
    ASSERT_NE(window, nullptr);
    EXPECT_FALSE(control<QPushButton>(window, "cmdCancel")->isVisibleTo(window));
    ASSERT_TRUE(QTest::qWaitFor([&] { return done; }, 5000));
}

// An owner that goes while the work runs stops the work and waits for it; nothing is left behind.
TEST(SearchRun, AClosingOwnerStopsTheWork)
{
    std::atomic<bool> started { false };
    std::atomic<bool> stopped { false };
    bool done = false;
    {
        QWidget owner;
        (new SearchRun(&owner, true))
            ->start([&](SearchProgress *progress) { holdUntilCancelled(progress, started, stopped); },
                [&] { done = true; });
        ASSERT_TRUE(QTest::qWaitFor([&] { return started.load(); }, 5000));
    }
    EXPECT_TRUE(stopped);
    EXPECT_FALSE(done);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

} // namespace
