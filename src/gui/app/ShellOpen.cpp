#include "ShellOpen.h"

#include <QDesktopServices>
#include <QProcess>

namespace shellopen {

namespace {

ShellRecorder *activeRecorder = nullptr;

} // namespace

bool open(const QUrl &url)
{
    if (activeRecorder) {
        activeRecorder->m_opened << url;
        return true;
    }
    return QDesktopServices::openUrl(url);
}

bool startDetached(const QString &program, const QStringList &arguments)
{
    if (activeRecorder) {
        activeRecorder->m_started << (QStringList { program } + arguments);
        return true;
    }
    return QProcess::startDetached(program, arguments);
}

ShellRecorder::ShellRecorder()
    : m_previous(activeRecorder)
{
    activeRecorder = this;
}

ShellRecorder::~ShellRecorder()
{
    activeRecorder = m_previous;
}

} // namespace shellopen
