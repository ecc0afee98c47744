#include "records/CommentCodec.h"

#include "QStringPrinting.h"

#include <gtest/gtest.h>

namespace {

struct EncodeCase
{
    const char *name;
    QStringList comments;
    const char *newCd;
    const char *changeCd;
};

TEST(CommentCodecTest, EachDialogEncodesByItsOwnRule)
{
    const EncodeCase cases[] = {
        { "none", {}, "Sta1|End1", "Sta1||End1" },
        { "two", { QStringLiteral("a"), QStringLiteral("b") }, "Sta1|a|b|End1", "Sta1|a|b|End1" },
        { "example",
            { QStringLiteral("Word"), QStringLiteral("Excel 2000"), QStringLiteral("Treiber für Drucker") },
            "Sta1|Word|Excel 2000|Treiber für Drucker|End1",
            "Sta1|Word|Excel 2000|Treiber für Drucker|End1" },
        { "emptyFirstIsSwallowedOnChange", { QString(), QStringLiteral("x") }, "Sta1||x|End1",
            "Sta1|x|End1" },
        { "emptyInTheMiddleIsSwallowedOnChange", { QStringLiteral("a"), QString(), QStringLiteral("b") },
            "Sta1|a||b|End1", "Sta1|a|b|End1" },
        { "barAtTheEndTakesTheNextWithoutBar", { QStringLiteral("a|"), QStringLiteral("b") },
            "Sta1|a||b|End1", "Sta1|a|b|End1" },
        { "onlyEmpty", { QString() }, "Sta1||End1", "Sta1||End1" },
    };
    for (const EncodeCase &c : cases) {
        EXPECT_EQ(commentcodec::encodeNewCd(c.comments), QString::fromUtf8(c.newCd)) << c.name;
        EXPECT_EQ(commentcodec::encodeChangeCd(c.comments), QString::fromUtf8(c.changeCd)) << c.name;
    }
}

TEST(CommentCodecTest, DecodingDropsTheFirstAndLastPiece)
{
    struct Case
    {
        const char *text;
        QStringList comments;
    };
    const Case cases[] = {
        { "Sta1|a|b|End1", { QStringLiteral("a"), QStringLiteral("b") } },
        { "Sta1|End1", {} },
        { "Sta1||End1", { QString() } },
        { "Sta1|a|b|End1", { QStringLiteral("a"), QStringLiteral("b") } },
        { "X|mitten|Y", { QStringLiteral("mitten") } },
        { "Sta1|ohne Ende", {} },
        { "Sta1", {} },
        { "", {} },
        { "|||", { QString(), QString() } },
    };
    for (const Case &c : cases)
        EXPECT_EQ(commentcodec::decode(QString::fromUtf8(c.text)), c.comments) << c.text;
}

TEST(CommentCodecTest, BarInsideACommentSplitsItAtTheNextReading)
{
    for (const QString &text : { commentcodec::encodeNewCd({ QStringLiteral("a|b") }),
             commentcodec::encodeChangeCd({ QStringLiteral("a|b") }) })
        EXPECT_EQ(commentcodec::decode(text), (QStringList { QStringLiteral("a"), QStringLiteral("b") }));
}

TEST(CommentCodecTest, SavingAnEmptyListOnceInTheEditorShowsOneEmptyLineThatStays)
{
    const QString once = commentcodec::encodeChangeCd(commentcodec::decode(commentcodec::encodeNewCd({})));
    EXPECT_EQ(commentcodec::decode(once), QStringList { QString() });
    EXPECT_EQ(commentcodec::encodeChangeCd(commentcodec::decode(once)), once);
}

} // namespace
