#include "CdList.h"

#include "common/Numbers.h"

#include <array>
#include <limits>

namespace cdlist {

namespace {

// Column i of the sort: row 0 the number with its blank, row 1 the rest of the entry.
using Column = std::array<QString, 2>;
constexpr int kKey = 1;
constexpr int kOther = 0;

void quickSort(std::vector<Column> &columns, int lo, int hi)
{
    int i = lo;
    int j = hi;
    const auto middle = static_cast<size_t>(bankersRound((lo + hi) / 2.0));
    const QString pivot = columns[middle][kKey];
    do {
        while (columns[static_cast<size_t>(i)][kKey] < pivot)
            ++i;
        while (columns[static_cast<size_t>(j)][kKey] > pivot)
            --j;
        if (i <= j) {
            std::swap(columns[static_cast<size_t>(i)][kKey], columns[static_cast<size_t>(j)][kKey]);
            std::swap(columns[static_cast<size_t>(i)][kOther], columns[static_cast<size_t>(j)][kOther]);
            ++i;
            --j;
        }
    } while (i <= j);
    if (lo < j)
        quickSort(columns, lo, j);
    if (i < hi)
        quickSort(columns, i, hi);
}

bool fitsList(int32_t number)
{
    return number >= std::numeric_limits<int16_t>::min() && number <= std::numeric_limits<int16_t>::max();
}

} // namespace

Fill entriesOf(const std::vector<CdRow> &rows)
{
    Fill fill;
    QStringList outside;
    for (const CdRow &row : rows) {
        if (fitsList(row.number))
            fill.entries.append(entryText(static_cast<int16_t>(row.number), row.name));
        else
            outside.append(QString::number(row.number));
    }
    if (!outside.isEmpty())
        fill.error = QStringLiteral(
                         "Folgende CD-Nummern liegen außerhalb des Bereichs von -32768 bis 32767 und können "
                         "in der Liste nicht angezeigt werden: ")
            + outside.join(QStringLiteral(", "));
    return fill;
}

QString entryText(int16_t number, const QString &name)
{
    return QString::number(number) + QLatin1Char(' ') + name;
}

std::optional<int16_t> numberOf(const QString &entry)
{
    const qsizetype blank = entry.indexOf(QLatin1Char(' '));
    if (blank < 0)
        return std::nullopt;
    bool ok = false;
    const int number = entry.left(blank).trimmed().toInt(&ok);
    if (!ok || !fitsList(number))
        return std::nullopt;
    return static_cast<int16_t>(number);
}

void sortByTitle(QStringList &entries, bool &listSorted)
{
    if (entries.isEmpty())
        return;
    std::vector<Column> columns;
    columns.reserve(static_cast<size_t>(entries.size()));
    for (const QString &entry : entries) {
        // Without a blank the number part is empty and the whole entry is the title.
        const qsizetype p = entry.indexOf(QLatin1Char(' ')) + 1;
        columns.push_back({ entry.left(p), entry.right(entry.size() - p) });
    }
    quickSort(columns, 0, static_cast<int>(columns.size()) - 1);
    entries.clear();
    for (const Column &column : columns)
        entries.append(column[kOther] + QLatin1Char(' ') + column[kKey]);
    listSorted = true;
}

QString noCdSelectedMessage()
{
    return QStringLiteral("Keine CD ausgewählt!");
}

QString deleteQuestion(int number)
{
    return QStringLiteral("Wollen Sie die CD (Nummer: ") + QString::number(number)
        + QStringLiteral(") wirklich löschen?");
}

QString deletedMessage()
{
    return QStringLiteral("CD wurde aus dem Archiv entfernt!");
}

} // namespace cdlist
