#include "archives/ArchiveStore.h"

#include "ArchiveBuilder.h"
#include "QStringPrinting.h"
#include "common/LikePattern.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using Numbers = std::vector<int32_t>;

// The query texts of the catalogue run as written, LIKE included.
class QueryTextTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_dir.isValid());
        m_archive = std::make_unique<ArchiveBuilder>(m_dir.path(), QStringLiteral("Suche"));
        m_archive
            ->cd(1, QStringLiteral("Office"), QStringLiteral("Sta1|Word|Excel 2000|End1"), 0,
                QStringLiteral("0"))
            .cd(2, QStringLiteral("Treiber"), QStringLiteral("Sta1|Treiber für Drucker|50% Rabatt|End1"), 777,
                QStringLiteral("4711"))
            .cd(3, QStringLiteral("Ärger"), QStringLiteral("Sta1|ÄRGER mit WORD|Müller's Briefe|End1"), -9,
                QStringLiteral("0"))
            .cd(12, QStringLiteral("Bilder"), QStringLiteral("Sta1|Urlaub 2003|a_b|End1"), 0,
                QStringLiteral("15"));
    }

    Numbers select(const QString &text, const QVariantList &binds = {}) const
    {
        const auto result = m_archive->store().selectNumbers(text, binds);
        EXPECT_TRUE(result.ok()) << text.toStdString() << ": " << result.error.message.toStdString();
        return result.value;
    }

    Numbers commentSearch(const QString &pattern) const
    {
        return select(QStringLiteral("SELECT cd_nummer FROM cds WHERE cd_inhalt LIKE ? ORDER BY cd_nummer"),
            { pattern });
    }

    QTemporaryDir m_dir;
    std::unique_ptr<ArchiveBuilder> m_archive;
};

TEST_F(QueryTextTest, FixedTextsRunAsWritten)
{
    EXPECT_EQ(select(QStringLiteral("Select cd_seriennummer FROM cds WHERE cd_seriennummer<>0")),
        (Numbers { 777, -9 }));
    EXPECT_EQ(
        select(QStringLiteral("Select cd_cover FROM cds WHERE cd_cover<>''")), (Numbers { 0, 4711, 0, 15 }));
    EXPECT_EQ(select(QStringLiteral("SELECT cd_nummer, cd_name, cd_seriennummer, cd_inhalt FROM cds ORDER BY "
                                    "cd_nummer")),
        (Numbers { 1, 2, 3, 12 }));
    EXPECT_EQ(
        select(QStringLiteral("SELECT cd_nummer FROM cds  ORDER BY cd_nummer")), (Numbers { 1, 2, 3, 12 }));
    EXPECT_EQ(select(QStringLiteral("SELECT cd_nummer FROM cds WHERE cd_nummer=12 ORDER BY cd_nummer")),
        Numbers { 12 });
    EXPECT_EQ(
        select(QStringLiteral("SELECT cd_nummer FROM cds WHERE cd_inhalt LIKE '*word*' ORDER BY cd_nummer")),
        (Numbers { 1, 3 }));
}

TEST_F(QueryTextTest, LikeFollowsThePatternRuleCaseFolded)
{
    struct Case
    {
        const char *name;
        const char *pattern;
        Numbers expected;
    };
    const Case cases[] = {
        { "containsIgnoresCase", "*WORD*", { 1, 3 } },
        { "umlautsFold", "*ärger*", { 3 } },
        { "wholeTextOnlyWithoutStars", "Word", {} },
        { "frameMarksArePartOfTheText", "Sta1|Word*", { 1 } },
        { "digitSign", "*Urlaub ####*", { 12 } },
        { "questionMark", "*Excel ?000*", { 1 } },
        { "charList", "*[tw]reiber*", { 2 } },
        { "negatedList", "*[!t]reiber*", {} },
        { "percentIsLiteral", "*50%*", { 2 } },
        { "percentMatchesNoRun", "*5%Rabatt*", {} },
        { "underscoreIsLiteral", "*a_b*", { 12 } },
        { "underscoreMatchesNoCharacter", "*Word_*", {} },
        { "apostropheIsSearchedFor", "*Müller's*", { 3 } },
        { "everything", "*", { 1, 2, 3, 12 } },
    };
    for (const Case &c : cases)
        EXPECT_EQ(commentSearch(QString::fromUtf8(c.pattern)), c.expected) << c.name;
}

TEST_F(QueryTextTest, UnclosedBracketIsAGermanErrorNotAMatch)
{
    const auto result = m_archive->store().selectNumbers(
        QStringLiteral("SELECT cd_nummer FROM cds WHERE cd_inhalt LIKE ? ORDER BY cd_nummer"),
        { QStringLiteral("*[ab*") });
    EXPECT_EQ(result.error.kind, ArchiveError::Kind::BadPattern);
    EXPECT_EQ(result.error.message, likeErrorMessage(LikePattern::Error::UnclosedBracket));
    EXPECT_TRUE(result.value.empty());
    // The archive is usable afterwards.
    EXPECT_EQ(commentSearch(QStringLiteral("*word*")), (Numbers { 1, 3 }));
}

} // namespace
