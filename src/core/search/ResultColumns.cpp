#include "ResultColumns.h"

namespace {

RuntimeFailure invalidArgument()
{
    return {5, QStringLiteral("Ungültiger Prozeduraufruf oder ungültiges Argument")};
}

} // namespace

std::variant<ResultColumns, RuntimeFailure> ResultColumns::cut(const QString &entry)
{
    const qsizetype lt = entry.indexOf(QLatin1Char('<'));
    if (lt < 0)
        return invalidArgument();
    ResultColumns columns;
    columns.cd = entry.left(lt);
    const QString line = entry.mid(lt + 1);
    if (line.startsWith(QLatin1Char('>'))) {
        columns.folder = true;
        columns.file = line;
        return columns;
    }
    const qsizetype barInLine = line.indexOf(QLatin1Char('|'));
    if (barInLine < 0)
        return invalidArgument();
    columns.file = line.left(barInLine);
    // Size and date are taken in the whole entry, the title included.
    const QString afterFirstBar = entry.mid(entry.indexOf(QLatin1Char('|')) + 1);
    const qsizetype lastBar = afterFirstBar.lastIndexOf(QLatin1Char('|'));
    if (lastBar < 0)
        return invalidArgument();
    columns.size = afterFirstBar.left(lastBar);
    columns.date = entry.mid(entry.lastIndexOf(QLatin1Char('|')) + 1);
    return columns;
}

std::variant<QString, RuntimeFailure> ResultColumns::fileLine(const QString &entry)
{
    const auto cutEntry = cut(entry);
    if (const auto *failure = std::get_if<RuntimeFailure>(&cutEntry))
        return *failure;
    const ResultColumns &columns = std::get<ResultColumns>(cutEntry);
    QString out = columns.folder ? entry
                                 : entry.left(entry.indexOf(QLatin1Char('|'))) + QStringLiteral(" * ") +
                                       columns.size + QStringLiteral(" Byte * Date:") +
                                       columns.date;
    out.replace(out.indexOf(QLatin1Char('<')), 1, QLatin1Char(' '));
    return out;
}
