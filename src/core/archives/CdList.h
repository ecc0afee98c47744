#pragma once

#include "CdRow.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

// The CD list of the main window. An entry reads number, blank, title; that text is the only
// link between a list entry and its row, so every reader takes the number from it.
namespace cdlist {

struct Fill
{
    QStringList entries;
    QString error; // German; set when rows had to be left out
};

// The entries of the rows, in their order. The list holds 16-bit numbers: a row whose
// number lies outside -32768..32767 is left out and named in the error.
Fill entriesOf(const std::vector<CdRow> &rows);

QString entryText(int16_t number, const QString &name);

// The CD number of an entry: its text up to the first blank. None when that is no 16-bit number.
std::optional<int16_t> numberOf(const QString &entry);

// Sorts the entries by title, binary, and sets listSorted; an empty list stays as it is,
// listSorted included. The number keeps its blank and gets another, so each repeated sort
// without a reload widens the gap by one blank.
void sortByTitle(QStringList &entries, bool &listSorted);

// The texts of deleting a CD: the refusal with nothing selected, the question, the report.
QString noCdSelectedMessage();
QString deleteQuestion(int number);
QString deletedMessage();

} // namespace cdlist
