#pragma once

#include <QString>
#include <QStringList>

#include <map>

// What every verb of silberbuch-cli gets: its own words and the global options.
struct CliContext
{
    QStringList words;    // the words after the verb, options included
    QString dataOption;   // --data DIR, empty when not given
    QString archiveOption; // --archive NAME, empty when not given
};

// Exit codes of the command line: other tools rely on them.
enum CliExit { ExitOk = 0, ExitRefused = 1, ExitUsage = 2 };

using CliHandler = int (*)(CliContext &context);

// Each verb's file registers its handler with a static instance of this. usage is one line
// per form of the call; description, in German, says what the verb does for --help and the
// manual page.
struct CliCommand
{
    CliCommand(const char *verb, const char *usage, CliHandler handler, const char *description = "");
};

struct RegisteredCommand
{
    QString usage;
    QString description;
    CliHandler handler;
};

// The registered verbs, in alphabetical order.
const std::map<QString, RegisteredCommand> &registeredCommands();

// Output in UTF-8; messages go to stderr.
void printLine(const QString &line);
void printError(const QString &message);
