#include "AutostartEntry.h"

#include "common/Temporaries.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace autostart {

namespace {

QString configHome()
{
    const QString chosen = qEnvironmentVariable("XDG_CONFIG_HOME");
    // Only an absolute path counts; anything else means the default.
    if (!chosen.isEmpty() && QDir::isAbsolutePath(chosen))
        return chosen;
    return QDir::homePath() + QStringLiteral("/.config");
}

// An argument with a reserved character goes in double quotes, with ", `, $ and \ escaped.
QString quotedArgument(const QString &argument)
{
    static const QString reserved = QStringLiteral(" \t\n\"'\\><~|&;$*?#()`");
    const bool needsQuotes = argument.isEmpty()
                             || std::any_of(argument.begin(), argument.end(),
                                            [](QChar c) { return reserved.contains(c); });
    if (!needsQuotes)
        return argument;
    QString quoted = QStringLiteral("\"");
    for (const QChar c : argument) {
        if (c == QLatin1Char('"') || c == QLatin1Char('`') || c == QLatin1Char('$') || c == QLatin1Char('\\'))
            quoted += QLatin1Char('\\');
        quoted += c;
    }
    return quoted + QLatin1Char('"');
}

} // namespace

QString entryPath()
{
    return configHome() + QStringLiteral("/autostart/silberbuch.desktop");
}

QString execValue(const QString &executable)
{
    QString value = quotedArgument(executable) + QStringLiteral(" -minimized");
    // The value is a string of the entry as well, unescaped before the quotes are read: its
    // backslashes are doubled once more and a line break escaped; "%" would start a field code.
    value.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
    value.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
    value.replace(QLatin1Char('%'), QStringLiteral("%%"));
    return value;
}

bool writeEntry(const QString &executable)
{
    const QString path = entryPath();
    if (!QDir().mkpath(QFileInfo(path).path()))
        return false;
    const QString text = QStringLiteral("[Desktop Entry]\n"
                                        "Type=Application\n"
                                        "Name=Silberbuch\n"
                                        "Exec=")
                         + execValue(executable) + QStringLiteral("\nTerminal=false\n");
    return temporaries::replaceFile(path, text.toUtf8());
}

bool removeEntry()
{
    const QString path = entryPath();
    QFile::remove(path);
    const QFileInfo left(path);
    return !left.exists() && !left.isSymLink();
}

} // namespace autostart
