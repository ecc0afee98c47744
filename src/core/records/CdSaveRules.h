#pragma once

#include "archives/CdRow.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

// The number rules of the two CD dialogs, shared by the windows and the command line.
// Numbers are compared as texts in the "#" format, which writes 0 as the empty text.
namespace cdsaverules {

constexpr int32_t kHighestNumber = 32000;

// The numbers of the rows in "#" format and in their order, with one empty element at the end.
QStringList numberList(const std::vector<CdRow> &rows);

// The number the new-CD dialog offers: "00" + (i + 1) for the first position i whose element
// is not i + 1. A mismatch at the first position is noted but the search goes on, so
// numbers 2, 3 give "002", a number in use.
QString proposeNumber(const QStringList &numberList);

struct NumberCheck
{
    int32_t number = 0;
    QString message; // German, empty when the number may be saved

    bool ok() const { return message.isEmpty(); }
};

// The checks of saving a new CD: digits only, at most 32000, not in numberList. 0 matches
// the empty last element and is refused as taken.
NumberCheck checkNewCdNumber(const QString &numberText, const QStringList &numberList);
// The same for a changed CD, which may keep its own number oldNumberText.
NumberCheck checkChangeCdNumber(
    const QString &numberText, const QStringList &numberList, const QString &oldNumberText);

QString savedMessage();

} // namespace cdsaverules
