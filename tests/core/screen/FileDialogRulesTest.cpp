#include "screen/FileDialogRules.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace filedialogrules;

namespace {

QString nuls(QString text)
{
    return text.replace(u'|', QChar(u'\0'));
}

// Whether a file dialog here would offer `name` under `nameFilter`: the patterns in the
// parentheses, each read as a wildcard.
bool offers(const QString &nameFilter, const QString &name)
{
    const qsizetype open = nameFilter.lastIndexOf(u'(');
    const QString inner = nameFilter.mid(open + 1, nameFilter.size() - open - 2);
    for (const QString &pattern : inner.split(u' ', Qt::SkipEmptyParts)) {
        const QRegularExpression re(QRegularExpression::wildcardToRegularExpression(pattern));
        if (re.match(name).hasMatch())
            return true;
    }
    return false;
}

} // namespace

TEST(FileDialogRules, ConvertsTheFilterToItsNulForm)
{
    const std::pair<QString, QString> cases[] = {
        { QStringLiteral("Backup|*.bup"), nuls(QStringLiteral("Backup|*.bup|||")) },
        { QStringLiteral("Backup|*.bup|"), nuls(QStringLiteral("Backup|*.bup|||")) },
        { QString(), nuls(QStringLiteral("|||")) },
    };
    for (const auto &[filter, converted] : cases)
        EXPECT_EQ(convertFilter(filter), converted) << filter.toStdString();
}

TEST(FileDialogRules, NameFiltersOfTheCoverChoice)
{
    const QStringList filters
        = nameFilters(convertFilter(QStringLiteral("Bilddateien|*.jpg;*.gif;*.bmp;*.tif")));
    ASSERT_EQ(filters.size(), 1);
    EXPECT_TRUE(filters[0].startsWith(QStringLiteral("Bilddateien (")));
    const std::pair<const char *, bool> names[] = {
        { "haus.jpg", true },
        { "HAUS.JPG", true },
        { "Garten.Gif", true },
        { "scan.bmp", true },
        { "scan.tif", true },
        { "scan.tiff", false },
        { "notiz.txt", false },
        { "jpg", false },
    };
    for (const auto &[name, offered] : names)
        EXPECT_EQ(offers(filters[0], QString::fromUtf8(name)), offered) << name;
}

TEST(FileDialogRules, NameFiltersStopAtTheFirstEmptyPiece)
{
    const std::pair<QString, int> cases[] = {
        { QString(), 0 }, { QStringLiteral("Backup|*.bup"), 1 },
        { QStringLiteral("Textdateien (*.txt)|*.txt|Alle|*.*"), 2 },
        { QStringLiteral("Backup|*.bup|Alle"), 1 }, // a name without a pattern
        { QStringLiteral("|*.bup|Alle|*.*"), 0 }, // an empty name ends the list at once
        { QStringLiteral("Backup||Alle|*.*"), 0 }, // so does an empty pattern
    };
    for (const auto &[filter, count] : cases)
        EXPECT_EQ(nameFilters(convertFilter(filter)).size(), count) << filter.toStdString();
}

TEST(FileDialogRules, StarDotStarOffersNamesWithoutADot)
{
    const QStringList filters = nameFilters(convertFilter(QStringLiteral("Alle Dateien (*.*)|*.*")));
    ASSERT_EQ(filters.size(), 1);
    EXPECT_TRUE(offers(filters[0], QStringLiteral("LIESMICH")));
    EXPECT_TRUE(offers(filters[0], QStringLiteral("a.b")));
}

TEST(FileDialogRules, FilterPieces)
{
    const QString converted = convertFilter(QStringLiteral("Backup|*.bup|Text| *.txt "));
    const std::pair<int, QString> cases[] = {
        { 0, QString() },
        { 1, QStringLiteral("Backup") },
        { 2, QStringLiteral("*.bup") },
        { 4, QStringLiteral(" *.txt ") },
        { 5, QString() },
        { 40, QString() },
    };
    for (const auto &[number, piece] : cases)
        EXPECT_EQ(filterPiece(converted, number, QChar(u'\0')), piece) << number;
    EXPECT_EQ(filterPiece(QStringLiteral("|a|b"), 2, u'|'), QStringLiteral("b"));
    EXPECT_EQ(filterPiece(QStringLiteral("a|b"), 2, u'|'), QStringLiteral("b"));
}

