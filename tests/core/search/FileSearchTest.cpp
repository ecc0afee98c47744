#include "search/FileSearch.h"
#include "search/ImageLineMatcher.h"

#include "ArchiveBuilder.h"
#include "TestPaths.h"
#include "common/Cp1252.h"
#include "common/LikePattern.h"
#include "search/SearchProgress.h"

#include <QTemporaryDir>

#include <atomic>
#include <set>

namespace {

using namespace Qt::StringLiterals;
using Texts = std::vector<std::string>;
using Outcome = FileSearchOutcome;

// A data folder whose images are written as a capture writes them: code page 1252 lines
// with CR LF, and the empty end line.
struct ImageFolder
{
    QString path() const { return m_dir.path(); }
    QString imagePath(int32_t id) const { return datapaths::imageFile(path(), id); }
    void write(int32_t id, const Texts &lines) const
    {
        std::string bytes;
        for (const std::string &line : lines)
            bytes += line + "\r\n";
        writeFile(imagePath(id), QByteArray::fromStdString(bytes + "\r\n"));
    }
    QTemporaryDir m_dir;
};

Texts texts(const FileSearchResult &result)
{
    return { result.hits.begin(), result.hits.end() };
}

// One image with every kind of line; \xC4 is "Ä" in code page 1252.
const Texts kImage = {
    ">d:", "d:\\liesmich.txt|1834|12.03.2003 09:41:07", // 0, 1
    ">d:\\Bilder", "d:\\Bilder\\haus.jpg|482113|28.07.2002 18:02:44", // 2, 3
    ">d:\\Bilder\\alt.zip", "d:\\Bilder\\alt.zip\\2001/haus.jpg|120455|04.11.2001", // 4, 5
    "d:\\Bilder\\alt.zip\\2001/garten.jpg|98012|04.11.2001", "d:\\Bilder\\alt.zip\\||", // 6, 7
    "d:\\Bilder\\garten.jpg|501772|28.07.2002 18:02:50", ">d:\\Setup", // 8, 9
    ">d:\\Setup\\daten.rar", "d:\\Setup\\daten.rar\\lib/core.dll|804864|19.01.2003", // 10, 11
    "d:\\Setup\\daten.rar\\liesmich.txt|2210|19.01.2003",
    "d:\\Setup\\start.exe|65536|19.01.2003 00:12:31", // 12, 13
    "d:\\Bilder\\\xC4rger 2003.txt|17|01.02.2003", "" // 14, 15: the end line
};

// One CD searched alone matches the path up to the first bar, or with the explicit search the
// path as a whole; all CDs match the whole line, size, date and folder lines included.
TEST(FileSearch, MatchingRulesOfBothModes)
{
    enum Mode { Path, Explicit, Whole };
    // The empty end line matches "*" too, but the result list could not show it: no hit.
    const std::set<int> every = { 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14 };
    const std::set<int> bars = { 1, 3, 5, 6, 7, 8, 11, 12, 13, 14 };
    const std::tuple<const char *, Mode, const char *, std::set<int>> cases[] = { // word in code page 1252
        { "wordInFileName", Path, "haus", { 3, 5 } }, { "umlautFolded", Path, "\xE4rger", { 14 } },
        { "folderFindsFilesBelowNotItsLine", Path, "bilder", { 3, 5, 6, 7, 8, 14 } },
        { "dateNotSearched", Path, "2003", { 14 } }, { "barIsPartOfThePath", Path, "|", bars },
        { "starMatchesAll", Path, "*", every }, { "explicitPlainName", Explicit, "liesmich.txt", {} },
        { "explicitAnyFolder", Explicit, "*\\LIESMICH.TXT|", { 1, 12 } },
        { "explicitFolderPrefix", Explicit, "d:\\bilder\\*", { 3, 5, 6, 7, 8, 14 } },
        { "wholeDates", Whole, "2003", { 1, 11, 12, 13, 14 } },
        { "wholeFolderLines", Whole, "bilder", { 2, 3, 4, 5, 6, 7, 8, 14 } },
        { "wholeStarLeavesTheEndLine", Whole, "*", every }, { "wholeAcrossFields", Whole, "exe|#", { 13 } }
    };
    ImageFolder data;
    data.write(4711, Texts(kImage.begin(), kImage.end() - 1));
    const SearchCd cd { 12, u"Backup 2003"_s, 4711 };
    const FileSearch search(data.path());
    for (const auto &[name, mode, cp1252Word, lines] : cases) {
        SCOPED_TRACE(name);
        const QString word = cp1252::toQString(cp1252Word);
        const FileSearchResult result = mode == Whole ? search.searchAllCds({ cd }, word)
                                                      : search.searchOneCd(cd, word, mode == Explicit);
        Texts expected;
        for (int line : lines)
            expected.push_back("12-Backup 2003<" + kImage[static_cast<size_t>(line)]);
        EXPECT_EQ(texts(result), expected);
        EXPECT_EQ(result.outcome, lines.empty() ? Outcome::NoHit : Outcome::Hits);
    }
}

// Hit entries are number, "-", title, "<" and the line as it stands; CDs in the given order,
// lines in image order, nothing merged; CDs without image, empty and missing images passed
// over. An archive gives its CDs with an image, by number.
TEST(FileSearch, HitsFollowTheCdsThenTheLines)
{
    ImageFolder data;
    data.write(-1408263712, { ">d:", "d:\\b\\START.exe|1|01.01.2003", "d:\\a\\start.exe|1|01.01.2003" });
    data.write(20, { ">d:", "d:\\b\\start.exe|1|01.01.2003" });
    data.write(0, { ">d:", "d:\\start.exe|0|01.01.2003" }); // belongs to no CD
    writeFile(data.imagePath(30));
    const SearchCd seven { 7, cp1252::toQString("Spiele-CD <\xC4lt>"), -1408263712 };
    const std::vector<SearchCd> cds = { seven, { 2, u"Zwei"_s, 20 }, { 3, u"Ohne"_s, 0 },
        { 4, u"Leer"_s, 30 }, { 5, u"Fehlt"_s, 55 }, { 9, u"Neun"_s, -1408263712 } };
    const FileSearch search(data.path());
    EXPECT_EQ(texts(search.searchAllCds(cds, u"start"_s)),
        (Texts { "7-Spiele-CD <\xC4lt><d:\\b\\START.exe|1|01.01.2003",
            "7-Spiele-CD <\xC4lt><d:\\a\\start.exe|1|01.01.2003", "2-Zwei<d:\\b\\start.exe|1|01.01.2003",
            "9-Neun<d:\\b\\START.exe|1|01.01.2003", "9-Neun<d:\\a\\start.exe|1|01.01.2003" }));
    ArchiveBuilder archive(data.path(), u"Test"_s);
    archive.cd(9, u"Neun"_s, u"Sta1|End1"_s, 20)
        .cd(2, u"Zwei"_s, u"Sta1|End1"_s, -1408263712)
        .cd(5, u"Ohne"_s);
    EXPECT_EQ(texts(search.searchArchive(archive.store(), u"start"_s)),
        (Texts { "2-Zwei<d:\\b\\START.exe|1|01.01.2003", "2-Zwei<d:\\a\\start.exe|1|01.01.2003",
            "9-Neun<d:\\b\\start.exe|1|01.01.2003" }));
}

TEST(FileSearch, RefusedSearchesSayWhy)
{
    ImageFolder data;
    data.write(1, { ">d:", "d:\\haus.txt|1|01.01.2003" });
    // A link to itself exists but can never be opened, whoever runs the test.
    ASSERT_TRUE(QFile::link(data.imagePath(2), data.imagePath(2)));
    ArchiveBuilder noImages(data.path(), u"Leer"_s);
    noImages.cd(1, u"Eins"_s);
    const ArchiveStore missing(datapaths::archiveFile(data.path(), u"Fehlt"_s));
    const FileSearch search(data.path());
    const SearchCd withImage { 1, u"Eins"_s, 1 }, unreadable { 2, u"Zwei"_s, 2 }, noImage { 3, u"Drei"_s, 3 };
    const std::tuple<FileSearchResult, Outcome, QString> cases[] = {
        { search.searchOneCd(withImage, QString(), false), Outcome::EmptyWord,
            u"Bitte geben Sie einen Suchbegriff ein!"_s },
        { search.searchOneCd(noImage, u"haus"_s, false), Outcome::NoImage,
            u"Kein Datenträgerabbild vorhanden!"_s },
        { search.searchArchive(noImages.store(), u"haus"_s), Outcome::NoCdWithImage,
            u"Keine CD mit der gesuchten Datei vorhanden!"_s },
        { search.searchAllCds({ withImage }, u"Garten"_s), Outcome::NoHit,
            u"Keine CD mit dem Inhalt Garten gefunden!"_s },
        { search.searchOneCd(withImage, u"[ha"_s, false), Outcome::BadPattern,
            likeErrorMessage(LikePattern::Error::UnclosedBracket) },
        { search.searchAllCds({ withImage, unreadable }, u"haus"_s), Outcome::UnreadableImage,
            u"Das Datenträgerabbild %1 kann nicht gelesen werden."_s.arg(data.imagePath(2)) },
        { search.searchArchive(missing, u"haus"_s), Outcome::ArchiveFailed,
            u"Die Archivdatei \"%1\" wurde nicht gefunden."_s.arg(missing.path()) },
    };
    for (const auto &[result, outcome, message] : cases) {
        SCOPED_TRACE(message.toStdString());
        EXPECT_EQ(std::tie(result.outcome, result.message), std::tie(outcome, message));
        EXPECT_TRUE(result.hits.empty());
    }
}

// Asks to stop once the third image has started.
struct Canceller : SearchProgress
{
    void imageStarted(int, int, int32_t) override { ++m_calls; }
    bool cancelRequested() const override { return m_calls.load() >= 3; }
    std::atomic<int> m_calls { 0 };
};

// Several workers give the hits of a single one, in the same order; a cancel stops the search
// soon, with no hits.
TEST(FileSearch, WorkersKeepTheOrderAndStopOnCancel)
{
    ImageFolder data;
    std::vector<SearchCd> cds;
    for (int n = 1; n <= 40; ++n) {
        Texts lines = { ">d:" };
        for (int k = 0; k < n * 37; ++k)
            lines.push_back(
                "d:\\cd" + std::to_string(n) + (k % 5 ? "\\Baum" : "\\Haus") + std::to_string(k) + "|1|2");
        data.write(1000 + n, lines);
        cds.push_back({ 41 - n, u"CD %1"_s.arg(n), 1000 + n });
    }
    const FileSearchResult single = FileSearch(data.path(), 1).searchAllCds(cds, u"haus"_s);
    ASSERT_EQ(single.outcome, Outcome::Hits);
    EXPECT_EQ(texts(FileSearch(data.path(), 8).searchAllCds(cds, u"haus"_s)), texts(single));
    Canceller canceller;
    const FileSearchResult stopped = FileSearch(data.path(), 3).searchAllCds(cds, u"haus"_s, &canceller);
    EXPECT_EQ(stopped.outcome, Outcome::Cancelled);
    EXPECT_TRUE(stopped.hits.empty());
    EXPECT_LE(canceller.m_calls.load(), 6);
}

using Lines = std::vector<std::string_view>;

// Blocks cut where blockEnd says give the lines of the whole text, whatever the block size,
// a CR LF split across the cut included.
TEST(ImageLineMatcher, BlockByBlockScanGivesTheLinesOfTheWhole)
{
    const std::string_view text = "Haus|1\r\nx\nhaus\r\rBaum\r\n\r\nHAUS\r\nhaus";
    const ImageLineMatcher matcher("*haus*", ImageLineMatcher::Part::WholeLine);
    Lines whole;
    matcher.scan(text, whole);
    ASSERT_EQ(whole, (Lines { "Haus|1", "x\nhaus", "HAUS", "haus" }));
    for (size_t blockSize = 1; blockSize <= 9; ++blockSize) {
        Lines blocked;
        for (size_t from = 0; from < text.size();) {
            const size_t to = ImageLineMatcher::blockEnd(text, from, blockSize);
            ASSERT_GT(to, from);
            matcher.scan(text.substr(from, to - from), blocked);
            from = to;
        }
        EXPECT_EQ(blocked, whole) << "blocks of " << blockSize;
    }
}

} // namespace
