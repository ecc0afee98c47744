#include "ResultColumns.h"

namespace {

RuntimeFailure invalidArgument()
{
    return {5, QStringLiteral("Ungültiger Prozeduraufruf oder ungültiges Argument")};
}

} // namespace

std::variant<ResultColumns, RuntimeFailure> ResultColumns::cut(const HitEntry &entry)
{
    if (entry.titleEnd < 0 || entry.titleEnd >= entry.text.size())
        return invalidArgument();
    ResultColumns columns;
    columns.cd = entry.text.left(entry.titleEnd);
    const QString line = entry.text.mid(entry.titleEnd + 1);
    if (line.startsWith(QLatin1Char('>'))) {
        columns.folder = true;
        columns.file = line;
        return columns;
    }
    const qsizetype dateBar = line.lastIndexOf(QLatin1Char('|'));
    const qsizetype sizeBar = dateBar > 0 ? line.lastIndexOf(QLatin1Char('|'), dateBar - 1) : -1;
    if (sizeBar < 0)
        return invalidArgument();
    columns.file = line.left(sizeBar);
    columns.size = line.mid(sizeBar + 1, dateBar - sizeBar - 1);
    columns.date = line.mid(dateBar + 1);
    return columns;
}

std::variant<QString, RuntimeFailure> ResultColumns::fileLine(const HitEntry &entry)
{
    const auto cutEntry = cut(entry);
    if (const auto *failure = std::get_if<RuntimeFailure>(&cutEntry))
        return *failure;
    const ResultColumns &columns = std::get<ResultColumns>(cutEntry);
    const QString head = columns.cd + QLatin1Char(' ') + columns.file;
    if (columns.folder)
        return head;
    return head + QStringLiteral(" * ") + columns.size + QStringLiteral(" Byte * Date:") + columns.date;
}
