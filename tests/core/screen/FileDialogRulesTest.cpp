#include "screen/FileDialogRules.h"

#include <gtest/gtest.h>

using namespace filedialogrules;

TEST(FileDialogRules, NameFiltersStopAtTheFirstEmptyPieceAndMatchEitherCase)
{
    // "*.*" is every file, names without a dot too; an empty name or pattern ends the list.
    const std::pair<const char *, const char *> cases[] = {
        { "Bilder|*.jpg; *.gif |Alle (*.*)|*.*", "Bilder (*.[jJ][pP][gG] *.[gG][iI][fF])|Alle (*.*) (*)" },
        { "Text|*.txt|Backup|*.bup|Alle", "Text (*.[tT][xX][tT])|Backup (*.[bB][uU][pP])" },
        { "|*.bup|Alle|*.*", "" },
        { "Backup||Alle|*.*", "" },
        { "", "" },
    };
    for (const auto &[filter, filters] : cases)
        EXPECT_EQ(nameFilters(convertFilter(QString::fromUtf8(filter))).join(u'|'), QLatin1String(filters))
            << filter;
}

TEST(FileDialogRules, SaveNamesGetTheExtension)
{
    const char *pairs = "Backup|*.bup|Text| *.txt |Bilder|*.jpg;*.gif";
    // why, chosen path, filter, filter index, default extension, file name, result
    const std::tuple<const char *, const char *, const char *, int, const char *, const char *, const char *>
        cases[] = {
            { "any three-letter extension kept", "/h/x.bup", pairs, 1, "", "/h/x.bup", "/h/x.bup" },
            { "no extension", "/h/sicherung", pairs, 1, "", "/h/sicherung.bup", "/h/sicherung" },
            { "four letters get more", "x.abcd", pairs, 1, "", "x.abcd.bup", "x.abcd" },
            { "short name, trimmed pattern of the second pair", "ab", pairs, 2, "", "ab.txt", "ab" },
            { "the last dot of the pattern", "ab", pairs, 3, "", "ab.gif", "ab" },
            { "no such pair", "ab", pairs, 4, "", "ab", "ab" },
            { "empty filter adds nothing", "x.html", "", 1, "", "x.html", "x.html" },
            { "cancel on a fresh dialog", "", pairs, 0, "", "", "" },
            { "cancel after a success", "", pairs, 1, "", ".bup", "" },
            { "default extension with a dot", "/h/liste", "", 0, "txt", "/h/liste.txt", "/h/liste.txt" },
            { "default extension already there", "/h/liste.txt", "", 0, ".txt", "/h/liste.txt",
                "/h/liste.txt" },
            { "default extension behind the filter's", "/h/x.abcd", pairs, 1, "bup", "/h/x.abcd.bup",
                "/h/x.abcd" },
        };
    for (const auto &[why, chosen, filter, index, defaultExt, fileName, result] : cases) {
        const SaveNames names = saveNames(QString::fromUtf8(chosen), convertFilter(QString::fromUtf8(filter)),
            index, QString::fromUtf8(defaultExt));
        EXPECT_EQ(std::pair(names.fileName, names.result),
            std::pair(QString::fromLatin1(fileName), QString::fromLatin1(result)))
            << why;
    }
}
