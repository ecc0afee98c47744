#include "CliCommand.h"

#include <QCoreApplication>

#include <cstdio>
#include <map>

namespace {

struct Registered
{
    QString usage;
    CliHandler handler;
};

std::map<QString, Registered> &commands()
{
    static std::map<QString, Registered> table;
    return table;
}

void printUsage(FILE *stream)
{
    std::fputs("silberbuch-cli [--data ORDNER] [--archive NAME] BEFEHL ...\n", stream);
    for (const auto &[verb, entry] : commands())
        std::fprintf(stream, "  %s\n", entry.usage.toUtf8().constData());
}

void writeUtf8(FILE *stream, const QString &line)
{
    const QByteArray bytes = line.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
    std::fputc('\n', stream);
}

} // namespace

CliCommand::CliCommand(const char *verb, const char *usage, CliHandler handler)
{
    commands()[QString::fromUtf8(verb)] = Registered{QString::fromUtf8(usage), handler};
}

void printLine(const QString &line)
{
    writeUtf8(stdout, line);
}

void printError(const QString &message)
{
    writeUtf8(stderr, message);
}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments().mid(1);
    if (arguments.contains(QLatin1String("--help"))) {
        printUsage(stdout);
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
