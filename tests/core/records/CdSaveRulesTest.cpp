#include "records/CdSaveRules.h"

#include "QStringPrinting.h"

#include <gtest/gtest.h>

namespace {

using namespace cdsaverules;

const QString kLimit
    = QStringLiteral("Fehler: Es können maximal 32000 CDs archiviert werden. Bitte verwenden Sie "
                     "eine CD Nummer die in diesem Bereich liegt.");
const QString kTaken
    = QStringLiteral("Fehler! Die gewünschte CD Nummer wird schon verwendet. Bitte geben Sie eine "
                     "andere CD Nummer ein, da jede Nummer nur einmal vergeben werden darf!");

std::vector<CdRow> rowsNumbered(std::initializer_list<int32_t> numbers)
{
    std::vector<CdRow> rows;
    for (int32_t number : numbers)
        rows.push_back(CdRow { .number = number });
    return rows;
}

TEST(CdSaveRulesTest, NumberListIsHashFormattedWithAnEmptyLastElement)
{
    EXPECT_EQ(numberList({}), QStringList { QString() });
    EXPECT_EQ(numberList(rowsNumbered({ 1, 0, 40000 })),
        (QStringList { QStringLiteral("1"), QString(), QStringLiteral("40000"), QString() }));
}

TEST(CdSaveRulesTest, ProposalComparesByPosition)
{
    struct Case
    {
        const char *name;
        std::vector<CdRow> rows;
        const char *proposal;
    };
    std::vector<CdRow> hundredLess;
    for (int32_t n = 1; n <= 99; ++n)
        hundredLess.push_back(CdRow { .number = n });
    const Case cases[] = {
        { "empty", {}, "001" },
        { "oneTwoThree", rowsNumbered({ 1, 2, 3 }), "004" },
        { "gapAtTwo", rowsNumbered({ 1, 3 }), "002" },
        { "fiveSeven", rowsNumbered({ 5, 7 }), "002" },
        { "twoThreeOffersANumberInUse", rowsNumbered({ 2, 3 }), "002" },
        { "onlyOne", rowsNumbered({ 1 }), "002" },
        { "onlyFive", rowsNumbered({ 5 }), "002" },
        { "gapAtThree", rowsNumbered({ 1, 2, 4 }), "003" },
        { "threeDigitsKeepTheTwoZeros", hundredLess, "00100" },
    };
    for (const Case &c : cases)
        EXPECT_EQ(proposeNumber(numberList(c.rows)), QString::fromUtf8(c.proposal)) << c.name;
}

struct CheckCase
{
    const char *name;
    const char *text;
    int32_t number; // when accepted
    QString message;
};

TEST(CdSaveRulesTest, NewCdNumberChecks)
{
    const QStringList taken = numberList(rowsNumbered({ 5, 12 }));
    const CheckCase cases[] = {
        { "leadingZerosGo", "007", 7, {} },
        { "limitItself", "32000", 32000, {} },
        { "limitWithZeros", "0032000", 32000, {} },
        { "overLimit", "32001", 0, kLimit },
        { "farOverLimit", "99999999999999", 0, kLimit },
        { "zeroIsTaken", "0", 0, kTaken },
        { "zerosAreTaken", "000", 0, kTaken },
        { "taken", "12", 0, kTaken },
        { "takenWithZeros", "005", 0, kTaken },
        { "free", "6", 6, {} },
        { "empty", "", 0, QStringLiteral("Bitte geben Sie eine CD Nummer ein.") },
        { "letters", "12a", 0, QStringLiteral("Die CD Nummer darf nur die Ziffern 0 bis 9 enthalten.") },
        { "minus", "-5", 0, QStringLiteral("Die CD Nummer darf nur die Ziffern 0 bis 9 enthalten.") },
        { "blank", " 7", 0, QStringLiteral("Die CD Nummer darf nur die Ziffern 0 bis 9 enthalten.") },
    };
    for (const CheckCase &c : cases) {
        const NumberCheck check = checkNewCdNumber(QString::fromUtf8(c.text), taken);
        EXPECT_EQ(check.message, c.message) << c.name;
        if (check.ok()) {
            EXPECT_EQ(check.number, c.number) << c.name;
        }
    }
}

TEST(CdSaveRulesTest, ChangedCdMayKeepItsOwnNumberOnly)
{
    const QStringList taken = numberList(rowsNumbered({ 5, 12 }));
    const CheckCase cases[] = {
        { "keepsOwn", "5", 5, {} },
        { "keepsOwnWithZeros", "0005", 5, {} },
        { "takesFree", "6", 6, {} },
        { "takesOther", "12", 0, kTaken },
        { "zeroStillTaken", "0", 0, kTaken },
        { "overLimit", "40000", 0, kLimit },
    };
    for (const CheckCase &c : cases) {
        const NumberCheck check = checkChangeCdNumber(QString::fromUtf8(c.text), taken, QStringLiteral("5"));
        EXPECT_EQ(check.message, c.message) << c.name;
        if (check.ok()) {
            EXPECT_EQ(check.number, c.number) << c.name;
        }
    }
}

} // namespace
