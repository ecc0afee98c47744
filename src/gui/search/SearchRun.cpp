#include "SearchRun.h"

#include "images/ProgressWindow.h"

#include <QApplication>
#include <QThread>

SearchRun::SearchRun(QWidget *owner, bool cancellable)
    : QObject(owner)
    , m_owner(owner)
    , m_cancellable(cancellable)
{
    connect(this, &SearchRun::progressed, this, &SearchRun::showProgress, Qt::QueuedConnection);
}

SearchRun::~SearchRun()
{
    if (m_thread) {
        m_cancel.store(true, std::memory_order_relaxed);
        m_thread->wait();
        delete m_thread;
    }
    endWaiting();
}

void SearchRun::start(std::function<void(SearchProgress *)> work, std::function<void()> done)
{
    // A busy pointer rather than the plain hourglass: the cancel button must stay usable.
    QApplication::setOverrideCursor(Qt::BusyCursor);
    m_waiting = true;
    m_wait = new ProgressWindow(m_owner);
    m_wait->setText(QStringLiteral("Die Suche läuft..."));
    m_wait->setCancellable(m_cancellable);
    m_wait->setWindowModality(Qt::ApplicationModal);
    connect(m_wait, &ProgressWindow::cancelRequested, this, [this] { m_cancel.store(true, std::memory_order_relaxed); });
    m_wait->show();
    m_thread = QThread::create([this, work = std::move(work)] { work(this); });
    connect(m_thread, &QThread::finished, this, [this, done = std::move(done)] {
        m_thread->deleteLater();
        m_thread = nullptr;
        endWaiting();
        done();
        deleteLater();
    });
    m_thread->start();
}

void SearchRun::imageStarted(int done, int total, int32_t cdNumber)
{
    emit progressed(done, total, cdNumber);
}

void SearchRun::showProgress(int done, int total, int cdNumber)
{
    if (m_wait)
        m_wait->setProgressText(QStringLiteral("CD %1 wird durchsucht (%2 von %3 Abbildern fertig)")
                                    .arg(cdNumber)
                                    .arg(done)
                                    .arg(total));
}

void SearchRun::endWaiting()
{
    if (!m_waiting)
        return;
    m_waiting = false;
    if (m_wait)
        m_wait->close();
    QApplication::restoreOverrideCursor();
}
