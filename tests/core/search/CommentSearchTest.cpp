#include "search/CommentSearch.h"

#include "ArchiveBuilder.h"
#include "QStringPrinting.h"

#include <QTemporaryDir>

namespace {

using namespace Qt::StringLiterals;

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
    // An apostrophe is searched for as it stands; explicit: a whole item.
    const std::tuple<QString, std::optional<int>, bool, std::vector<QString>> cases[]
        = { { u"word"_s, std::nullopt, false, { u"3"_s, u"7"_s } },
              { u"word"_s, std::nullopt, true, { u"7"_s } }, { u"word"_s, 3, false, { u"3"_s } },
              { u"word"_s, 1, false, {} }, { u"rock'n'roll"_s, std::nullopt, false, { u"1"_s } },
              { u"urlaub|rock"_s, std::nullopt, false, { u"1"_s } },
              { u"a1|"_s, std::nullopt, false, { u"1"_s, u"3"_s, u"5"_s, u"7"_s } } };
    for (const auto &[word, currentCd, explicitMatch, found] : cases) {
        SCOPED_TRACE(word.toStdString());
        const CommentSearchResult result = searchComments(m_archive.store(), word, currentCd, explicitMatch);
        EXPECT_EQ(std::tuple(result.foundCdNumbers, result.outcome, result.message),
            std::tuple(found, found.empty() ? CommentSearchOutcome::NoMatch : CommentSearchOutcome::Found,
                found.empty() ? u"Keine übereinstimmende CD gefunden!"_s : QString()));
    }
}

TEST_F(CommentSearchTest, RefusedAndFailedSearchesSayWhy)
{
    const CommentSearchResult empty = searchComments(m_archive.store(), QString(), std::nullopt, false);
    EXPECT_EQ(std::tuple(empty.outcome, empty.message),
        std::tuple(CommentSearchOutcome::EmptyWord, u"Bitte geben Sie einen Suchbegriff ein!"_s));
    const ArchiveStore missing(datapaths::archiveFile(m_dir.path(), u"Fehlt"_s));
    for (const CommentSearchResult &failed :
        { searchComments(m_archive.store(), u"[abc"_s, std::nullopt, false),
            searchComments(missing, u"word"_s, std::nullopt, false) }) {
        EXPECT_EQ(std::pair(failed.outcome, failed.message.isEmpty()), std::pair(CommentSearchOutcome::Failed, false));
    }
}

} // namespace
