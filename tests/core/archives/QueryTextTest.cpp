#include "archives/ArchiveStore.h"

#include "ArchiveBuilder.h"
#include "QStringPrinting.h"
#include "common/LikePattern.h"

#include <QTemporaryDir>

namespace {

using namespace Qt::StringLiterals;
using Numbers = std::vector<int32_t>;

// The catalogue's query texts run as written, LIKE with the catalogue's pattern rule.
class QueryTextTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_archive.cd(1, u"Office"_s, u"Sta1|Word|Excel 2000|End1"_s)
            .cd(2, u"Treiber"_s, u"Sta1|Treiber für Drucker|50% Rabatt|End1"_s, 777, u"4711"_s)
            .cd(3, u"Ärger"_s, u"Sta1|ÄRGER mit WORD|Müller's Briefe|End1"_s, -9)
            .cd(12, u"Bilder"_s, u"Sta1|Urlaub 2003|a_b|End1"_s, 0, u"15"_s);
    }

    StoreResult<Numbers> select(const QString &text, const QVariantList &binds = {}) const
    {
        return m_archive.store().selectNumbers(text, binds);
    }
    Numbers like(const QString &pattern) const
    {
        const auto result
            = select(u"SELECT cd_nummer FROM cds WHERE cd_inhalt LIKE ? ORDER BY cd_nummer"_s, { pattern });
        EXPECT_TRUE(result.ok()) << result.error.message.toStdString();
        return result.value;
    }

    QTemporaryDir m_dir;
    ArchiveBuilder m_archive { m_dir.path(), u"Suche"_s };
};

TEST_F(QueryTextTest, FixedTextsRunAsWritten)
{
    const std::pair<QString, Numbers> cases[]
        = { { u"Select cd_seriennummer FROM cds WHERE cd_seriennummer<>0"_s, { 777, -9 } },
              { u"Select cd_cover FROM cds WHERE cd_cover<>''"_s, { 0, 4711, 0, 15 } },
              { u"SELECT cd_nummer, cd_name, cd_seriennummer, cd_inhalt FROM cds ORDER BY cd_nummer"_s,
                  { 1, 2, 3, 12 } },
              { u"SELECT cd_nummer FROM cds  ORDER BY cd_nummer"_s, { 1, 2, 3, 12 } },
              { u"SELECT cd_nummer FROM cds WHERE cd_nummer=12 ORDER BY cd_nummer"_s, { 12 } },
              { u"SELECT cd_nummer FROM cds WHERE cd_inhalt LIKE '*word*' ORDER BY cd_nummer"_s, { 1, 3 } } };
    for (const auto &[text, expected] : cases) {
        const auto result = select(text);
        EXPECT_TRUE(result.ok()) << result.error.message.toStdString();
        EXPECT_EQ(result.value, expected) << text.toStdString();
    }
}

TEST_F(QueryTextTest, LikeFollowsThePatternRuleCaseFolded)
{
    const std::pair<QString, Numbers> cases[] = { { u"*WORD*"_s, { 1, 3 } }, { u"*ärger*"_s, { 3 } },
        { u"Word"_s, {} }, // the whole text without stars
        { u"Sta1|Word*"_s, { 1 } }, { u"*Urlaub ####*"_s, { 12 } }, { u"*5%Rabatt*"_s, {} },
        { u"*Word_*"_s, {} }, { u"*Müller's*"_s, { 3 } }, { u"*"_s, { 1, 2, 3, 12 } } };
    for (const auto &[pattern, expected] : cases)
        EXPECT_EQ(like(pattern), expected) << pattern.toStdString();
}

TEST_F(QueryTextTest, UnclosedBracketIsAGermanErrorNotAMatch)
{
    const auto result
        = select(u"SELECT cd_nummer FROM cds WHERE cd_inhalt LIKE ? ORDER BY cd_nummer"_s, { u"*[ab*"_s });
    EXPECT_EQ(result.error.kind, ArchiveError::Kind::BadPattern);
    EXPECT_EQ(result.error.message, likeErrorMessage(LikePattern::Error::UnclosedBracket));
    EXPECT_TRUE(result.value.empty());
    EXPECT_EQ(like(u"*word*"_s), (Numbers { 1, 3 })); // the archive is usable afterwards
}

} // namespace
