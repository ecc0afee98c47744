#include "ArchiveBuilder.h"
#include "SearchDataFolder.h"

#include "common/Cp1252.h"
#include "common/LikePattern.h"
#include "search/FileSearch.h"
#include "search/SearchProgress.h"

#include <QFile>

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <set>

namespace {

// One image with every kind of line; \xC4 is "Ä" in code page 1252.
const std::vector<std::string> kImage = {
    ">d:",                                                   // 0
    "d:\\liesmich.txt|1834|12.03.2003 09:41:07",             // 1
    ">d:\\Bilder",                                           // 2
    "d:\\Bilder\\haus.jpg|482113|28.07.2002 18:02:44",       // 3
    ">d:\\Bilder\\alt.zip",                                  // 4
    "d:\\Bilder\\alt.zip\\2001/haus.jpg|120455|04.11.2001",  // 5
    "d:\\Bilder\\alt.zip\\2001/garten.jpg|98012|04.11.2001", // 6
    "d:\\Bilder\\alt.zip\\||",                               // 7
    "d:\\Bilder\\garten.jpg|501772|28.07.2002 18:02:50",     // 8
    ">d:\\Setup",                                            // 9
    ">d:\\Setup\\daten.rar",                                 // 10
    "d:\\Setup\\daten.rar\\lib/core.dll|804864|19.01.2003",  // 11
    "d:\\Setup\\daten.rar\\liesmich.txt|2210|19.01.2003",    // 12
    "d:\\Setup\\start.exe|65536|19.01.2003 00:12:31",        // 13
    "d:\\Bilder\\\xC4rger 2003.txt|17|01.02.2003",           // 14
};
constexpr int kEndLine = 15; // the empty line that ends every image
const std::set<int> kEveryLine = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, kEndLine};
const std::set<int> kBarLines = {1, 3, 5, 6, 7, 8, 11, 12, 13, 14};

const SearchCd kBackup{12, QStringLiteral("Backup 2003"), 4711};

std::vector<std::string> texts(const HitList &hits)
{
    return {hits.begin(), hits.end()};
}

std::string entryFor(int line)
{
    return "12-Backup 2003<" + (line == kEndLine ? std::string() : kImage[static_cast<size_t>(line)]);
}

std::vector<std::string> entriesFor(const std::set<int> &lines)
{
    std::vector<std::string> entries;
    for (int line : lines)
        entries.push_back(entryFor(line));
    return entries;
}

struct MatchCase
{
    const char *name;
    const char *word; // code page 1252
    bool explicitMatch;
    std::set<int> lines;
};

class FileSearchMatching : public ::testing::Test
{
protected:
    FileSearchMatching() { m_data.writeImage(kBackup.imageId, kImage); }

    SearchDataFolder m_data;
};

class OneCdMatching : public FileSearchMatching, public ::testing::WithParamInterface<MatchCase>
{
};

TEST_P(OneCdMatching, SearchesThePathUpToTheFirstBar)
{
    const MatchCase &c = GetParam();
    const FileSearchResult result =
        FileSearch(m_data.path()).searchOneCd(kBackup, cp1252::toQString(c.word), c.explicitMatch);
    EXPECT_EQ(texts(result.hits), entriesFor(c.lines)) << c.word;
    EXPECT_EQ(result.outcome, c.lines.empty() ? FileSearchOutcome::NoHit : FileSearchOutcome::Hits);
}

const MatchCase kOneCdCases[] = {
    {"wordInFileName", "haus", false, {3, 5}},
    {"caseOfTheWordIgnored", "HAUS", false, {3, 5}},
    {"umlautFolded", "\xE4rger", false, {14}},
    {"folderNameFindsFilesBelowNotTheFolderLine", "bilder", false, {3, 5, 6, 7, 8, 14}},
    {"dateAndSizeNotSearched", "2003", false, {14}},
    {"sizeNotSearched", "65536", false, {}},
    {"barIsPartOfThePath", "|", false, kBarLines},
    {"starMatchesEmptyLeftPart", "*", false, kEveryLine},
    {"questionMarkIsAWildcard", "h?us", false, {3, 5}},
    {"digitWildcard", "200#/", false, {5, 6}},
    {"characterList", "[gh]a", false, {3, 5, 6, 8}},
    {"noHit", "xylophon", false, {}},
    {"explicitPlainNameFindsNothing", "liesmich.txt", true, {}},
    {"explicitWholePathWithBar", "d:\\liesmich.txt|", true, {1}},
    {"explicitAnyFolder", "*\\liesmich.txt|", true, {1, 12}},
    {"explicitAnyCase", "*\\LIESMICH.TXT|", true, {1, 12}},
    {"explicitFolderPrefix", "d:\\bilder\\*", true, {3, 5, 6, 7, 8, 14}},
    {"explicitStar", "*", true, kEveryLine},
};

