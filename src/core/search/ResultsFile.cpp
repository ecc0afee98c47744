#include "ResultsFile.h"

#include "ResultColumns.h"

#include "common/Cp1252.h"
#include "common/Temporaries.h"

namespace {

void appendLine(const QString &line, QByteArray &out)
{
    const std::string bytes = cp1252::fromQString(line);
    out.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
    out.append("\r\n");
}

} // namespace

std::variant<QByteArray, RuntimeFailure> ResultsFile::text(const QString &searchWord,
                                                           const std::vector<HitEntry> &hitEntries,
                                                           const QDateTime &now)
{
    QByteArray out;
    appendLine(QStringLiteral("Suchergebnisse für die Suche nach ") + searchWord + QStringLiteral(" Stand: ") +
                   now.toString(QStringLiteral("dd.MM.yyyy")) + QLatin1Char(' ') +
                   now.toString(QStringLiteral("hh:mm:ss")),
               out);
    appendLine(QString(22, QLatin1Char('=')), out);
    for (const HitEntry &entry : hitEntries) {
        const auto line = ResultColumns::fileLine(entry);
        if (const auto *failure = std::get_if<RuntimeFailure>(&line))
            return *failure;
        appendLine(std::get<QString>(line), out);
    }
    return out;
}

std::optional<RuntimeFailure> ResultsFile::save(const QString &path, const QString &searchWord,
                                                const std::vector<HitEntry> &hitEntries, const QDateTime &now)
{
    const auto bytes = text(searchWord, hitEntries, now);
    if (const auto *failure = std::get_if<RuntimeFailure>(&bytes))
        return *failure;
    if (!temporaries::replaceFile(path, std::get<QByteArray>(bytes)))
        return RuntimeFailure{75, QStringLiteral("Fehler beim Zugriff auf Pfad/Datei")};
    return std::nullopt;
}
