#include "records/CommentCodec.h"

#include "QStringPrinting.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace commentcodec;

// The new-CD dialog writes every line; the editor swallows an empty line and the bar ending a line.
TEST(CommentCodecTest, EachDialogEncodesByItsOwnRule)
{
    const struct
    {
        QStringList comments;
        const char *newCd, *changeCd;
    } cases[] = { { {}, "Sta1|End1", "Sta1||End1" }, { { u"a"_s, u"b"_s }, "Sta1|a|b|End1", "Sta1|a|b|End1" },
        { { QString(), u"x"_s }, "Sta1||x|End1", "Sta1|x|End1" },
        { { u"a"_s, QString(), u"b"_s }, "Sta1|a||b|End1", "Sta1|a|b|End1" },
        { { u"a|"_s, u"b"_s }, "Sta1|a||b|End1", "Sta1|a|b|End1" },
        { { QString() }, "Sta1||End1", "Sta1||End1" } };
    for (const auto &c : cases) {
        EXPECT_EQ(encodeNewCd(c.comments), QString::fromUtf8(c.newCd));
        EXPECT_EQ(encodeChangeCd(c.comments), QString::fromUtf8(c.changeCd));
    }
}

TEST(CommentCodecTest, DecodingDropsTheFirstAndLastPiece)
{
    const std::pair<const char *, QStringList> cases[]
        = { { "Sta1|a|b|End1", { u"a"_s, u"b"_s } }, { "Sta1|End1", {} }, { "Sta1||End1", { QString() } },
              { "X|mitten|Y", { u"mitten"_s } }, { "Sta1|ohne Ende", {} }, { "", {} } };
    for (const auto &[text, comments] : cases)
        EXPECT_EQ(decode(QString::fromUtf8(text)), comments) << text;
}

} // namespace
