#pragma once

#include "CliCommand.h"
#include "app/Session.h"
#include "app/Settings.h"

#include <QString>

// Where a verb works: the data folder of --data, else the user's data folder; the archive
// of --archive, else the default archive.
class CliData
{
public:
    explicit CliData(const CliContext &context);

    Settings &settings() { return m_settings; }
    const QString &dataFolder() const { return m_dataFolder; }
    // False when --data names no folder; problem() then says why.
    bool ok() const { return m_problem.isEmpty(); }
    const QString &problem() const { return m_problem; }

    // The archive's file, or empty with the German reason in *problem.
    QString archivePath(QString *problem) const;

private:
    Settings m_settings;
    Session m_session;
    QString m_dataFolder;
    QString m_archiveOption;
    QString m_problem;
};

// Prints a refusal on stderr, line ends made plain, and gives the exit code for it.
int refuse(const QString &message);
// Prints the verb's usage on stderr and gives the exit code for a wrong call.
int usageError(const char *usage);
