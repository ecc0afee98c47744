#include "search/SearchRun.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <atomic>

namespace {

QWidget *waitWindow(QWidget *owner)
{
    return owner->findChild<QWidget *>(QStringLiteral("wait"));
}

// The work reports an image and then holds until it is told to stop, so that the window can
// be looked at while the run stands.
TEST(SearchRun, ShowsProgressAndStopsOnCancel)
{
    QWidget owner;
    owner.show();
    std::atomic<bool> reported{false};
    bool stopped = false;
    bool done = false;
    QPointer<SearchRun> run = new SearchRun(&owner, true);
    run->start(
        [&](SearchProgress *progress) {
            progress->imageStarted(2, 5, 12);
            reported = true;
            while (!progress->cancelRequested())
                QThread::msleep(1);
            stopped = true;
        },
        [&] { done = true; });

    QWidget *window = waitWindow(&owner);
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(window->findChild<QLabel *>(QStringLiteral("Label2"))->text(), QStringLiteral("Die Suche läuft..."));
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return reported.load(); }, 5000));
    QLabel *progressLine = window->findChild<QLabel *>(QStringLiteral("lblProgress"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return progressLine->toolTip().contains(QStringLiteral("CD 12")); }, 5000));
    EXPECT_EQ(progressLine->toolTip(), QStringLiteral("CD 12 wird durchsucht (2 von 5 Abbildern fertig)"));
    EXPECT_FALSE(done);

    QPushButton *cancel = window->findChild<QPushButton *>(QStringLiteral("cmdCancel"));
    ASSERT_TRUE(cancel->isVisible());
    cancel->click();
    ASSERT_TRUE(QTest::qWaitFor([&] { return done; }, 5000));
    EXPECT_TRUE(stopped);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    QTest::qWait(5);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(waitWindow(&owner), nullptr);
    EXPECT_TRUE(run.isNull()); // gone after its end
}

TEST(SearchRun, AQueryThatCannotStopOffersNoCancel)
{
    QWidget owner;
    bool done = false;
    auto *run = new SearchRun(&owner, false);
    run->start([](SearchProgress *) {}, [&] { done = true; });
    QWidget *window = waitWindow(&owner);
    ASSERT_NE(window, nullptr);
    EXPECT_FALSE(window->findChild<QPushButton *>(QStringLiteral("cmdCancel"))->isVisibleTo(window));
    ASSERT_TRUE(QTest::qWaitFor([&] { return done; }, 5000));
}

// An owner that goes while the work runs stops the work and waits for it; nothing is left behind.
TEST(SearchRun, AClosingOwnerStopsTheWork)
{
    std::atomic<bool> started{false};
    std::atomic<bool> stopped{false};
    bool done = false;
    {
        QWidget owner;
        auto *run = new SearchRun(&owner, true);
        run->start(
            [&](SearchProgress *progress) {
                started = true;
                while (!progress->cancelRequested())
                    QThread::msleep(1);
                stopped = true;
            },
            [&] { done = true; });
        ASSERT_TRUE(QTest::qWaitFor([&] { return started.load(); }, 5000));
    }
    EXPECT_TRUE(stopped);
    EXPECT_FALSE(done);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

} // namespace
