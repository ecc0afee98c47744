#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

// The text of a PDF file as pdftotext lays it out, and its page count from pdfinfo; empty and
// -1 when the file cannot be read.
inline QString pdfText(const QString &path)
{
    QProcess process;
    process.start(QStringLiteral("pdftotext"), { QStringLiteral("-layout"), path, QStringLiteral("-") });
    process.waitForFinished(60000);
    return process.exitCode() == 0 ? QString::fromUtf8(process.readAllStandardOutput()) : QString();
}

inline int pdfPages(const QString &path)
{
    QProcess process;
    process.start(QStringLiteral("pdfinfo"), { path });
    process.waitForFinished(60000);
    for (const QString &line : QString::fromUtf8(process.readAllStandardOutput()).split(u'\n')) {
        if (line.startsWith(QLatin1String("Pages:")))
            return line.mid(6).trimmed().toInt();
    }
    return -1;
}
