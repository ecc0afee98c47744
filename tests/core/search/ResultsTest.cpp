#include "search/HitList.h"
#include "search/ResultColumns.h"
#include "search/ResultNavigator.h"
#include "search/ResultsFile.h"

#include "QStringPrinting.h"
#include "TestPaths.h"

#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

// Columns as "cd / file / size / date", a folder marked by a leading "+"; a failure as its report.
QString shown(
    const std::variant<ResultColumns, RuntimeFailure> &cut, const std::variant<QString, RuntimeFailure> &line)
{
    const auto *c = std::get_if<ResultColumns>(&cut);
    const auto *text = std::get_if<QString>(&line);
    return (!c ? std::get<RuntimeFailure>(cut).message()
               : (c->folder ? u"+"_s : QString())
                       + QStringList { c->cd, c->file, c->size, c->date }.join(u" / "))
        + u" | "_s + (text ? *text : std::get<RuntimeFailure>(line).message());
}

// A hit of CD part `cd` and image line `line`, as the search makes it.
HitEntry hit(const QString &cd, const QString &line)
{
    return { cd + u'<' + line, cd.size() };
}

// The entry is cut where its title ends, so a "<" or "|" in the title moves nothing; a file
// line is cut at its last two bars. The end line, a line with one "|" and an entry whose
// title end lies outside it cannot be cut.
TEST(ResultColumns, CutIntoTheListColumnsAndTheFileLine)
{
    const QString bad = u"Laufzeitfehler '5':\n\nUngültiger Prozeduraufruf oder ungültiges Argument"_s;
    const std::tuple<const char *, HitEntry, QString> cases[] = {
        { "file", hit(u"12-Backup 2003"_s, u"d:\\Setup\\start.exe|65536|19.01.2003 00:12:31"_s),
            u"12-Backup 2003 / d:\\Setup\\start.exe / 65536 / 19.01.2003 00:12:31 | "
            u"12-Backup 2003 d:\\Setup\\start.exe * 65536 Byte * Date:19.01.2003 00:12:31"_s },
        { "folder", hit(u"12-Backup 2003"_s, u">d:\\Setup"_s),
            u"+12-Backup 2003 / >d:\\Setup /  /  | 12-Backup 2003 >d:\\Setup"_s },
        { "archive folder", hit(u"3-X"_s, u"d:\\a.zip\\||"_s),
            u"3-X / d:\\a.zip\\ /  /  | 3-X d:\\a.zip\\ *  Byte * Date:"_s },
        { "markup in title", hit(u"7-Treiber & Software <b>fett</b>"_s, u"d:\\x.txt|10|01.01.2003"_s),
            u"7-Treiber & Software <b>fett</b> / d:\\x.txt / 10 / 01.01.2003 | "
            u"7-Treiber & Software <b>fett</b> d:\\x.txt * 10 Byte * Date:01.01.2003"_s },
        { "markup in title, folder", hit(u"7-Teil <I>"_s, u">d:\\x"_s), u"+7-Teil <I> / >d:\\x /  /  | 7-Teil <I> >d:\\x"_s },
        { "bar in title", hit(u"5-A|B"_s, u"d:\\x.txt|10|01.01.2003"_s),
            u"5-A|B / d:\\x.txt / 10 / 01.01.2003 | 5-A|B d:\\x.txt * 10 Byte * Date:01.01.2003"_s },
        { "bar and lt in path", hit(u"5-A"_s, u"/home/a|b<c|10|01.01.2003"_s),
            u"5-A / /home/a|b<c / 10 / 01.01.2003 | 5-A /home/a|b<c * 10 Byte * Date:01.01.2003"_s },
        { "end line", hit(u"12-Backup"_s, u""_s), bad + u" | "_s + bad },
        { "end line, bar in title", hit(u"5-A|B|C"_s, u""_s), bad + u" | "_s + bad },
        { "one bar", hit(u"5-T"_s, u"d:\\kaputt|1"_s), bad + u" | "_s + bad },
        { "title end outside", HitEntry { u"kein Eintrag"_s, 12 }, bad + u" | "_s + bad },
    };
    for (const auto &[name, entry, expected] : cases)
        EXPECT_EQ(shown(ResultColumns::cut(entry), ResultColumns::fileLine(entry)), expected) << name;
}

// The list keeps where each title ends, through merging the lists of several images too.
TEST(HitList, EntriesKnowWhereTheirTitleEnds)
{
    HitList list;
    list.append("7-Treiber <b>\xFC</b><", "d:\\a<b|1|2");
    HitList other;
    other.append("8-A|B<", ">d:\\c");
    list.append(std::move(other));
    const std::vector<HitEntry> expected = { { u"7-Treiber <b>ü</b><d:\\a<b|1|2"_s, 18 }, { u"8-A|B<>d:\\c"_s, 5 } };
    EXPECT_EQ(list.entries(), expected);
}

