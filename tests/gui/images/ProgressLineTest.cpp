#include "Control.h"

#include "images/ProgressWindow.h"
#include "screen/ProgressLine.h"

#include <QFontMetrics>
#include <QLabel>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// A folder path far longer than any progress line: 40 levels of "Ordner".
QString deepPath()
{
    QString path = u"d:"_s;
    for (int level = 0; level < 40; ++level)
        path += u"\\Ordner"_s + QString::number(level);
    return path;
}

} // namespace

// Only the path gives way to a narrow line; the counts stay whole even where nothing of the
// path is left, and a path that fits is left as it is.
TEST(CaptureProgressLine, OnlyThePathIsShortenedAndTheCountsStayWhole)
{
    QLabel label;
    const QFontMetrics metrics = label.fontMetrics();
    const QString counts = u"Ordner: 39   Dateien: 4294967295   "_s;
    const int countsWidth = metrics.horizontalAdvance(counts);
    // why, path, width, the line whole, shortened in the middle
    const std::tuple<const char *, QString, int, bool, bool> cases[] = {
        { "a short path fits", u"d:\\Bilder"_s, countsWidth + metrics.horizontalAdvance(u"d:\\Bilder"_s) + 2, true, false },
        { "a long path in a normal line", deepPath(), 360, false, true },
        { "a long path where the counts alone fill the line", deepPath(), countsWidth, false, false },
        { "a line narrower than the counts", deepPath(), countsWidth / 2, false, false },
    };
    for (const auto &[why, path, width, whole, elided] : cases) {
        SCOPED_TRACE(why);
        const QString line = captureProgressLine(39, 4294967295u, path, width, metrics);
        EXPECT_TRUE(line.startsWith(counts)) << line.toStdString();
        EXPECT_EQ(line == counts + path, whole) << line.toStdString();
        EXPECT_EQ(line.contains(u'…'), elided) << line.toStdString();
        if (elided) {
            EXPECT_LE(metrics.horizontalAdvance(line), width);
            EXPECT_TRUE(line.endsWith(path.right(2))) << line.toStdString();
            EXPECT_TRUE(line.startsWith(counts + u"d:\\"_s)) << line.toStdString();
        }
    }
}

// The progress window shows the line for its label's width with the counts whole; the tooltip
// holds the whole path.
TEST(CaptureProgressLine, TheProgressWindowKeepsTheCountsWhole)
{
    ProgressWindow window;
    window.show();
    const QString path = deepPath();
    window.setProgressLine([&path](int width, const QFontMetrics &metrics) {
        return captureProgressLine(39123, 1234567, path, width, metrics);
    });
    auto *label = control<QLabel>(&window, "progressLabel");
    const QString counts = u"Ordner: 39123   Dateien: 1234567   "_s;
    EXPECT_TRUE(label->text().startsWith(counts + u"d:\\"_s)) << label->text().toStdString();
    EXPECT_TRUE(label->text().contains(u'…'));
    EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width());
    EXPECT_EQ(label->toolTip(), counts + path);
}

// Folder names may hold anything, markup included; both lines show them as they are.
TEST(ProgressWindow, LinesShowFolderNamesAsTheyAre)
{
    const QString path = u"/media/cd/Treiber & Software <b>fett</b>"_s;
    ProgressWindow window;
    window.resize(900, 200);
    window.show(); // lays the lines out at their full width, so nothing is elided
    window.setText(u"Gesichert wird "_s + path);
    window.setProgressText(u"Ordner: 1 Dateien: 2 "_s + path);
    const std::pair<const char *, QString> lines[]
        = { { "textLabel", u"Gesichert wird "_s + path }, { "progressLabel", u"Ordner: 1 Dateien: 2 "_s + path } };
    for (const auto &[name, text] : lines) {
        auto *label = control<QLabel>(&window, name);
        EXPECT_EQ(std::pair(label->text(), label->textFormat()), std::pair(text, Qt::PlainText)) << name;
    }
}
