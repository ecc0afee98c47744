#include "archives/ArchiveStore.h"
#include "archives/ArchiveConnection.h"

#include "ArchiveBuilder.h"
#include "QStringPrinting.h"
#include "TestPaths.h"
#include "common/LikePattern.h"

#include <QTemporaryDir>

#include <sqlite3.h>

namespace {

using namespace Qt::StringLiterals;
using Kind = ArchiveError::Kind;
using Numbers = std::vector<int32_t>;

Numbers numbersOf(const StoreResult<std::vector<CdRow>> &rows)
{
    EXPECT_TRUE(rows.ok()) << rows.error.message.toStdString();
    Numbers numbers;
    for (const CdRow &row : rows.value)
        numbers.push_back(row.number);
    return numbers;
}

class ArchiveStoreTest : public ::testing::Test
{
protected:
    QTemporaryDir m_dir;
    ArchiveBuilder m_archive { m_dir.path(), u"A"_s };
    const ArchiveStore &m_store = m_archive.store();
};

TEST_F(ArchiveStoreTest, NewArchiveHasNoRowsAndTheSixFieldsInOrder)
{
    EXPECT_EQ(numbersOf(m_store.selectAll()), Numbers {});
    std::string names;
    ArchiveConnection(m_store.path(), ArchiveConnection::Mode::Existing)
        .run(u"SELECT name FROM pragma_table_info('cds') ORDER BY cid"_s, {}, [&](sqlite3_stmt *row) {
            names += reinterpret_cast<const char *>(sqlite3_column_text(row, 0)) + std::string(" ");
        });
    EXPECT_EQ(names, "cd_nummer cd_name cd_seriennummer cd_inhalt cd_ausgeliehen cd_cover ");
}

// Update replaces the row of the old number; a renumbered row moves to its new place.
TEST_F(ArchiveStoreTest, RowsRoundTripAndComeInKeyOrder)
{
    const CdRow row { 42, u"Größe & Maß"_s, -1234567, u"Sta1|Word|Excel 2000|End1"_s, true, u"417"_s };
    m_archive.row(row);
    EXPECT_EQ(m_store.selectByNumber(42).value, row);
    for (int32_t number : { 30, 5, 32767, -2, 100000 })
        m_archive.cd(number, u"CD"_s);
    EXPECT_EQ(numbersOf(m_store.selectAll()), (Numbers { -2, 5, 30, 42, 32767, 100000 }));
    const CdRow changed { 1, u"Fünf"_s, 77, u"Sta1||End1"_s, false, u"9"_s };
    ASSERT_TRUE(m_store.updateRow(30, changed).ok());
    EXPECT_EQ(m_store.selectByNumber(1).value, changed);
    ASSERT_TRUE(m_store.setImageId(5, 22).ok());
    ASSERT_TRUE(m_store.deleteRow(100000).ok());
    EXPECT_EQ(numbersOf(m_store.selectAll()), (Numbers { -2, 1, 5, 42, 32767 }));
    EXPECT_EQ(numbersOf(m_store.selectWithImage()), (Numbers { 1, 5, 42 }));
}

// The title limit counts characters, not bytes.
TEST_F(ArchiveStoreTest, RefusedChangesSayWhyAndTheRowsStay)
{
    m_archive.cd(3, u"Drei"_s).cd(5, u"Fünf"_s);
    const QString taken
        = u"Bitte geben Sie eine andere CD Nummer ein, da jede Nummer nur einmal vergeben werden darf!"_s;
    const QString missing = u"Die CD (Nummer: 9) wurde im Archiv nicht gefunden."_s;
    const std::tuple<ArchiveError, Kind, QString> cases[] = {
        { m_store.addRow({ .number = 3, .name = u"Neu"_s }), Kind::DuplicateNumber, taken },
        { m_store.updateRow(5, { .number = 3, .name = u"Neu"_s }), Kind::DuplicateNumber, taken },
        { m_store.addRow({ .number = 4, .name = QString(51, u'x') }), Kind::TitleTooLong,
            u"Der Titel ist zu lang: Er darf höchstens 50 Zeichen haben."_s },
        { m_store.updateRow(9, { .number = 9 }), Kind::NotFound, missing },
        { m_store.deleteRow(9), Kind::NotFound, missing },
    };
    for (const auto &[error, kind, message] : cases)
        EXPECT_EQ(std::pair(error.kind, error.message), std::pair(kind, message));
    EXPECT_EQ(numbersOf(m_store.selectAll()), (Numbers { 3, 5 }));
    EXPECT_EQ(m_store.selectByNumber(5).value.name, u"Fünf"_s);
    EXPECT_TRUE(m_store.addRow({ .number = 4, .name = QString(50, QChar(0xE4)) }).ok());
}

// A missing file is not created; a text file or an empty one stays as it was.
TEST_F(ArchiveStoreTest, FilesThatAreNoArchiveGiveGermanErrorsAndStayAsTheyWere)
{
    const std::tuple<const char *, QByteArray, QString> cases[]
        = { { "missing", {}, u"wurde nicht gefunden"_s },
              { "textFile", QByteArray("Dies ist keine Datenbank, sondern ein Brief.\r\n").repeated(20),
                  u"keine Archivdatenbank"_s },
              { "emptyFile", QByteArray(""), u"keine CD-Tabelle"_s } };
    for (const auto &[name, content, expected] : cases) {
        SCOPED_TRACE(name);
        const QString path = m_dir.filePath(QString::fromLatin1(name) + u".mdb"_s);
        if (!content.isNull())
            writeFile(path, content);
        const ArchiveStore store(path);
        const ArchiveError error = store.selectAll().error;
        EXPECT_TRUE(error.kind == Kind::FileError && error.message.contains(expected))
            << error.message.toStdString();
        EXPECT_EQ(store.addRow({ .number = 1 }).kind, Kind::FileError);
        EXPECT_EQ(fileBytes(path), content.isNull() ? QByteArray("<missing>") : content);
    }
}

// Query texts with LIKE follow the catalogue's pattern rule, case folded: "%" and "_" are plain
// characters, the pattern covers the whole text. A bad pattern is a German error, not a match,
// and the archive stays usable.
TEST_F(ArchiveStoreTest, LikeFollowsThePatternRuleCaseFolded)
{
    m_archive.cd(1, u"Office"_s, u"Sta1|Word|Excel 2000|End1"_s)
        .cd(2, u"Treiber"_s, u"Sta1|Treiber für Drucker|50% Rabatt|End1"_s)
        .cd(3, u"Ärger"_s, u"Sta1|ÄRGER mit WORD|End1"_s)
        .cd(12, u"Bilder"_s, u"Sta1|Urlaub 2003|a_b|End1"_s);
    const std::pair<QString, Numbers> cases[]
        = { { u"*WORD*"_s, { 1, 3 } }, { u"*ärger*"_s, { 3 } }, { u"Word"_s, {} }, { u"*5%Rabatt*"_s, {} },
              { u"*Word_*"_s, {} }, { u"*[ab*"_s, {} }, { u"*"_s, { 1, 2, 3, 12 } } };
    for (const auto &[pattern, expected] : cases) {
        const auto result = m_store.selectNumbers(
            u"SELECT cd_nummer FROM cds WHERE cd_inhalt LIKE ? ORDER BY cd_nummer"_s, { pattern });
        EXPECT_EQ(result.value, expected) << pattern.toStdString();
        EXPECT_EQ(result.error.message,
            pattern.contains(u'[') ? likeErrorMessage(LikePattern::Error::UnclosedBracket) : QString());
    }
}

} // namespace