// The navigator's window as one text: position label, "<" and ">" enabled, CD on display.
QString view(const ResultNavigator &navigator)
{
    return u"%1 <%2 >%3 #%4"_s.arg(navigator.positionText())
        .arg(navigator.previousEnabled())
        .arg(navigator.nextEnabled())
        .arg(navigator.currentNumber());
}

// "<" is disabled at the first CD and ">" at the last, so no step can leave the found CDs;
// one CD disables both and gives way to the message.
TEST(ResultNavigator, StepsForwardAndBackWithinTheFoundCds)
{
    ResultNavigator navigator({ u"4"_s, u"9"_s, u"12"_s });
    EXPECT_EQ(navigator.countText() + view(navigator), u"31 / 3 <0 >1 #4"_s);
    EXPECT_FALSE(navigator.givesWayToMessage());
    const std::pair<bool, QString> steps[] = { { false, u"1 / 3 <0 >1 #4"_s }, { true, u"2 / 3 <1 >1 #9"_s },
        { true, u"3 / 3 <1 >0 #12"_s }, { true, u"3 / 3 <1 >0 #12"_s }, { false, u"2 / 3 <1 >1 #9"_s },
        { false, u"1 / 3 <0 >1 #4"_s } };
    for (const auto &[forward, shown] : steps) {
        forward ? navigator.next() : navigator.previous();
        EXPECT_EQ(view(navigator), shown);
    }
    const ResultNavigator one({ u"17"_s });
    EXPECT_TRUE(one.givesWayToMessage());
    EXPECT_EQ(view(one), u"1 / 1 <0 >0 #17"_s);
}

TEST(ResultNavigator, FindsTheListEntryByTheNumberBeforeTheFirstBlank)
{
    const QStringList entries = { u"1 Urlaub"_s, u"12 Backup 2003"_s, u"2   Briefe"_s, u"12 Doppelt"_s };
    const std::pair<QString, int> cases[]
        = { { u"12"_s, 1 }, { u"2"_s, 2 }, { u"Urlaub"_s, -1 }, { u"3"_s, -1 } };
    for (const auto &[number, entry] : cases)
        EXPECT_EQ(ResultNavigator::listEntryOf(entries, number), entry) << number.toStdString();
}

const QDateTime kNow(QDate(2003, 1, 9), QTime(7, 5, 3));

TEST(ResultsFile, HeadLineRuleAndOneLinePerHitInCodePage1252WithCrLf)
{
    const auto text = ResultsFile::text(u"säge"_s,
        { hit(u"12-Backup 2003"_s, u"d:\\Setup\\start.exe|65536|19.01.2003 00:12:31"_s),
            hit(u"12-Backup 2003"_s, u">d:\\Setup"_s), hit(u"3-Bücher"_s, u"d:\\Bücher\\liste.txt|-1294967296|01.02.2003"_s) },
        kNow);
    ASSERT_TRUE(std::holds_alternative<QByteArray>(text));
    EXPECT_EQ(std::get<QByteArray>(text),
        "Suchergebnisse f\xFCr die Suche nach s\xE4ge Stand: 09.01.2003 07:05:03\r\n"
        "======================\r\n"
        "12-Backup 2003 d:\\Setup\\start.exe * 65536 Byte * Date:19.01.2003 00:12:31\r\n"
        "12-Backup 2003 >d:\\Setup\r\n"
        "3-B\374cher d:\\B\374cher\\liste.txt * -1294967296 Byte * Date:01.02.2003\r\n");
}

// Saving replaces an earlier file, and only once the whole text is written.
TEST(ResultsFile, SaveReplacesTheFileOrLeavesItAsItWas)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"ergebnis.txt"_s);
    EXPECT_FALSE(ResultsFile::save(path, u"a"_s, { hit(u"1-A"_s, u"d:\\a|1|2"_s), hit(u"1-A"_s, u">d:\\b"_s) }, kNow));
    EXPECT_EQ(fileBytes(path).count("\r\n"), 4);
    EXPECT_FALSE(ResultsFile::save(path, u"a"_s, { hit(u"1-A"_s, u"d:\\a|1|2"_s) }, kNow));
    const QByteArray before = fileBytes(path);
    EXPECT_EQ(before.count("\r\n"), 3);

    const auto badEntry = ResultsFile::save(path, u"*"_s, { hit(u"1-A"_s, u""_s) }, kNow);
    EXPECT_EQ(badEntry ? badEntry->number : 0, 5);
    EXPECT_EQ(fileBytes(path), before);
    const auto noFolder = ResultsFile::save(dir.filePath(u"fehlt/ergebnis.txt"_s), u"a"_s, {}, kNow);
    EXPECT_EQ(noFolder ? noFolder->number : 0, 75);
}

} // namespace