INSTANTIATE_TEST_SUITE_P(Cases, OneCdMatching, ::testing::ValuesIn(kOneCdCases),
                         [](const auto &info) { return std::string(info.param.name); });

class AllCdsMatching : public FileSearchMatching, public ::testing::WithParamInterface<MatchCase>
{
};

TEST_P(AllCdsMatching, SearchesTheWholeLine)
{
    const MatchCase &c = GetParam();
    const FileSearchResult result = FileSearch(m_data.path()).searchAllCds({kBackup}, cp1252::toQString(c.word));
    EXPECT_EQ(texts(result.hits), entriesFor(c.lines)) << c.word;
}

const MatchCase kAllCdsCases[] = {
    {"wordInFileName", "haus", false, {3, 5}},
    {"umlautFoldedBothWays", "\xC4RGER", false, {14}},
    {"datesAreSearched", "2003", false, {1, 11, 12, 13, 14}},
    {"sizesAreSearched", "65536", false, {13}},
    {"folderLinesAreFound", "bilder", false, {2, 3, 4, 5, 6, 7, 8, 14}},
    {"starFindsTheEndLineToo", "*", false, kEveryLine},
    {"bar", "|", false, kBarLines},
    {"wildcardAcrossFields", "exe|#", false, {13}},
};

INSTANTIATE_TEST_SUITE_P(Cases, AllCdsMatching, ::testing::ValuesIn(kAllCdsCases),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(FileSearch, HitEntryIsNumberTitleAndTheLineAsItStands)
{
    SearchDataFolder data;
    data.writeImage(-1408263712, {">d:", "d:\\Setup\\START.exe|65536|19.01.2003 00:12:31"});
    const SearchCd cd{7, cp1252::toQString("Spiele-CD <\xC4lt>"), -1408263712};
    const std::string expected = "7-Spiele-CD <\xC4lt><d:\\Setup\\START.exe|65536|19.01.2003 00:12:31";
    const FileSearchResult results[] = {FileSearch(data.path()).searchOneCd(cd, QStringLiteral("start"), false),
                                        FileSearch(data.path()).searchAllCds({cd}, QStringLiteral("start"))};
    for (const FileSearchResult &result : results) {
        ASSERT_EQ(result.outcome, FileSearchOutcome::Hits);
        EXPECT_EQ(texts(result.hits), std::vector<std::string>{expected});
    }
}

TEST(FileSearch, HitsFollowTheOrderOfTheCdsThenOfTheLinesWithoutDeduplication)
{
    SearchDataFolder data;
    data.writeImage(70, {">d:", "d:\\b\\haus.jpg|1|01.01.2003", "d:\\a\\haus.jpg|1|01.01.2003"});
    data.writeImage(20, {">d:", "d:\\b\\haus.jpg|1|01.01.2003"});
    const std::vector<SearchCd> cds = {{7, QStringLiteral("Sieben"), 70},
                                       {2, QStringLiteral("Zwei"), 20},
                                       {9, QStringLiteral("Neun"), 70}};
    const FileSearchResult result = FileSearch(data.path()).searchAllCds(cds, QStringLiteral("haus"));
    const std::vector<std::string> expected = {
        "7-Sieben<d:\\b\\haus.jpg|1|01.01.2003", "7-Sieben<d:\\a\\haus.jpg|1|01.01.2003",
        "2-Zwei<d:\\b\\haus.jpg|1|01.01.2003", "9-Neun<d:\\b\\haus.jpg|1|01.01.2003",
        "9-Neun<d:\\a\\haus.jpg|1|01.01.2003"};
    EXPECT_EQ(texts(result.hits), expected);
}

TEST(FileSearch, ParallelWorkersKeepTheOrderOfASingleOne)
{
    SearchDataFolder data;
    std::vector<SearchCd> cds;
    for (int n = 1; n <= 40; ++n) {
        std::vector<std::string> lines = {">d:"};
        for (int k = 0; k < n * 37; ++k)
            lines.push_back("d:\\cd" + std::to_string(n) + "\\" + (k % 5 == 0 ? "Haus" : "Baum") +
                            std::to_string(k) + ".txt|" + std::to_string(k) + "|01.01.2003");
        data.writeImage(1000 + n, lines);
        cds.push_back({41 - n, QStringLiteral("CD %1").arg(n), 1000 + n});
    }
    const FileSearchResult single = FileSearch(data.path(), 1).searchAllCds(cds, QStringLiteral("haus"));
    ASSERT_EQ(single.outcome, FileSearchOutcome::Hits);
    for (int workers : {2, 3, 8})
        EXPECT_EQ(texts(FileSearch(data.path(), workers).searchAllCds(cds, QStringLiteral("haus")).hits),
                  texts(single.hits))
            << workers << " workers";
}

struct LineBreakCase
{
    const char *name;
    const char *bytes;
    const char *word;
    std::vector<std::string> lines;
};

class ImageLineBreaks : public ::testing::TestWithParam<LineBreakCase>
{
};

TEST_P(ImageLineBreaks, LinesAreCutAsTheCatalogueReadsThem)
{
    const LineBreakCase &c = GetParam();
    SearchDataFolder data;
    data.writeRawImage(5, c.bytes);
    const FileSearchResult result =
        FileSearch(data.path()).searchAllCds({{1, QStringLiteral("T"), 5}}, QString::fromLatin1(c.word));
    std::vector<std::string> expected;
    for (const std::string &line : c.lines)
        expected.push_back("1-T<" + line);
    EXPECT_EQ(texts(result.hits), expected);
}

const LineBreakCase kLineBreakCases[] = {
    {"noFinalLineBreak", "a haus\r\nb haus", "haus", {"a haus", "b haus"}},
    {"loneLineFeedStaysInTheLine", "x\nhaus\r\n", "haus", {"x\nhaus"}},
    {"loneCarriageReturnEndsALine", "x\rhaus\r\n", "haus", {"haus"}},
    {"emptyFileHasNoLine", "", "*", {}},
    {"oneLineBreakIsOneEmptyLine", "\r\n", "*", {""}},
    {"finalLineBreakAddsNoLine", "haus\r\n\r\n", "*", {"haus", ""}},
    {"wordAtTheVeryStart", "haus|1|2\r\n", "haus", {"haus|1|2"}},
    {"wordAtTheVeryEnd", "d:\\x\r\nd:\\haus", "haus", {"d:\\haus"}},
};

INSTANTIATE_TEST_SUITE_P(Cases, ImageLineBreaks, ::testing::ValuesIn(kLineBreakCases),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(FileSearch, RefusedSearchesSayWhy)
{
    SearchDataFolder data;
    data.writeImage(1, {">d:", "d:\\haus.txt|1|01.01.2003"});
    const FileSearch search(data.path());
    const SearchCd withImage{1, QStringLiteral("Eins"), 1};
    const SearchCd missingImage{2, QStringLiteral("Zwei"), 2};
    const SearchCd noImage{3, QStringLiteral("Drei"), 0};
    struct Case
    {
        const char *name;
        FileSearchResult result;
        FileSearchOutcome outcome;
        QString message;
    };
    const Case cases[] = {
        {"emptyWordOneCd", search.searchOneCd(withImage, QString(), false), FileSearchOutcome::EmptyWord,
         QStringLiteral("Bitte geben Sie einen Suchbegriff ein!")},
        {"emptyWordAllCds", search.searchAllCds({withImage}, QString()), FileSearchOutcome::EmptyWord,
         QStringLiteral("Bitte geben Sie einen Suchbegriff ein!")},
        {"missingImageOneCd", search.searchOneCd(missingImage, QStringLiteral("haus"), false),
         FileSearchOutcome::NoImage, QStringLiteral("Kein Datenträgerabbild vorhanden!")},
        {"noCdWithImage", search.searchAllCds({noImage}, QStringLiteral("haus")), FileSearchOutcome::NoCdWithImage,
         QStringLiteral("Keine CD mit der gesuchten Datei vorhanden!")},
        {"noCdAtAll", search.searchAllCds({}, QStringLiteral("haus")), FileSearchOutcome::NoCdWithImage,
         QStringLiteral("Keine CD mit der gesuchten Datei vorhanden!")},
        {"noHitKeepsTheWordAsTyped", search.searchAllCds({withImage}, QStringLiteral("Garten")),
         FileSearchOutcome::NoHit, QStringLiteral("Keine CD mit dem Inhalt Garten gefunden!")},
        {"allImagesMissingIsNoHit", search.searchAllCds({missingImage}, QStringLiteral("haus")),
         FileSearchOutcome::NoHit, QStringLiteral("Keine CD mit dem Inhalt haus gefunden!")},
        {"unclosedBracketOneCd", search.searchOneCd(withImage, QStringLiteral("[ha"), false),
         FileSearchOutcome::BadPattern, likeErrorMessage(LikePattern::Error::UnclosedBracket)},
        {"unclosedBracketAllCds", search.searchAllCds({withImage}, QStringLiteral("ha[")),
         FileSearchOutcome::BadPattern, likeErrorMessage(LikePattern::Error::UnclosedBracket)},
        {"reversedRange", search.searchAllCds({withImage}, QStringLiteral("[z-a]")), FileSearchOutcome::BadPattern,
         likeErrorMessage(LikePattern::Error::BadRange)},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(c.result.outcome, c.outcome) << c.name;
        EXPECT_EQ(c.result.message, c.message) << c.name;
        EXPECT_TRUE(c.result.hits.empty()) << c.name;
    }
}

TEST(FileSearch, MissingImagesArePassedOverAndCdsWithoutImageSkipped)
{
    SearchDataFolder data;
    data.writeImage(1, {">d:", "d:\\haus.txt|1|01.01.2003"});
    const std::vector<SearchCd> cds = {
        {5, QStringLiteral("Fehlt"), 55}, {3, QStringLiteral("Ohne"), 0}, {1, QStringLiteral("Eins"), 1}};
    // An image file named 0.dat belongs to no CD: a CD without image must not read it.
    data.writeImage(0, {">d:", "d:\\haus.txt|1|01.01.2003"});
    const FileSearchResult result = FileSearch(data.path()).searchAllCds(cds, QStringLiteral("haus"));
    EXPECT_EQ(texts(result.hits), std::vector<std::string>{"1-Eins<d:\\haus.txt|1|01.01.2003"});
}

TEST(FileSearch, AnImageThatCannotBeReadStopsTheSearchWithAMessage)
{
    SearchDataFolder data;
    data.writeImage(1, {">d:", "d:\\haus.txt|1|01.01.2003"});
    // A link to itself exists but can never be opened, whoever runs the test.
    ASSERT_TRUE(QFile::link(data.imagePath(2), data.imagePath(2)));
    const std::vector<SearchCd> cds = {{1, QStringLiteral("Eins"), 1}, {2, QStringLiteral("Zwei"), 2}};
    const FileSearchResult results[] = {FileSearch(data.path()).searchAllCds(cds, QStringLiteral("haus")),
                                        FileSearch(data.path()).searchOneCd(cds[1], QStringLiteral("haus"), false)};
    for (const FileSearchResult &result : results) {
        EXPECT_EQ(result.outcome, FileSearchOutcome::UnreadableImage);
        EXPECT_TRUE(result.message.contains(QStringLiteral("2.dat"))) << result.message.toStdString();
        EXPECT_TRUE(result.hits.empty());
    }
}

// Records what the search reports and cancels after a given number of images.
class RecordingProgress : public SearchProgress
{
public:
    explicit RecordingProgress(int cancelAfter = -1)
        : m_cancelAfter(cancelAfter)
    {
    }
    void imageStarted(int done, int total, int32_t cdNumber) override
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_started.insert(cdNumber);
        m_total = total;
        m_maxDone = std::max(m_maxDone, done);
        ++m_calls;
    }
    bool cancelRequested() const override { return m_cancelAfter >= 0 && m_calls.load() >= m_cancelAfter; }

    std::set<int32_t> m_started;
    int m_total = 0;
    int m_maxDone = -1;
    std::atomic<int> m_calls{0};

private:
    int m_cancelAfter;
    std::mutex m_mutex;
};

TEST(FileSearch, ReportsEveryImageAndCanBeCancelled)
{
    SearchDataFolder data;
    std::vector<SearchCd> cds;
    for (int n = 1; n <= 10; ++n) {
        data.writeImage(n, {">d:", "d:\\haus" + std::to_string(n) + ".txt|1|01.01.2003"});
        cds.push_back({n, QStringLiteral("CD"), n});
    }
    for (int workers : {1, 2}) {
        RecordingProgress watcher;
        const FileSearchResult all = FileSearch(data.path(), workers).searchAllCds(cds, QStringLiteral("haus"), &watcher);
        EXPECT_EQ(all.hits.size(), 10u);
        EXPECT_EQ(watcher.m_started.size(), 10u);
        EXPECT_EQ(watcher.m_total, 10);
        EXPECT_GE(watcher.m_maxDone, 10 - workers);

        RecordingProgress canceller(3);
        const FileSearchResult stopped =
            FileSearch(data.path(), workers).searchAllCds(cds, QStringLiteral("haus"), &canceller);
        EXPECT_EQ(stopped.outcome, FileSearchOutcome::Cancelled);
        EXPECT_TRUE(stopped.hits.empty());
        EXPECT_LE(canceller.m_calls.load(), 3 + workers);
    }
    RecordingProgress before(0);
    EXPECT_EQ(FileSearch(data.path()).searchOneCd(cds[0], QStringLiteral("haus"), false, &before).outcome,
              FileSearchOutcome::Cancelled);
}

} // namespace

