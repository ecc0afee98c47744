#pragma once

#include <QString>
#include <QStringList>

// The comments of a CD in one text: "Sta1", then "|" and each comment, then "|End1". There is
// no escaping, so a "|" inside a comment splits it into two at the next reading.
namespace commentcodec {

// The new-CD dialog's form: no comments give "Sta1|End1".
QString encodeNewCd(const QStringList &comments);
// The edit dialog's form: no comments give "Sta1||End1", and a comment after one that ends
// in "|" (or after an empty one) gets no bar of its own.
QString encodeChangeCd(const QStringList &comments);
// Every piece between the first and the last "|"; the frame marks themselves are not looked at.
QStringList decode(const QString &text);

} // namespace commentcodec
