#include "search/CommentSearch.h"

#include "ArchiveBuilder.h"
#include "QStringPrinting.h"
#include "search/CommentQuery.h"

#include <QTemporaryDir>

namespace {

using namespace Qt::StringLiterals;

// The query as the catalogue words it, with the word as typed, and the same query with the
// pattern bound in place of the quoted one, so that an apostrophe is searched for.
TEST(CommentQuery, IsAssembledPieceByPiece)
{
    const struct
    {
        QString word;
        std::optional<int> currentCd;
        bool explicitMatch;
        QString text, pattern;
    } cases[] = {
        { u"foo"_s, 7, false,
            u"SELECT cd_nummer FROM cds WHERE cd_nummer=7 AND cd_inhalt LIKE '*foo*' ORDER BY cd_nummer"_s,
            u"*foo*"_s },
        { u"foo"_s, std::nullopt, true,
            u"SELECT cd_nummer FROM cds WHERE cd_inhalt LIKE '*|foo|*' ORDER BY cd_nummer"_s, u"*|foo|*"_s },
        { u"Rock'n'Roll"_s, std::nullopt, false,
            u"SELECT cd_nummer FROM cds WHERE cd_inhalt LIKE '*Rock'n'Roll*' ORDER BY cd_nummer"_s,
            u"*Rock'n'Roll*"_s }
    };
    for (const auto &c : cases) {
        const CommentQuery query = commentQuery(c.word, c.currentCd, c.explicitMatch);
        EXPECT_EQ(query.text, c.text);
        EXPECT_EQ(query.boundText, QString(c.text).replace(u'\'' + c.pattern + u'\'', u"?"_s));
        EXPECT_EQ(query.binds, QVariantList { c.pattern });
    }
}

class CommentSearchTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        // Comments as the editor stores them: start mark, items between "|", end mark.
        m_archive.cd(3, u"Drei"_s, u"Sta1|Word 97|Excel|End1"_s)
            .cd(1, u"Eins"_s, u"Sta1|Urlaub|Rock'n'Roll Fotos|End1"_s)
            .cd(7, u"Sieben"_s, u"Sta1|WORD|Treiber|End1"_s)
            .cd(5, u"Fünf"_s, u"Sta1|Steuer 2003|End1"_s);
    }

    QTemporaryDir m_dir;
    ArchiveBuilder m_archive { m_dir.path(), u"Test"_s };
};

TEST_F(CommentSearchTest, FindsCdNumbersInNumberOrder)
{
    const struct
    {
        QString word;
        std::optional<int> currentCd;
        bool explicitMatch;
        std::vector<QString> found;
    } cases[] = { { u"word"_s, std::nullopt, false, { u"3"_s, u"7"_s } },
        { u"word"_s, std::nullopt, true, { u"7"_s } }, // a whole item
        { u"word"_s, 3, false, { u"3"_s } }, { u"word"_s, 1, false, {} },
        { u"rock'n'roll"_s, std::nullopt, false, { u"1"_s } },
        { u"urlaub|rock"_s, std::nullopt, false, { u"1"_s } },
        { u"a1|"_s, std::nullopt, false, { u"1"_s, u"3"_s, u"5"_s, u"7"_s } } };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.word.toStdString());
        const CommentSearchResult result
            = searchComments(m_archive.store(), c.word, c.currentCd, c.explicitMatch);
        EXPECT_EQ(result.foundCdNumbers, c.found);
        EXPECT_EQ(
            result.outcome, c.found.empty() ? CommentSearchOutcome::NoMatch : CommentSearchOutcome::Found);
        EXPECT_EQ(result.message, c.found.empty() ? u"Keine übereinstimmende CD gefunden!"_s : QString());
    }
}

TEST_F(CommentSearchTest, RefusedAndFailedSearchesSayWhy)
{
    const CommentSearchResult empty = searchComments(m_archive.store(), QString(), std::nullopt, false);
    EXPECT_EQ(empty.outcome, CommentSearchOutcome::EmptyWord);
    EXPECT_EQ(empty.message, u"Bitte geben Sie einen Suchbegriff ein!"_s);
    const ArchiveStore missing(datapaths::archiveFile(m_dir.path(), u"Fehlt"_s));
    for (const CommentSearchResult &failed :
        { searchComments(m_archive.store(), u"[abc"_s, std::nullopt, false),
            searchComments(missing, u"word"_s, std::nullopt, false) }) {
        EXPECT_EQ(failed.outcome, CommentSearchOutcome::Failed);
        EXPECT_FALSE(failed.message.isEmpty());
    }
}

} // namespace