namespace {

TEST(FileSearch, SearchesTheCdsOfAnArchiveThatHaveAnImage)
{
    SearchDataFolder data;
    ArchiveBuilder archive(data.path(), QStringLiteral("Test"));
    archive.cd(9, QStringLiteral("Neun"), QStringLiteral("Sta1|End1"), 90)
        .cd(2, QStringLiteral("Zwei"), QStringLiteral("Sta1|End1"), 20)
        .cd(5, QStringLiteral("Ohne Abbild"), QStringLiteral("Sta1|End1"), 0)
        .cd(4, QStringLiteral("Abbild fehlt"), QStringLiteral("Sta1|End1"), 40);
    data.writeImage(90, {">d:", "d:\\Haus.txt|1|01.01.2003"});
    data.writeImage(20, {">d:", "d:\\haus.txt|2|01.01.2003"});
    data.writeImage(0, {">d:", "d:\\haus.txt|3|01.01.2003"});
    const FileSearch search(data.path());
    const FileSearchResult found = search.searchArchive(archive.store(), QStringLiteral("haus"));
    EXPECT_EQ(texts(found.hits), (std::vector<std::string>{"2-Zwei<d:\\haus.txt|2|01.01.2003",
                                                     "9-Neun<d:\\Haus.txt|1|01.01.2003"}));

    ArchiveBuilder noImages(data.path(), QStringLiteral("Leer"));
    noImages.cd(1, QStringLiteral("Eins"));
    EXPECT_EQ(search.searchArchive(noImages.store(), QStringLiteral("haus")).outcome,
              FileSearchOutcome::NoCdWithImage);

    const ArchiveStore missing(data.path() + QStringLiteral("/archive/Fehlt.mdb"));
    const FileSearchResult failed = search.searchArchive(missing, QStringLiteral("haus"));
    EXPECT_EQ(failed.outcome, FileSearchOutcome::ArchiveFailed);
    EXPECT_FALSE(failed.message.isEmpty());
    EXPECT_EQ(search.searchArchive(missing, QString()).outcome, FileSearchOutcome::EmptyWord);
}

} // namespace
