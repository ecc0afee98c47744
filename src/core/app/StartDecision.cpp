#include "StartDecision.h"

#include "DataFolder.h"
#include "DataPaths.h"
#include "NumberText.h"

namespace {

// Start and autoarchiv are compared with 1 as numbers. A value that is no number takes the
// branch as well: the tick skips the failed comparison and goes on inside it.
bool takesBranchOfOne(const QString &text)
{
    const std::optional<double> number = parseNumberText(text);
    return !number || *number == 1.0;
}

} // namespace

void StartDecision::applyTo(Session &session) const
{
    if (askingArchive)
        session.startedAskingArchive = QStringLiteral("1");
    if (window == Window::MainWindow) {
        session.archivePath = archivePath;
        session.archiveName = archiveName;
    }
}

StartDecision decideStart(const Settings &settings, const QString &dataFolder, const QString &commandLine)
{
    StartDecision decision;
    if (takesBranchOfOne(settings.value(SettingKey::Start, QStringLiteral("1")))) {
        decision.window = StartDecision::Window::WelcomeDialog;
        return decision;
    }
    const bool minimized = isMinimizedStart(commandLine);
    if (takesBranchOfOne(settings.value(SettingKey::autoarchiv, QStringLiteral("1")))) {
        decision.window = StartDecision::Window::ArchiveChooser;
        decision.askingArchive = true;
        decision.showMinimizedNotice = minimized;
        return decision;
    }
    const QString name = settings.value(SettingKey::Standard);
    const QString path = datapaths::archiveFile(dataFolder, name);
    if (!dirFinds(path)) {
        decision.window = StartDecision::Window::ArchiveChooser;
        return decision;
    }
    decision.window = StartDecision::Window::MainWindow;
    decision.archivePath = path;
    decision.archiveName = name;
    decision.goToTray = minimized;
    return decision;
}

QString wholeCommandLine(const QStringList &arguments)
{
    return arguments.mid(1).join(QLatin1Char(' '));
}

bool isMinimizedStart(const QString &commandLine)
{
    return commandLine == QLatin1String("-minimized");
}

QString minimizedStartNotice()
{
    return QStringLiteral("Hinweis: Die Option den Silberbuch mit dem System mitstarten ist aktiviert. Sie macht "
                          "jedoch nur Sinn, wenn Sie ein Archiv als Standard auswählen.");
}
