#include "search/ResultColumns.h"

#include "QStringPrinting.h"

#include <QStringList>

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

// The entry is cut at its first "<" and at its bars, so a "<" or "|" in the title moves the cut.
// The end line (under a title with "|" too), a line with one "|" and no entry at all cannot be cut.
TEST(ResultColumns, CutIntoTheListColumnsAndTheFileLine)
{
    const QString bad = u"Laufzeitfehler '5':\n\nUngültiger Prozeduraufruf oder ungültiges Argument"_s;
    const std::pair<QString, QString> cases[] = {
        { u"12-Backup 2003<d:\\Setup\\start.exe|65536|19.01.2003 00:12:31"_s,
            u"12-Backup 2003 / d:\\Setup\\start.exe / 65536 / 19.01.2003 00:12:31 | "
            u"12-Backup 2003 d:\\Setup\\start.exe * 65536 Byte * Date:19.01.2003 00:12:31"_s },
        { u"12-Backup 2003<>d:\\Setup"_s,
            u"+12-Backup 2003 / >d:\\Setup /  /  | 12-Backup 2003 >d:\\Setup"_s },
        { u"3-X<d:\\a.zip\\||"_s, u"3-X / d:\\a.zip\\ /  /  | 3-X d:\\a.zip\\ *  Byte * Date:"_s },
        { u"5-A<B<d:\\x.txt|10|01.01.2003"_s,
            u"5-A / B<d:\\x.txt / 10 / 01.01.2003 | 5-A B<d:\\x.txt * 10 Byte * Date:01.01.2003"_s },
        { u"5-A|B<d:\\x.txt|10|01.01.2003"_s,
            u"5-A|B / d:\\x.txt / B<d:\\x.txt|10 / 01.01.2003 | 5-A * B d:\\x.txt|10 Byte * Date:01.01.2003"_s },
        { u"5-A|B<>d:\\x"_s, u"+5-A|B / >d:\\x /  /  | 5-A|B >d:\\x"_s },
        { u"12-Backup<"_s, bad + u" | "_s + bad },
        { u"5-A|B<"_s, bad + u" | "_s + bad },
        { u"5-T<d:\\kaputt|1"_s, bad + u" | "_s + bad },
        { u"kein Eintrag"_s, bad + u" | "_s + bad },
    };
    for (const auto &[entry, expected] : cases)
        EXPECT_EQ(shown(ResultColumns::cut(entry), ResultColumns::fileLine(entry)), expected)
            << entry.toStdString();
}

} // namespace
