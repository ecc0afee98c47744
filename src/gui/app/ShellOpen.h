#pragma once

#include <QList>

class QWidget;
#include <QStringList>
#include <QUrl>

// Opens a file or an address with the program the desktop has for it, or starts a program.
// While a ShellRecorder is alive nothing is started: the requests are recorded, so tests can
// see them.
namespace shellopen {

// Opens url; when the desktop has no program for it, says so in a message over parent.
bool open(QWidget *parent, const QUrl &url);
// Starts the program as a process of its own that outlives this one; `environment` holds
// variables ("NAME=value") set for that process alone.
bool startDetached(const QString &program, const QStringList &arguments, const QStringList &environment = {});

class ShellRecorder
{
public:
    ShellRecorder();
    ~ShellRecorder();
    ShellRecorder(const ShellRecorder &) = delete;
    ShellRecorder &operator=(const ShellRecorder &) = delete;

    const QList<QUrl> &opened() const { return m_opened; }
    // Each started program with its arguments, one list each.
    const QList<QStringList> &started() const { return m_started; }
    // The variables set for each started program, in the same order.
    const QList<QStringList> &startedEnvironments() const { return m_startedEnvironments; }
    // From now on the desktop has no program for anything: open() fails.
    void refuse() { m_refusing = true; }

private:
    friend // Opens url; when the desktop has no program for it, says so in a message over parent.
bool open(QWidget *parent, const QUrl &url);
    friend bool startDetached(const QString &program, const QStringList &arguments, const QStringList &environment);
    ShellRecorder *m_previous;
    QList<QUrl> m_opened;
    QList<QStringList> m_started;
    QList<QStringList> m_startedEnvironments;
    bool m_refusing = false;
};

} // namespace shellopen
