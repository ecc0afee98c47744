#pragma once

#include "QStringPrinting.h"
#include "TestPaths.h"

#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <map>

#include <unistd.h>

// The words of a call, written as plain UTF-8 literals.
inline QStringList args(std::initializer_list<const char *> words)
{
    QStringList list;
    for (const char *word : words)
        list.append(QString::fromUtf8(word));
    return list;
}

struct CliRun
{
    int exitCode = -1;
    QStringList lines; // stdout, one entry per line
    QString error; // stderr, trimmed
};

// A call to refuse: its words after "--data <data folder>", the exit code and the message.
using Refusal = std::tuple<QStringList, int, QString>;

// Runs the real command line against a temporary data folder (--data), a settings file of
// its own ($SILBERBUCH_CONFIG) and a program folder of its own ($SILBERBUCH_HOME).
class CliRunner
{
public:
    CliRunner() { QDir(m_dir.path()).mkpath(QStringLiteral("data")); }

    QString dataFolder() const { return m_dir.filePath(QStringLiteral("data")); }
    QString dataPath(const QString &relative) const { return QDir(dataFolder()).filePath(relative); }
    QString settingsFile() const
    {
        return m_settingsFile.isEmpty() ? m_dir.filePath(QStringLiteral("settings.ini")) : m_settingsFile;
    }
    // The settings file elsewhere, for the runs from now on.
    void useSettingsFile(const QString &path) { m_settingsFile = path; }
    QString scratch(const QString &name) const { return m_dir.filePath(name); }

    // A file below the data folder with the given bytes.
    void write(const QString &relative, const QByteArray &bytes) const { writeFile(dataPath(relative), bytes); }

    // Without withData the program picks its own data folder. inChild runs in the new
    // process before the program starts (limits, say).
    CliRun run(const QStringList &arguments, bool withData = true, const std::function<void()> &inChild = {}) const
    {
        QProcess process;
        if (inChild)
            process.setChildProcessModifier(inChild);
        start(process, withData ? QStringList { QStringLiteral("--data"), dataFolder() } + arguments : arguments);
        EXPECT_TRUE(process.waitForFinished(30000));
        return { process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts),
            QString::fromUtf8(process.readAllStandardError()).trimmed() };
    }

    // Starts the call on the data folder and kills it after `delayMs`, as a crash would.
    void killAfter(const QStringList &arguments, int delayMs) const
    {
        QProcess process;
        start(process, QStringList { QStringLiteral("--data"), dataFolder() } + arguments);
        EXPECT_TRUE(process.waitForStarted());
        ::usleep(static_cast<useconds_t>(delayMs) * 1000);
        ::kill(static_cast<pid_t>(process.processId()), SIGKILL);
        process.waitForFinished();
    }

    // Each call must be refused: exit code 1 with exactly its message, or 2 with a usage text
    // starting with it; nothing on stdout, and no file below the test's folder changed.
    void expectRefused(const std::vector<Refusal> &calls) const
    {
        for (const auto &[arguments, exitCode, message] : calls) {
            SCOPED_TRACE(arguments.join(QLatin1Char(' ')).toStdString());
            const auto before = snapshot();
            const CliRun refused = run(arguments);
            EXPECT_EQ(refused.exitCode, exitCode);
            EXPECT_EQ(exitCode == 2 ? refused.error.left(message.size()) : refused.error, message);
            EXPECT_TRUE(refused.lines.isEmpty());
            EXPECT_TRUE(snapshot() == before);
        }
    }

private:
    void start(QProcess &process, const QStringList &arguments) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("SILBERBUCH_CONFIG"), settingsFile());
        environment.insert(QStringLiteral("SILBERBUCH_HOME"), m_dir.filePath(QStringLiteral("home")));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(SILBERBUCH_CLI), arguments);
    }

    // Every file below the test's folder with its bytes, settings included.
    std::map<QString, QByteArray> snapshot() const
    {
        std::map<QString, QByteArray> files;
        QDirIterator it(m_dir.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString path = it.next();
            files[path] = fileBytes(path);
        }
        return files;
    }

    QTemporaryDir m_dir;
    QString m_settingsFile;
};