TEST(FileDialogRules, SaveExtensionOfTheChosenPair)
{
    const QString converted
        = convertFilter(QStringLiteral("Backup|*.bup|Text| *.txt |Alles|*|Bilder|*.jpg;*.gif"));
    const std::pair<int, QString> cases[] = {
        { 0, QString() },
        { 1, QStringLiteral(".bup") },
        { 2, QStringLiteral(".txt") },
        { 3, QString() },
        { 4, QStringLiteral(".gif") },
        { 5, QString() },
    };
    for (const auto &[index, ext] : cases)
        EXPECT_EQ(saveExtension(converted, index), ext) << index;
    EXPECT_EQ(saveExtension(convertFilter(QString()), 1), QString());
}

TEST(FileDialogRules, SaveNamesGetTheExtension)
{
    const QString backup = convertFilter(QStringLiteral("Backup|*.bup"));
    struct Case
    {
        const char *why;
        QString chosen;
        QString filter;
        int index;
        QString defaultExt;
        QString fileName;
        QString result;
    };
    const Case cases[] = {
        { "three-letter extension kept", QStringLiteral("/h/x.bup"), backup, 1, {},
            QStringLiteral("/h/x.bup"), QStringLiteral("/h/x.bup") },
        { "other three letters kept too", QStringLiteral("/h/x.txt"), backup, 1, {},
            QStringLiteral("/h/x.txt"), QStringLiteral("/h/x.txt") },
        { "no extension", QStringLiteral("/h/sicherung"), backup, 1, {}, QStringLiteral("/h/sicherung.bup"),
            QStringLiteral("/h/sicherung") },
        { "four letters get more", QStringLiteral("x.abcd"), backup, 1, {}, QStringLiteral("x.abcd.bup"),
            QStringLiteral("x.abcd") },
        { "html gets more", QStringLiteral("x.html"), backup, 1, {}, QStringLiteral("x.html.bup"),
            QStringLiteral("x.html") },
        { "short name", QStringLiteral("ab"), backup, 1, {}, QStringLiteral("ab.bup"), QStringLiteral("ab") },
        { "empty filter adds nothing", QStringLiteral("x.html"), convertFilter({}), 1, {},
            QStringLiteral("x.html"), QStringLiteral("x.html") },
        { "empty filter, short name", QStringLiteral("ab"), convertFilter({}), 1, {}, QStringLiteral("ab"),
            QStringLiteral("ab") },
        { "cancel on a fresh dialog", QString(), backup, 0, {}, QString(), QString() },
        { "cancel after a success", QString(), backup, 1, {}, QStringLiteral(".bup"), QString() },
        { "default extension with a dot", QStringLiteral("/h/liste"), convertFilter({}), 0,
            QStringLiteral("txt"), QStringLiteral("/h/liste.txt"), QStringLiteral("/h/liste.txt") },
        { "default extension already there", QStringLiteral("/h/liste.txt"), convertFilter({}), 0,
            QStringLiteral(".txt"), QStringLiteral("/h/liste.txt"), QStringLiteral("/h/liste.txt") },
        { "default extension behind the filter's", QStringLiteral("/h/x.abcd"), backup, 1,
            QStringLiteral("bup"), QStringLiteral("/h/x.abcd.bup"), QStringLiteral("/h/x.abcd") },
    };
    for (const Case &c : cases) {
        const SaveNames names = saveNames(c.chosen, c.filter, c.index, c.defaultExt);
        EXPECT_EQ(names.fileName, c.fileName) << c.why;
        EXPECT_EQ(names.result, c.result) << c.why;
    }
}

TEST(FileDialogRules, FileTitleIsTheLastPart)
{
    EXPECT_EQ(fileTitle(QStringLiteral("/home/a/liste.txt")), QStringLiteral("liste.txt"));
    EXPECT_EQ(fileTitle(QStringLiteral("c:\\a\\b.bup")), QStringLiteral("b.bup"));
    EXPECT_EQ(fileTitle(QStringLiteral("frei")), QStringLiteral("frei"));
    EXPECT_EQ(fileTitle(QString()), QString());
}
