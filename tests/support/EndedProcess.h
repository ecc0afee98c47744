#pragma once

#include <QProcess>

// The pid of a process that has ended: its temporary files count as debris.
inline qint64 endedProcessId()
{
    QProcess process;
    process.start(QStringLiteral("true"));
    process.waitForStarted();
    const qint64 pid = process.processId();
    process.waitForFinished();
    return pid;
}
