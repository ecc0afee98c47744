#include "ShellOpen.h"

#include <QDesktopServices>

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
