#include "ShellOpen.h"

#include "common/Prompts.h"

#include <QDesktopServices>
#include <QDir>
#include <QProcess>

namespace shellopen {

namespace {

ShellRecorder *activeRecorder = nullptr;

} // namespace

bool open(QWidget *parent, const QUrl &url)
{
    bool opened = true;
    if (activeRecorder) {
        activeRecorder->m_opened << url;
        opened = !activeRecorder->m_refusing;
    } else {
        opened = QDesktopServices::openUrl(url);
    }
    if (!opened) {
        const QString what = url.isLocalFile() ? QDir::toNativeSeparators(url.toLocalFile()) : url.toString();
        Prompts::message(parent,
            QStringLiteral("Es ist kein Programm zum Öffnen von ") + what + QStringLiteral(" eingerichtet."),
            Prompts::Icon::Warning);
    }
    return opened;
}

bool startDetached(const QString &program, const QStringList &arguments, const QStringList &environment)
{
    if (activeRecorder) {
        activeRecorder->m_started << (QStringList { program } + arguments);
        activeRecorder->m_startedEnvironments << environment;
        return true;
    }
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    for (const QString &variable : environment) {
        const qsizetype equals = variable.indexOf(QLatin1Char('='));
        variables.insert(variable.left(equals), variable.mid(equals + 1));
    }
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setProcessEnvironment(variables);
    return process.startDetached();
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
