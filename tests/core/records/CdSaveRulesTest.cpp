#include "records/CdSaveRules.h"
#include "records/CommentCodec.h"

#include "QStringPrinting.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace cdsaverules;
using namespace commentcodec;

std::vector<CdRow> rowsNumbered(std::initializer_list<int32_t> numbers)
{
    std::vector<CdRow> rows;
    for (int32_t number : numbers)
        rows.push_back({ .number = number });
    return rows;
}

// Numbers are listed as text, 0 as an empty one, with an empty last element. The first position
// whose number is not position + 1 wins, the first position included.
TEST(CdSaveRulesTest, ProposalComparesByPosition)
{
    EXPECT_EQ(numberList(rowsNumbered({ 1, 0, 40000 })),
        (QStringList { u"1"_s, QString(), u"40000"_s, QString() }));
    std::vector<CdRow> hundredLess;
    for (int32_t n = 1; n <= 99; ++n)
        hundredLess.push_back({ .number = n });
    const std::pair<std::vector<CdRow>, const char *> cases[]
        = { { {}, "001" }, { rowsNumbered({ 1, 2, 3 }), "004" }, { rowsNumbered({ 1, 3 }), "002" },
              { rowsNumbered({ 2, 3 }), "002" }, { hundredLess, "00100" } };
    for (const auto &[rows, proposal] : cases)
        EXPECT_EQ(proposeNumber(numberList(rows)), QString::fromLatin1(proposal)) << rows.size();
}

TEST(CdSaveRulesTest, NumberChecksOfNewAndChangedCds)
{
    const QString limit
        = u"Fehler: Es können maximal 32000 CDs archiviert werden. Bitte verwenden Sie eine CD "
          u"Nummer die in diesem Bereich liegt."_s;
    const QString taken
        = u"Fehler! Die gewünschte CD Nummer wird schon verwendet. Bitte geben Sie eine andere CD "
          u"Nummer ein, da jede Nummer nur einmal vergeben werden darf!"_s;
    const QString digits = u"Die CD Nummer darf nur die Ziffern 0 bis 9 enthalten."_s;
    // text, the changed CD's number (none: a new CD), the number when accepted, the message
    const std::tuple<const char *, const char *, int32_t, QString> cases[] = { { "007", nullptr, 7, {} },
        { "0032000", nullptr, 32000, {} }, { "32001", nullptr, 0, limit }, { "000", nullptr, 0, taken },
        { "005", nullptr, 0, taken }, { "", nullptr, 0, u"Bitte geben Sie eine CD Nummer ein."_s },
        { "-5", nullptr, 0, digits }, { "0005", "5", 5, {} }, { "6", "5", 6, {} }, { "12", "5", 0, taken },
        { "40000", "5", 0, limit } };
    const QStringList list = numberList(rowsNumbered({ 5, 12 }));
    for (const auto &[text, own, number, message] : cases) {
        SCOPED_TRACE(std::string(text) + (own ? " changing " + std::string(own) : " new"));
        const NumberCheck check = own
            ? checkChangeCdNumber(QString::fromLatin1(text), list, QString::fromLatin1(own))
            : checkNewCdNumber(QString::fromLatin1(text), list);
        EXPECT_EQ(std::pair(check.message, check.ok() ? check.number : 0), std::pair(message, number));
    }
}

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
