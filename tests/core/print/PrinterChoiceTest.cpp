#include "print/PrinterChoice.h"

#include "QStringPrinting.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

TEST(PrinterChoice, WhichEntryTheListsSelect)
{
    const QStringList devices = { u"Buero"_s, u"Keller"_s };
    // Stored printer, current one, preset device, the entry selected.
    const std::tuple<const char *, QString, QString, QString, int> cases[] = {
        { "the stored printer", u"Keller"_s, u"Buero"_s, {}, 1 },
        { "none stored: the current one", {}, u"Buero"_s, {}, 0 },
        { "a stored printer that has gone leaves no selection", u"Alt"_s, u"Buero"_s, {}, -1 },
        { "the PDF entry can be the stored one", u"PDF-Datei"_s, u"Buero"_s, {}, 2 },
        { "a preset in the list wins", u"Keller"_s, u"Buero"_s, u"Buero"_s, 0 },
        { "a preset not in the list changes nothing", u"Keller"_s, u"Buero"_s, u"Dach"_s, 1 },
    };
    for (const auto &[what, stored, current, preset, selected] : cases) {
        SCOPED_TRACE(what);
        const printerchoice::List list = printerchoice::listOf(devices, stored, current, preset);
        EXPECT_EQ(list.entries, (QStringList { u"Buero"_s, u"Keller"_s, u"PDF-Datei"_s }));
        EXPECT_EQ(list.selected, selected);
    }
}

// The list path knows one quality only; the sheet's good one asks for draft.
TEST(PrinterChoice, QualitiesAsTheDialogsSetThem)
{
    using enum printerchoice::SheetQuality;
    EXPECT_EQ(std::tuple(printerchoice::listQuality(true), printerchoice::listQuality(false), printerchoice::sheetQuality(Good),
                  printerchoice::sheetQuality(Normal), printerchoice::sheetQuality(Poor)),
        std::tuple(std::optional(-4), std::optional<int>(), -1, -3, -4));
}

} // namespace
