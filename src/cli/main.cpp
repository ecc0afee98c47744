#include "CliCommand.h"
#include "CliHelp.h"
#include "app/Installation.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <cstdio>
#include <cstring>
#include <memory>
#include <map>

namespace {

std::map<QString, RegisteredCommand> &commands()
{
    static std::map<QString, RegisteredCommand> table;
    return table;
}

void writeUtf8(FILE *stream, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
}

void printUsage(FILE *stream)
{
    writeUtf8(stream, helpText());
}

} // namespace

CliCommand::CliCommand(const char *verb, const char *usage, CliHandler handler, const char *description)
{
    commands()[QString::fromUtf8(verb)]
        = RegisteredCommand { QString::fromUtf8(usage), QString::fromUtf8(description), handler };
}

const std::map<QString, RegisteredCommand> &registeredCommands()
{
    return commands();
}

void printLine(const QString &line)
{
    writeUtf8(stdout, line + QLatin1Char('\n'));
}

void printError(const QString &message)
{
    writeUtf8(stderr, message + QLatin1Char('\n'));
}

namespace {

// The verb of the call: the first word that is no global option or its value.
const char *verbOf(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--data") == 0 || std::strcmp(argv[i], "--archive") == 0)
            ++i;
        else
            return argv[i];
    }
    return "";
}

} // namespace

int main(int argc, char **argv)
{
    // Printing lays out text, which takes a GUI application; it needs no display.
    std::unique_ptr<QCoreApplication> application;
    if (std::strcmp(verbOf(argc, argv), "print") == 0) {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        // Other tools read stderr for our messages alone, not for the platform's remarks.
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &message) {
            if (type == QtCriticalMsg || type == QtFatalMsg)
                writeUtf8(stderr, message + QLatin1Char('\n'));
        });
        application = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        application = std::make_unique<QCoreApplication>(argc, argv);
    }
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.contains(QLatin1String("--help"))) {
        printUsage(stdout);
        return ExitOk;
    }
    if (arguments == QStringList { QStringLiteral("--version") }) {
        printLine(installation::versionText());
        return ExitOk;
    }
    // Builds the manual page, so that it says what --help says.
    if (arguments == QStringList { QStringLiteral("--manpage") }) {
        writeUtf8(stdout, manPage());
        return ExitOk;
    }
    // The global options may stand before or after the verb.
    CliContext context;
    QStringList words;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString &word = arguments[i];
        const bool global = word == QLatin1String("--data") || word == QLatin1String("--archive");
        if (!global) {
            words.append(word);
            continue;
        }
        if (i + 1 >= arguments.size()) {
            printUsage(stderr);
            return ExitUsage;
        }
        (word == QLatin1String("--data") ? context.dataOption : context.archiveOption) = arguments[++i];
    }
    if (words.isEmpty()) {
        printUsage(stderr);
        return ExitUsage;
    }
    const auto found = commands().find(words.first());
    if (found == commands().end()) {
        printError(QStringLiteral("Unbekannter Befehl: ") + words.first());
        printUsage(stderr);
        return ExitUsage;
    }
    context.words = words.mid(1);
    return found->second.handler(context);
}
