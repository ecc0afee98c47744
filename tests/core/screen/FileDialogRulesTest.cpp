#include "screen/FileDialogRules.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>

using namespace filedialogrules;

namespace {

QString converted(const char *filter)
{
    return convertFilter(QString::fromUtf8(filter));
}

// The names of "a;b;c" that a file dialog here would offer under `nameFilter`: those that
// match one of the patterns in its parentheses, each read as a wildcard.
QStringList offered(const QString &nameFilter, const char *names)
{
    const qsizetype open = nameFilter.lastIndexOf(u'(');
    const QStringList patterns
        = nameFilter.mid(open + 1, nameFilter.size() - open - 2).split(u' ', Qt::SkipEmptyParts);
    QStringList out = QString::fromUtf8(names).split(u';');
    out.removeIf([&](const QString &name) {
        return std::none_of(patterns.begin(), patterns.end(), [&](const QString &pattern) {
            return QRegularExpression(QRegularExpression::wildcardToRegularExpression(pattern))
                .match(name)
                .hasMatch();
        });
    });
    return out;
}

} // namespace

TEST(FileDialogRules, ConvertsTheFilterToItsNulForm)
{
    const std::pair<const char *, const char *> cases[]
        = { { "Backup|*.bup", "Backup|*.bup|||" }, { "Backup|*.bup|", "Backup|*.bup|||" }, { "", "|||" } };
    for (const auto &[filter, nuls] : cases)
        EXPECT_EQ(converted(filter), QString::fromUtf8(nuls).replace(u'|', QChar(u'\0'))) << filter;
}

TEST(FileDialogRules, NameFiltersStopAtTheFirstEmptyPieceAndMatchEitherCase)
{
    const struct
    {
        const char *filter;
        qsizetype count;
        const char *names; // tried on the first name filter
        const char *offered;
    } cases[] = {
        { "", 0, "", "" },
        { "Bilddateien|*.jpg;*.gif;*.bmp;*.tif", 1,
            "haus.jpg;HAUS.JPG;Garten.Gif;scan.bmp;scan.tif;scan.tiff;notiz.txt;jpg",
            "haus.jpg;HAUS.JPG;Garten.Gif;scan.bmp;scan.tif" },
        { "Alle Dateien (*.*)|*.*", 1, "LIESMICH;a.b", "LIESMICH;a.b" }, // "*.*" offers names without a dot
        { "Textdateien (*.txt)|*.txt|Alle|*.*", 2, "a.txt;a.doc", "a.txt" },
        { "Backup|*.bup|Alle", 1, "a.bup;a.txt", "a.bup" }, // a name without a pattern
        { "|*.bup|Alle|*.*", 0, "", "" }, // an empty name ends the list at once
        { "Backup||Alle|*.*", 0, "", "" }, // so does an empty pattern
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.filter);
        const QStringList filters = nameFilters(converted(c.filter));
        ASSERT_EQ(filters.size(), c.count);
        if (*c.names) {
            EXPECT_EQ(offered(filters[0], c.names).join(u';'), QLatin1String(c.offered));
        }
    }
}

TEST(FileDialogRules, FilterPiecesAndSaveExtensions)
{
    const QString text = converted("Backup|*.bup|Text| *.txt |Alles|*|Bilder|*.jpg;*.gif");
    const std::pair<int, const char *> pieces[]
        = { { 0, "" }, { 1, "Backup" }, { 2, "*.bup" }, { 4, " *.txt " }, { 9, "" }, { 40, "" } };
    for (const auto &[number, piece] : pieces)
        EXPECT_EQ(filterPiece(text, number, QChar(u'\0')), QLatin1String(piece)) << number;
    EXPECT_EQ(filterPiece(QStringLiteral("|a|b"), 2, u'|'), QStringLiteral("b"));
    EXPECT_EQ(filterPiece(QStringLiteral("a|b"), 2, u'|'), QStringLiteral("b"));

    const std::pair<int, const char *> extensions[]
        = { { 0, "" }, { 1, ".bup" }, { 2, ".txt" }, { 3, "" }, { 4, ".gif" }, { 5, "" } };
    for (const auto &[index, ext] : extensions)
        EXPECT_EQ(saveExtension(text, index), QLatin1String(ext)) << index;
    EXPECT_EQ(saveExtension(converted(""), 1), QString());
}

TEST(FileDialogRules, SaveNamesGetTheExtension)
{
    const struct
    {
        const char *why;
        const char *chosen;
        const char *filter;
        int index;
        const char *defaultExt;
        const char *fileName;
        const char *result;
    } cases[] = {
        { "three-letter extension kept", "/h/x.bup", "Backup|*.bup", 1, "", "/h/x.bup", "/h/x.bup" },
        { "other three letters kept too", "/h/x.txt", "Backup|*.bup", 1, "", "/h/x.txt", "/h/x.txt" },
        { "no extension", "/h/sicherung", "Backup|*.bup", 1, "", "/h/sicherung.bup", "/h/sicherung" },
        { "four letters get more", "x.abcd", "Backup|*.bup", 1, "", "x.abcd.bup", "x.abcd" },
        { "short name", "ab", "Backup|*.bup", 1, "", "ab.bup", "ab" },
        { "empty filter adds nothing", "x.html", "", 1, "", "x.html", "x.html" },
        { "empty filter, short name", "ab", "", 1, "", "ab", "ab" },
        { "cancel on a fresh dialog", "", "Backup|*.bup", 0, "", "", "" },
        { "cancel after a success", "", "Backup|*.bup", 1, "", ".bup", "" },
        { "default extension with a dot", "/h/liste", "", 0, "txt", "/h/liste.txt", "/h/liste.txt" },
        { "default extension already there", "/h/liste.txt", "", 0, ".txt", "/h/liste.txt", "/h/liste.txt" },
        { "default extension behind the filter's", "/h/x.abcd", "Backup|*.bup", 1, "bup", "/h/x.abcd.bup",
            "/h/x.abcd" },
    };
    for (const auto &c : cases) {
        const SaveNames names = saveNames(
            QString::fromUtf8(c.chosen), converted(c.filter), c.index, QString::fromUtf8(c.defaultExt));
        EXPECT_EQ(names.fileName, QLatin1String(c.fileName)) << c.why;
        EXPECT_EQ(names.result, QLatin1String(c.result)) << c.why;
    }
}

TEST(FileDialogRules, FileTitleIsTheLastPart)
{
    const std::pair<const char *, const char *> cases[] = { { "/home/a/liste.txt", "liste.txt" },
        { "c:\\a\\b.bup", "b.bup" }, { "frei", "frei" }, { "", "" } };
    for (const auto &[path, title] : cases)
        EXPECT_EQ(fileTitle(QString::fromUtf8(path)), QLatin1String(title)) << path;
}
