#include "records/CommentCodec.h"

#include "QStringPrinting.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace commentcodec;

// The new-CD dialog writes every line; the editor swallows an empty line and the bar ending a line.
TEST(CommentCodecTest, EachDialogEncodesByItsOwnRule)
{
    const std::tuple<QStringList, const char *, const char *> cases[] = { // comments, new CD, changed CD
        { {}, "Sta1|End1", "Sta1||End1" }, { { u"a"_s, u"b"_s }, "Sta1|a|b|End1", "Sta1|a|b|End1" },
        { { QString(), u"x"_s }, "Sta1||x|End1", "Sta1|x|End1" },
        { { u"a"_s, QString(), u"b"_s }, "Sta1|a||b|End1", "Sta1|a|b|End1" },
        { { u"a|"_s, u"b"_s }, "Sta1|a||b|End1", "Sta1|a|b|End1" },
        { { QString() }, "Sta1||End1", "Sta1||End1" }
    };
    for (const auto &[comments, newCd, changeCd] : cases)
        EXPECT_EQ(std::pair(encodeNewCd(comments), encodeChangeCd(comments)),
            std::pair(QString::fromUtf8(newCd), QString::fromUtf8(changeCd)));
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
