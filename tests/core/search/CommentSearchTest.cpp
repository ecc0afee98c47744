#include "ArchiveBuilder.h"
#include "QStringPrinting.h"
#include "SearchDataFolder.h"

#include "search/CommentQuery.h"
#include "search/CommentSearch.h"

#include <gtest/gtest.h>

namespace {

TEST(CommentQuery, IsAssembledPieceByPiece)
{
    struct Case
    {
        const char *name;
        QString word;
        std::optional<int> currentCd;
        bool explicitMatch;
        QString text;
        QString boundText;
        QString bound;
    };
    const Case cases[] = {
        {"oneCd", QStringLiteral("foo"), 7, false,
         QStringLiteral("SELECT cd_nummer FROM cds WHERE cd_nummer=7 AND cd_inhalt LIKE '*foo*' ORDER BY cd_nummer"),
         QStringLiteral("SELECT cd_nummer FROM cds WHERE cd_nummer=7 AND cd_inhalt LIKE ? ORDER BY cd_nummer"),
         QStringLiteral("*foo*")},
        {"allCdsExplicit", QStringLiteral("foo"), std::nullopt, true,
         QStringLiteral("SELECT cd_nummer FROM cds WHERE cd_inhalt LIKE '*|foo|*' ORDER BY cd_nummer"),
         QStringLiteral("SELECT cd_nummer FROM cds WHERE cd_inhalt LIKE ? ORDER BY cd_nummer"),
         QStringLiteral("*|foo|*")},
        {"oneCdExplicit", QStringLiteral("a b"), 12, true,
         QStringLiteral("SELECT cd_nummer FROM cds WHERE cd_nummer=12 AND cd_inhalt LIKE '*|a b|*' ORDER BY cd_nummer"),
         QStringLiteral("SELECT cd_nummer FROM cds WHERE cd_nummer=12 AND cd_inhalt LIKE ? ORDER BY cd_nummer"),
         QStringLiteral("*|a b|*")},
        {"wordAsTypedApostropheIncluded", QStringLiteral("Rock'n'Roll"), std::nullopt, false,
         QStringLiteral("SELECT cd_nummer FROM cds WHERE cd_inhalt LIKE '*Rock'n'Roll*' ORDER BY cd_nummer"),
         QStringLiteral("SELECT cd_nummer FROM cds WHERE cd_inhalt LIKE ? ORDER BY cd_nummer"),
         QStringLiteral("*Rock'n'Roll*")},
    };
    for (const Case &c : cases) {
        const CommentQuery query = commentQuery(c.word, c.currentCd, c.explicitMatch);
        EXPECT_EQ(query.text, c.text) << c.name;
        EXPECT_EQ(query.boundText, c.boundText) << c.name;
        EXPECT_EQ(query.binds, QVariantList{c.bound}) << c.name;
    }
}

class CommentSearchTest : public ::testing::Test
{
protected:
    CommentSearchTest()
        : m_archive(m_data.path(), QStringLiteral("Test"))
    {
        // Comments as the editor stores them: start mark, items between "|", end mark.
        m_archive.cd(3, QStringLiteral("Drei"), QStringLiteral("Sta1|Word 97|Excel|End1"))
            .cd(1, QStringLiteral("Eins"), QStringLiteral("Sta1|Urlaub|Rock'n'Roll Fotos|End1"))
            .cd(7, QStringLiteral("Sieben"), QStringLiteral("Sta1|WORD|Treiber|End1"))
            .cd(5, QStringLiteral("Fünf"), QStringLiteral("Sta1|Steuer 2003|End1"));
    }

    SearchDataFolder m_data;
    ArchiveBuilder m_archive;
    const ArchiveStore &m_store = m_archive.store();
};

TEST_F(CommentSearchTest, FindsCdNumbersInNumberOrder)
{
    struct Case
    {
        const char *name;
        QString word;
        std::optional<int> currentCd;
        bool explicitMatch;
        std::vector<QString> found;
    };
    const Case cases[] = {
        {"anyCaseAnywhere", QStringLiteral("word"), std::nullopt, false, {QStringLiteral("3"), QStringLiteral("7")}},
        {"explicitIsAWholeItem", QStringLiteral("word"), std::nullopt, true, {QStringLiteral("7")}},
        {"explicitItemWithBlank", QStringLiteral("word 97"), std::nullopt, true, {QStringLiteral("3")}},
        {"onlyTheCurrentCd", QStringLiteral("word"), 3, false, {QStringLiteral("3")}},
        {"currentCdWithoutTheWord", QStringLiteral("word"), 1, false, {}},
        {"apostropheIsSearchedFor", QStringLiteral("rock'n'roll"), std::nullopt, false, {QStringLiteral("1")}},
        {"wildcardsAct", QStringLiteral("steuer ####"), std::nullopt, false, {QStringLiteral("5")}},
        {"acrossItems", QStringLiteral("urlaub|rock"), std::nullopt, false, {QStringLiteral("1")}},
        {"insideTheMarks", QStringLiteral("a1|"), std::nullopt, false,
         {QStringLiteral("1"), QStringLiteral("3"), QStringLiteral("5"), QStringLiteral("7")}},
    };
    for (const Case &c : cases) {
        const CommentSearchResult result = searchComments(m_store, c.word, c.currentCd, c.explicitMatch);
        EXPECT_EQ(result.foundCdNumbers, c.found) << c.name;
        EXPECT_EQ(result.outcome, c.found.empty() ? CommentSearchOutcome::NoMatch : CommentSearchOutcome::Found)
            << c.name;
        EXPECT_EQ(result.message, c.found.empty() ? QStringLiteral("Keine übereinstimmende CD gefunden!") : QString())
            << c.name;
    }
}

TEST_F(CommentSearchTest, RefusedAndFailedSearchesSayWhy)
{
    const CommentSearchResult empty = searchComments(m_store, QString(), std::nullopt, false);
    EXPECT_EQ(empty.outcome, CommentSearchOutcome::EmptyWord);
    EXPECT_EQ(empty.message, QStringLiteral("Bitte geben Sie einen Suchbegriff ein!"));

    const CommentSearchResult badPattern = searchComments(m_store, QStringLiteral("[abc"), std::nullopt, false);
    EXPECT_EQ(badPattern.outcome, CommentSearchOutcome::Failed);
    EXPECT_FALSE(badPattern.message.isEmpty());

    const ArchiveStore missing(datapaths::archiveFile(m_data.path(), QStringLiteral("Fehlt")));
    const CommentSearchResult noArchive = searchComments(missing, QStringLiteral("word"), std::nullopt, false);
    EXPECT_EQ(noArchive.outcome, CommentSearchOutcome::Failed);
    EXPECT_FALSE(noArchive.message.isEmpty());
}

} // namespace
