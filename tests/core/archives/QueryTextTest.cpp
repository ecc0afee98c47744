#include "archives/ArchiveStore.h"

#include "ArchiveBuilder.h"
#include "QStringPrinting.h"
#include "common/LikePattern.h"

#include <QTemporaryDir>

namespace {

using namespace Qt::StringLiterals;
using Numbers = std::vector<int32_t>;

// Query texts with LIKE follow the catalogue's pattern rule, case folded: "%" and "_" are plain
// characters, the pattern covers the whole text. A bad pattern is a German error, not a match,
// and the archive stays usable.
TEST(QueryText, LikeFollowsThePatternRuleCaseFolded)
{
    QTemporaryDir dir;
    ArchiveBuilder archive(dir.path(), u"Suche"_s);
    archive.cd(1, u"Office"_s, u"Sta1|Word|Excel 2000|End1"_s)
        .cd(2, u"Treiber"_s, u"Sta1|Treiber für Drucker|50% Rabatt|End1"_s)
        .cd(3, u"Ärger"_s, u"Sta1|ÄRGER mit WORD|End1"_s)
        .cd(12, u"Bilder"_s, u"Sta1|Urlaub 2003|a_b|End1"_s);
    const std::pair<QString, Numbers> cases[]
        = { { u"*WORD*"_s, { 1, 3 } }, { u"*ärger*"_s, { 3 } }, { u"Word"_s, {} }, { u"*5%Rabatt*"_s, {} },
              { u"*Word_*"_s, {} }, { u"*[ab*"_s, {} }, { u"*"_s, { 1, 2, 3, 12 } } };
    for (const auto &[pattern, expected] : cases) {
        const auto result = archive.store().selectNumbers(
            u"SELECT cd_nummer FROM cds WHERE cd_inhalt LIKE ? ORDER BY cd_nummer"_s, { pattern });
        EXPECT_EQ(result.value, expected) << pattern.toStdString();
        EXPECT_EQ(result.error.message,
            pattern.contains(u'[') ? likeErrorMessage(LikePattern::Error::UnclosedBracket) : QString());
    }
}

} // namespace
