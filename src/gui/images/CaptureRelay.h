#pragma once

#include "images/CaptureProgress.h"

#include <QObject>

#include <atomic>

// Carries a capture's progress from the thread that runs it to the windows, and the user's
// cancel back. The signal crosses threads queued; the flag is read by the capture.
class CaptureRelay : public QObject, public CaptureProgress
{
    Q_OBJECT

public:
    using QObject::QObject;

    void progress(uint32_t folders, uint32_t files, const QString &currentFolder) override;
    bool cancelled() override { return m_cancelled.load(std::memory_order_relaxed); }

    void cancel() { m_cancelled.store(true, std::memory_order_relaxed); }

signals:
    void progressed(quint32 folders, quint32 files, const QString &currentFolder);

private:
    std::atomic<bool> m_cancelled { false };
};
