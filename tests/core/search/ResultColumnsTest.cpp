#include "search/ResultColumns.h"

#include "QStringPrinting.h"

#include <gtest/gtest.h>

void PrintTo(const ResultColumns &c, std::ostream *out)
{
    *out << QStringList { c.cd, c.file, c.size, c.date }.join(u" | ").toStdString()
         << (c.folder ? " (folder)" : "");
}

namespace {

using namespace Qt::StringLiterals;

// The entry is cut at its first "<" and at its bars, so a "<" or "|" in the title moves the cut.
TEST(ResultColumns, CutIntoTheListColumnsAndTheFileLine)
{
    const struct
    {
        QString entry;
        ResultColumns columns;
        QString fileLine;
    } cases[] = {
        { u"12-Backup 2003<d:\\Setup\\start.exe|65536|19.01.2003 00:12:31"_s,
            { u"12-Backup 2003"_s, u"d:\\Setup\\start.exe"_s, u"65536"_s, u"19.01.2003 00:12:31"_s, false },
            u"12-Backup 2003 d:\\Setup\\start.exe * 65536 Byte * Date:19.01.2003 00:12:31"_s },
        { u"12-Backup 2003<>d:\\Setup"_s, { u"12-Backup 2003"_s, u">d:\\Setup"_s, {}, {}, true },
            u"12-Backup 2003 >d:\\Setup"_s },
        { u"3-X<d:\\a.zip\\||"_s, { u"3-X"_s, u"d:\\a.zip\\"_s, {}, {}, false },
            u"3-X d:\\a.zip\\ *  Byte * Date:"_s },
        { u"5-A<B<d:\\x.txt|10|01.01.2003"_s, { u"5-A"_s, u"B<d:\\x.txt"_s, u"10"_s, u"01.01.2003"_s, false },
            u"5-A B<d:\\x.txt * 10 Byte * Date:01.01.2003"_s },
        { u"5-A|B<d:\\x.txt|10|01.01.2003"_s,
            { u"5-A|B"_s, u"d:\\x.txt"_s, u"B<d:\\x.txt|10"_s, u"01.01.2003"_s, false },
            u"5-A * B d:\\x.txt|10 Byte * Date:01.01.2003"_s },
        { u"5-A|B<>d:\\x"_s, { u"5-A|B"_s, u">d:\\x"_s, {}, {}, true }, u"5-A|B >d:\\x"_s }
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.entry.toStdString());
        const auto columns = ResultColumns::cut(c.entry);
        ASSERT_TRUE(std::holds_alternative<ResultColumns>(columns));
        EXPECT_EQ(std::get<ResultColumns>(columns), c.columns);
        const auto line = ResultColumns::fileLine(c.entry);
        ASSERT_TRUE(std::holds_alternative<QString>(line));
        EXPECT_EQ(std::get<QString>(line), c.fileLine);
    }
}

TEST(ResultColumns, EntriesThatCannotBeCutFailLikeABadArgument)
{
    const RuntimeFailure expected { 5, u"Ungültiger Prozeduraufruf oder ungültiges Argument"_s };
    // The end line, the end line under a title with "|", a line with one "|", no entry at all.
    for (const QString &entry : { u"12-Backup<"_s, u"5-A|B<"_s, u"5-T<d:\\kaputt|1"_s, u"kein Eintrag"_s }) {
        const auto cut = ResultColumns::cut(entry);
        const auto line = ResultColumns::fileLine(entry);
        ASSERT_TRUE(
            std::holds_alternative<RuntimeFailure>(cut) && std::holds_alternative<RuntimeFailure>(line))
            << entry.toStdString();
        EXPECT_EQ(std::get<RuntimeFailure>(cut), expected);
        EXPECT_EQ(std::get<RuntimeFailure>(line), expected);
    }
}

} // namespace
