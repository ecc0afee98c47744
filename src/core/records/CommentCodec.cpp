#include "CommentCodec.h"

namespace commentcodec {

namespace {

const QChar kBar = QLatin1Char('|');

} // namespace

QString encodeNewCd(const QStringList &comments)
{
    QString text = QStringLiteral("Sta1");
    for (const QString &comment : comments)
        text += kBar + comment;
    return text + QStringLiteral("|End1");
}

QString encodeChangeCd(const QStringList &comments)
{
    QString text = QStringLiteral("Sta1|");
    for (const QString &comment : comments) {
        if (!text.endsWith(kBar))
            text += kBar;
        text += comment;
    }
    return text + QStringLiteral("|End1");
}

QStringList decode(const QString &text)
{
    const QStringList pieces = text.split(kBar);
    if (pieces.size() < 3)
        return {};
    return pieces.mid(1, pieces.size() - 2);
}

} // namespace commentcodec
