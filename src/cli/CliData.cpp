#include "CliData.h"

#include "app/DataFolder.h"
#include "app/StartupFolders.h"
#include "archives/ArchiveCatalog.h"
#include "archives/JetConversion.h"

#include <QDir>

CliData::CliData(const CliContext &context)
    : m_archiveOption(context.archiveOption)
{
    if (context.dataOption.isEmpty()) {
        QString notice;
        m_dataFolder = getDataFolder(m_session, m_settings, &notice);
        if (!notice.isEmpty())
            printError(notice);
    } else {
        m_dataFolder = QDir(context.dataOption).absolutePath();
        if (!folderExists(m_dataFolder))
            m_problem = QStringLiteral("Der Datenordner \"") + QDir::toNativeSeparators(m_dataFolder)
                + QStringLiteral("\" existiert nicht.");
    }
    if (ok())
        removeDebris(m_dataFolder);
}

QString CliData::archivePath(QString *problem) const
{
    const QString name = m_archiveOption.isEmpty() ? defaultArchive(m_settings) : m_archiveOption;
    if (name.isEmpty()) {
        *problem = QStringLiteral(
            "Es ist kein Standardarchiv festgelegt. Bitte geben Sie das Archiv mit --archive NAME "
            "an.");
        return {};
    }
    return archivePathOf(name, problem);
}

QString CliData::archiveOrRefuse() const
{
    QString problem = m_problem;
    const QString path = problem.isEmpty() ? archivePath(&problem) : QString();
    if (path.isEmpty())
        refuse(problem);
    return path;
}

QString CliData::archivePathOf(const QString &name, QString *problem) const
{
    const ArchiveCatalog catalog(m_dataFolder);
    if (!catalog.names().contains(name)) {
        *problem = archiveNotFoundMessage();
        return {};
    }
    const QString path = catalog.pathOf(name);
    const JetConversion conversion = convertIfJet(path);
    if (!conversion.ok()) {
        *problem = conversion.error.message;
        return {};
    }
    if (conversion.converted)
        printError(conversion.notice);
    return path;
}

std::optional<int32_t> wholeNumber(const QString &word)
{
    bool ok = false;
    const int32_t value = word.toInt(&ok);
    return ok ? std::optional<int32_t>(value) : std::nullopt;
}

QString cdNumberNotWholeMessage()
{
    return QStringLiteral("Die CD-Nummer muss eine ganze Zahl sein.");
}

QString imageIdNotWholeMessage()
{
    return QStringLiteral("Die Abbild-ID muss eine ganze Zahl von -2147483648 bis 2147483647 sein.");
}

int refuse(const QString &message)
{
    QString plain = message;
    printError(plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    return ExitRefused;
}

int usageError(const char *usage)
{
    printError(QStringLiteral("Aufruf: silberbuch-cli ") + QString::fromUtf8(usage));
    return ExitUsage;
}
