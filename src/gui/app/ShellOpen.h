#pragma once

#include <QList>
#include <QUrl>

// Opens a file or an address with the program the desktop has for it. While a ShellRecorder
// is alive nothing is started: the requests are recorded, so tests can see them.
namespace shellopen {

bool open(const QUrl &url);

class ShellRecorder
{
public:
    ShellRecorder();
    ~ShellRecorder();
    ShellRecorder(const ShellRecorder &) = delete;
    ShellRecorder &operator=(const ShellRecorder &) = delete;

    const QList<QUrl> &opened() const { return m_opened; }

private:
    friend bool open(const QUrl &url);
    ShellRecorder *m_previous;
    QList<QUrl> m_opened;
};

} // namespace shellopen
