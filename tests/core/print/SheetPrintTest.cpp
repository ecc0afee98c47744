#include "PrintedTexts.h"

#include "print/SheetPrint.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

SheetContent jazz(int comments)
{
    SheetContent content { u"Jazz"_s, u"4711"_s, u"120"_s, u"7"_s, {}, {} };
    for (int i = 1; i <= comments; ++i)
        content.comments << u"Kommentar %1"_s.arg(i);
    return content;
}

// The height of the comment area, read from the box's inner bottom rule.
double commentArea(const RecordingPrinter &printer)
{
    return printer.lines().at(4).y - 3.8;
}

// No picture either way: the first row has a cover but the box unticked, the others tick it
// with no cover shown.
TEST(PrintCdSheet, BoxGrowsWithTheCommentsMeasuredInTheListFont)
{
    // Comments, list font, comment font, area in cm.
    const std::tuple<const char *, int, QString, QString, double> cases[] = {
        { "no comments: the least area", 0, u"10"_s, u"10"_s, 6 },
        { "6.875 cm rounds up", 11, u"10"_s, u"10"_s, 7 },
        { "6.5 cm rounds to even", 13, u"8"_s, u"10"_s, 6 },
        { "7.5 cm rounds to even", 15, u"8"_s, u"10"_s, 8 },
        { "the comments' own size does not count", 40, u"8"_s, u"20"_s, 20 },
    };
    for (const auto &[what, comments, listSize, commentSize, area] : cases) {
        SCOPED_TRACE(what);
        SheetContent content = jazz(comments);
        if (comments == 0)
            content.cover = QImage(10, 10, QImage::Format_RGB32);
        RecordingPrinter printer(testPaper());
        ASSERT_TRUE(printCdSheet(
            printer, { u"Musik"_s, listSize, printMoment() }, content, { commentSize, comments != 0 })
                        .printed());
        EXPECT_DOUBLE_EQ(commentArea(printer), area);
        EXPECT_TRUE(std::ranges::none_of(printer.items(),
            [](const RecordingPrinter::Item &item) { return item.kind == RecordingPrinter::Item::Kind::Picture; }));
    }
}

TEST(PrintCdSheet, RulesTextsAndPictureInTheirPlaces)
{
    SheetContent content = jazz(2);
    content.cover = QImage(100, 50, QImage::Format_RGB32);
    RecordingPrinter printer(testPaper());
    ASSERT_TRUE(
        printCdSheet(printer, { u"Musik"_s, u"10"_s, printMoment() }, content, { u"12"_s, true }).printed());

    // The rules of the box in the order drawn: x1, y1, x2, y2.
    const std::vector<std::array<double, 4>> rules = { { 2, 2, 18, 2 }, { 2, 2.2, 18, 2.2 }, { 2, 3, 18, 3 },
        { 2, 3.8, 18, 3.8 }, { 2, 9.8, 18, 9.8 }, { 2, 10, 18, 10 }, { 2, 2, 2, 10 }, { 2.2, 2, 2.2, 10 },
        { 18, 2, 18, 10 }, { 17.8, 2, 17.8, 10 }, { 8.4, 3.8, 8.4, 9.8 } };
    std::vector<std::array<double, 4>> drawn;
    for (const RecordingPrinter::Item &line : printer.lines())
        drawn.push_back({ line.x, line.y, line.x2, line.y2 });
    EXPECT_EQ(drawn, rules);

    const std::vector<Placed> expected = {
        { 1, 2.4, 2.4, u"Archiv: Musik    CD: Jazz"_s },
        { 1, 2.4, 3.2,
            u"Seriennummer: 4711  |  Dateienanzahl: 120  |  Ordneranzahl: 7   -   Ausdruck: 19.01.2003 14:05:09"_s },
        { 1, 8.7, 4.5, u"Kommentare zur CD:"_s },
        { 1, 8.7, 5.75, u"Kommentar 1"_s },
        { 1, 8.7, 6.5, u"Kommentar 2"_s },
        { 1, 2, 10.1,
            u"Erstellt mit dem Silberbuch 5.1 von Ravelin (support@silberbuch.example.org *** "
            u"https://silberbuch.example.org/)"_s },
    };
    EXPECT_EQ(placedTexts(printer), expected);
    std::vector<std::pair<double, bool>> fonts;
    for (const RecordingPrinter::Item &text : printer.texts())
        fonts.push_back({ text.font.size, text.font.bold });
    EXPECT_EQ(fonts,
        (std::vector<std::pair<double, bool>> { { 12, false }, { 8, false }, { 10, true }, { 12, false }, { 12, false },
            { 6, false } }));

    // Drawn last, 0.7 of the cover box of 260 pixels at 96 per inch.
    const RecordingPrinter::Item &picture = printer.items().at(printer.items().size() - 2);
    EXPECT_EQ(std::tuple(picture.kind, picture.x, picture.y, picture.x2),
        std::tuple(RecordingPrinter::Item::Kind::Picture, 2.5, 4.5, 0.7 * (260 / 96.0 * 2.54)));
    EXPECT_TRUE(printer.finished());
}

TEST(PrintCdSheet, CommentSizeWithoutANumberIsReportedInFull)
{
    RecordingPrinter printer(testPaper());
    const PrintOutcome outcome
        = printCdSheet(printer, { u"Musik"_s, u"10"_s, printMoment() }, jazz(1), { u"groß"_s, true });
    EXPECT_EQ(outcome.status, PrintOutcome::Status::Reported);
    EXPECT_TRUE(outcome.message.endsWith(u"\r\nFehlernummer: 13\r\nFehler-Beschreibung: Typen unverträglich"_s));
    EXPECT_FALSE(printer.finished());
}

TEST(CoverBoxFace, LargePicturesFitSmallOnesStayCentred)
{
    QImage wide(520, 130, QImage::Format_RGB32), small(10, 10, QImage::Format_RGB32);
    wide.fill(Qt::red);
    small.fill(Qt::blue);
    const QImage face = coverBoxFace(wide), smallFace = coverBoxFace(small);
    EXPECT_EQ(std::tuple(face.size(), face.pixelColor(130, 130), face.pixelColor(130, 10), smallFace.pixelColor(130, 130),
                  smallFace.pixelColor(100, 130)),
        std::tuple(QSize(260, 260), QColor(Qt::red), QColor(Qt::white), QColor(Qt::blue), QColor(Qt::white)));
    EXPECT_TRUE(coverBoxFace(QImage()).isNull());
}

} // namespace
