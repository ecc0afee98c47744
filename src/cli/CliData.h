#pragma once

#include "CliCommand.h"
#include "app/Session.h"
#include "app/Settings.h"

#include <QString>

#include <cstdint>
#include <optional>

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

    // The archive's file, or empty with the German reason in *problem. An archive of the
    // Windows version is converted first, with a word on stderr.
    QString archivePath(QString *problem) const;
    // The archive's file of a verb that needs one: empty once the refusal, of --data or of the
    // archive, is printed on stderr.
    QString archiveOrRefuse() const;
    // The same for the archive of that name.
    QString archivePathOf(const QString &name, QString *problem) const;

private:
    Settings m_settings;
    Session m_session;
    QString m_dataFolder;
    QString m_archiveOption;
    QString m_problem;
};

// A whole number of 32 bits written as a word, or nothing.
std::optional<int32_t> wholeNumber(const QString &word);
// The refusals of a CD number and an image id that are no whole number.
QString cdNumberNotWholeMessage();
QString imageIdNotWholeMessage();

// Prints a refusal on stderr, line ends made plain, and gives the exit code for it.
int refuse(const QString &message);
// Prints the verb's usage on stderr and gives the exit code for a wrong call.
int usageError(const char *usage);
