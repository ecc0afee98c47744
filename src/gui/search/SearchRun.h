#pragma once

#include "search/SearchProgress.h"

#include <QObject>
#include <QPointer>

#include <atomic>
#include <functional>

class QThread;
class ProgressWindow;

// One search, run on a thread of its own. Meanwhile the wait window stands over the owner
// with "Die Suche läuft...", the image being read and, for a search that can stop, a cancel
// button; the rest of the program takes no input, as it took none while a search blocked
// it. The run deletes itself after `done`; an owner that goes first cancels the work and
// waits for it.
class SearchRun : public QObject, public SearchProgress
{
    Q_OBJECT

public:
    SearchRun(QWidget *owner, bool cancellable);
    ~SearchRun() override;

    // Runs `work` off the GUI thread with this object as its progress, then `done` on the
    // GUI thread once the wait window is gone.
    void start(std::function<void(SearchProgress *)> work, std::function<void()> done);

    void imageStarted(int done, int total, int32_t cdNumber) override;
    bool cancelRequested() const override { return m_cancel.load(std::memory_order_relaxed); }

signals:
    // Carries imageStarted() to the GUI thread.
    void progressed(int done, int total, int cdNumber);

private:
    void showProgress(int done, int total, int cdNumber);
    // Takes the wait window and the busy pointer away; safe to call twice.
    void endWaiting();

    QWidget *m_owner;
    bool m_cancellable;
    QPointer<ProgressWindow> m_wait;
    QThread *m_thread = nullptr;
    std::atomic<bool> m_cancel{false};
    bool m_waiting = false;
};
