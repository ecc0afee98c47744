#include "QStringPrinting.h"

#include "search/ResultColumns.h"

#include <gtest/gtest.h>

namespace {

struct CutCase
{
    const char *name;
    QString entry;
    ResultColumns columns;
    QString fileLine;
};

class ResultColumnsCut : public ::testing::TestWithParam<CutCase>
{
};

TEST_P(ResultColumnsCut, CutsTheEntryIntoTheListColumnsAndTheFileLine)
{
    const CutCase &c = GetParam();
    const auto columns = ResultColumns::cut(c.entry);
    ASSERT_TRUE(std::holds_alternative<ResultColumns>(columns));
    const ResultColumns &cut = std::get<ResultColumns>(columns);
    EXPECT_EQ(cut.cd, c.columns.cd);
    EXPECT_EQ(cut.file, c.columns.file);
    EXPECT_EQ(cut.size, c.columns.size);
    EXPECT_EQ(cut.date, c.columns.date);
    EXPECT_EQ(cut.folder, c.columns.folder);
    const auto line = ResultColumns::fileLine(c.entry);
    ASSERT_TRUE(std::holds_alternative<QString>(line));
    EXPECT_EQ(std::get<QString>(line), c.fileLine);
}

const CutCase kCutCases[] = {
    {"fileLine", QStringLiteral("12-Backup 2003<d:\\Setup\\start.exe|65536|19.01.2003 00:12:31"),
     {QStringLiteral("12-Backup 2003"), QStringLiteral("d:\\Setup\\start.exe"), QStringLiteral("65536"),
      QStringLiteral("19.01.2003 00:12:31"), false},
     QStringLiteral("12-Backup 2003 d:\\Setup\\start.exe * 65536 Byte * Date:19.01.2003 00:12:31")},
    {"folderLine", QStringLiteral("12-Backup 2003<>d:\\Setup"),
     {QStringLiteral("12-Backup 2003"), QStringLiteral(">d:\\Setup"), QString(), QString(), true},
     QStringLiteral("12-Backup 2003 >d:\\Setup")},
    {"rootLine", QStringLiteral("3-X<>d:"), {QStringLiteral("3-X"), QStringLiteral(">d:"), QString(), QString(), true},
     QStringLiteral("3-X >d:")},
    {"zipEndRowWithEmptyFields", QStringLiteral("3-X<d:\\a.zip\\||"),
     {QStringLiteral("3-X"), QStringLiteral("d:\\a.zip\\"), QString(), QString(), false},
     QStringLiteral("3-X d:\\a.zip\\ *  Byte * Date:")},
    {"ltInTitleMovesTheCut", QStringLiteral("5-A<B<d:\\x.txt|10|01.01.2003"),
     {QStringLiteral("5-A"), QStringLiteral("B<d:\\x.txt"), QStringLiteral("10"), QStringLiteral("01.01.2003"), false},
     QStringLiteral("5-A B<d:\\x.txt * 10 Byte * Date:01.01.2003")},
    {"ltGtInTitleLooksLikeAFolder", QStringLiteral("5-A<>B<d:\\x.txt|10|01.01.2003"),
     {QStringLiteral("5-A"), QStringLiteral(">B<d:\\x.txt|10|01.01.2003"), QString(), QString(), true},
     QStringLiteral("5-A >B<d:\\x.txt|10|01.01.2003")},
    {"barInTitleMovesTheSize", QStringLiteral("5-A|B<d:\\x.txt|10|01.01.2003"),
     {QStringLiteral("5-A|B"), QStringLiteral("d:\\x.txt"), QStringLiteral("B<d:\\x.txt|10"),
      QStringLiteral("01.01.2003"), false},
     QStringLiteral("5-A * B d:\\x.txt|10 Byte * Date:01.01.2003")},
    {"barInFolderNameOfTitleKeepsTheFolder", QStringLiteral("5-A|B<>d:\\x"),
     {QStringLiteral("5-A|B"), QStringLiteral(">d:\\x"), QString(), QString(), true},
     QStringLiteral("5-A|B >d:\\x")},
    {"dashInTitle", QStringLiteral("8-Spiele-CD<d:\\a|1|2"),
     {QStringLiteral("8-Spiele-CD"), QStringLiteral("d:\\a"), QStringLiteral("1"), QStringLiteral("2"), false},
     QStringLiteral("8-Spiele-CD d:\\a * 1 Byte * Date:2")},
};

INSTANTIATE_TEST_SUITE_P(Cases, ResultColumnsCut, ::testing::ValuesIn(kCutCases),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(ResultColumns, EntriesThatCannotBeCutFailLikeABadArgument)
{
    const RuntimeFailure expected{5, QStringLiteral("Ungültiger Prozeduraufruf oder ungültiges Argument")};
    for (const QString &entry : {QStringLiteral("12-Backup<"),       // the empty end line
                                 QStringLiteral("5-A|B<"),           // the end line under a title with "|"
                                 QStringLiteral("5-T<d:\\kaputt|1"), // a line with one "|"
                                 QStringLiteral("kein Eintrag")}) {
        const auto cut = ResultColumns::cut(entry);
        ASSERT_TRUE(std::holds_alternative<RuntimeFailure>(cut)) << entry.toStdString();
        EXPECT_EQ(std::get<RuntimeFailure>(cut), expected);
        const auto line = ResultColumns::fileLine(entry);
        ASSERT_TRUE(std::holds_alternative<RuntimeFailure>(line)) << entry.toStdString();
        EXPECT_EQ(std::get<RuntimeFailure>(line), expected);
    }
}

} // namespace
