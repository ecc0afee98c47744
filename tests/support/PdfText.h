#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

// What a tool prints, or an empty text when it fails.
inline QString toolOutput(const QString &tool, const QStringList &arguments)
{
    QProcess process;
    process.start(tool, arguments);
    process.waitForFinished(60000);
    return process.exitCode() == 0 ? QString::fromUtf8(process.readAllStandardOutput()) : QString();
}

// The text of a PDF file as pdftotext lays it out, and its page count from pdfinfo; empty and
// -1 when the file cannot be read.
inline QString pdfText(const QString &path)
{
    return toolOutput(QStringLiteral("pdftotext"), { QStringLiteral("-layout"), path, QStringLiteral("-") });
}

inline int pdfPages(const QString &path)
{
    const QString info = u'\n' + toolOutput(QStringLiteral("pdfinfo"), { path });
    const qsizetype at = info.indexOf(QLatin1String("\nPages:"));
    return at < 0 ? -1 : info.mid(at + 7).section(u'\n', 0, 0).trimmed().toInt();
}
