#include "archives/ArchiveConnection.h"
#include "archives/ArchiveStore.h"
#include "archives/JetConversion.h"
#include "TestPaths.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <functional>

namespace {

using namespace Qt::StringLiterals;

QString jetFixture()
{
    return fixturePath(u"mdb/DateTestDatabase.mdb"_s);
}

TEST(JetTable, ReadsTheFixtureTableThroughTheConvertersReader)
{
    const JetTableRead read = readJetTable(jetFixture(), u"DateTest"_s);
    ASSERT_TRUE(read.ok()) << read.error.toStdString();
    EXPECT_EQ(read.table.columns,
        QStringList({ u"IDCol"_s, u"DateTimeCol"_s, u"DateCol"_s, u"TimeCol"_s, u"LongTextCol"_s, u"ShortTextCol"_s }));
    ASSERT_EQ(read.table.rows.size(), 6u);
    struct Row
    {
        qint64 id;
        QString memo;
        QString text;
    };
    const Row expected[] = { { 1, u"Hello"_s, u"Hello"_s }, { 2, u"Year 9999"_s, u"Year 1999"_s },
        { 3, u"Pre-1900 years"_s, u"Pre-1900 years"_s }, { 4, u"Pre-1000 years"_s, u"Pre-1000 years"_s },
        { 5, u"Escaped new line \\r\\n in field"_s, u"Escaped new line \\r\\n in field"_s },
        { 6, u"New line\r\nin field"_s, u"No new line"_s } };
    for (size_t i = 0; i < 6; ++i) {
        SCOPED_TRACE(i);
        const std::vector<QVariant> &row = read.table.rows[i];
        EXPECT_EQ(row[0].typeId(), QMetaType::LongLong);
        EXPECT_EQ(row[0].toLongLong(), expected[i].id);
        EXPECT_EQ(row[4].toString(), expected[i].memo);
        EXPECT_EQ(row[5].toString(), expected[i].text);
    }
}

TEST(JetTable, OnlyJetHeadersCount)
{
    const QTemporaryDir temp;
    const QString sqlite = temp.filePath(u"ours.mdb"_s);
    ASSERT_TRUE(ArchiveStore::create(sqlite).ok());
    struct Case
    {
        const char *what;
        QString path;
        bool jet;
    };
    writeFile(temp.filePath(u"empty.mdb"_s), {});
    writeFile(temp.filePath(u"shifted.mdb"_s), "Standard Jet DB and more bytes");
    const Case cases[] = { { "Jet 4 file", jetFixture(), true }, { "our archive", sqlite, false },
        { "empty file", temp.filePath(u"empty.mdb"_s), false },
        { "signature at the wrong offset", temp.filePath(u"shifted.mdb"_s), false },
        { "missing file", temp.filePath(u"none.mdb"_s), false } };
    for (const Case &c : cases)
        EXPECT_EQ(isJetFile(c.path), c.jet) << c.what;
}

// Damage must never come out as a shorter table: the reader refuses, the converter leaves
// the file and its folder exactly as they were.
TEST(JetConversion, DamagedFilesAreRefusedAndLeftAlone)
{
    const QByteArray original = fileBytes(jetFixture());
    ASSERT_GT(original.size(), 8 * 4096);
    struct Case
    {
        const char *what;
        std::function<QByteArray()> damage;
    };
    const Case cases[] = {
        { "cut in half", [&] { return original.left(original.size() / 2); } },
        { "cut at a page edge", [&] { return original.left(8 * 4096); } },
        { "version byte flipped",
            [&] {
                QByteArray bytes = original;
                bytes[0x14] = static_cast<char>(bytes[0x14] ^ 0xff);
                return bytes;
            } },
        { "coded header bytes flipped",
            [&] {
                QByteArray bytes = original;
                for (int i = 0x18; i < 0x40; ++i)
                    bytes[i] = static_cast<char>(bytes[i] ^ 0x5a);
                return bytes;
            } },
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        const QTemporaryDir temp;
        const QString path = temp.filePath(u"Alt.mdb"_s);
        const QByteArray damaged = c.damage();
        writeFile(path, damaged);
        EXPECT_FALSE(readJetTable(path, u"DateTest"_s).ok());
        const JetConversion conversion = convertIfJet(path);
        EXPECT_FALSE(conversion.ok());
        EXPECT_TRUE(conversion.error.message.startsWith(
            u"Das Archiv Alt stammt aus der Windows-Version und konnte nicht umgewandelt werden."_s));
        EXPECT_EQ(fileBytes(path), damaged);
        EXPECT_EQ(QDir(temp.path()).entryList(QDir::Files | QDir::Hidden), QStringList({ u"Alt.mdb"_s }));
    }
}

TEST(JetConversion, AJetFileWithoutTheCdTableIsNamedAsSuch)
{
    const QTemporaryDir temp;
    const QString path = temp.filePath(u"Alt.mdb"_s);
    writeFile(path, fileBytes(jetFixture()));
    EXPECT_EQ(convertIfJet(path).error.message,
        u"Das Archiv Alt stammt aus der Windows-Version und konnte nicht umgewandelt werden. Die Jet-Datenbank \""_s
            + path + u"\" kann nicht gelesen werden: Sie enthält keine lesbare Tabelle \"cds\"."_s);
}

TEST(JetConversion, FieldsAreTakenByNameInAnyCaseAndNullsStay)
{
    JetTable table;
    table.columns = QStringList({ u"CD_COVER"_s, u"cd_Ausgeliehen"_s, u"cd_inhalt"_s, u"cd_seriennummer"_s,
        u"cd_name"_s, u"cd_nummer"_s, u"extra"_s });
    table.rows = { { u"3"_s, true, u"Fotos"_s, qint64(1234), u"Urlaub"_s, qint64(7), u"x"_s },
        { QVariant(), false, QVariant(), qint64(0), QVariant(), qint64(40000), QVariant() } };
    const auto rows = cdsRowsOf(table);
    ASSERT_TRUE(rows.ok());
    ASSERT_EQ(rows.value.size(), 2u);
    EXPECT_EQ(rows.value[0], QVariantList({ qint64(7), u"Urlaub"_s, qint64(1234), u"Fotos"_s, true, u"3"_s }));
    EXPECT_EQ(rows.value[1], QVariantList({ qint64(40000), QVariant(), qint64(0), QVariant(), false, QVariant() }));

    table.columns[0] = u"cd_bild"_s;
    EXPECT_EQ(cdsRowsOf(table).error.message, u"Der Tabelle cds fehlt das Feld cd_cover."_s);
}

TEST(JetConversion, ReplacesTheFileOnceAndKeepsTheOriginal)
{
    const QTemporaryDir temp;
    const QString path = temp.filePath(u"Alt.mdb"_s);
    const QByteArray original = fileBytes(jetFixture());
    writeFile(path, original);
    const std::vector<QVariantList> rows = { { qint64(1), u"Übersicht \"A\" & B"_s, qint64(99), u"Text"_s, true, u"1"_s },
        { qint64(2), QVariant(), qint64(0), QVariant(), false, QVariant() } };

    const JetConversion conversion = replaceByArchive(path, rows);
    ASSERT_TRUE(conversion.ok()) << conversion.error.message.toStdString();
    EXPECT_EQ(conversion.cdCount, 2);
    EXPECT_EQ(conversion.notice,
        u"Das Archiv Alt stammt aus der Windows-Version und wurde umgewandelt. Die Originaldatei liegt unter "
        u"Alt.mdb.jet."_s);
    EXPECT_EQ(fileBytes(path + u".jet"_s), original);
    EXPECT_EQ(QDir(temp.path()).entryList(QDir::Files | QDir::Hidden),
        QStringList({ u"Alt.mdb"_s, u"Alt.mdb.jet"_s }));

    const auto stored = ArchiveStore(path).selectAll();
    ASSERT_TRUE(stored.ok());
    ASSERT_EQ(stored.value.size(), 2u);
    EXPECT_EQ(stored.value[0], (CdRow { 1, u"Übersicht \"A\" & B"_s, 99, u"Text"_s, true, u"1"_s }));
    int nulls = 0;
    ArchiveConnection(path, ArchiveConnection::Mode::Existing)
        .run(u"SELECT cd_name IS NULL, cd_inhalt IS NULL, cd_cover IS NULL FROM cds WHERE cd_nummer=2"_s, {},
            [&](sqlite3_stmt *row) {
                for (int c = 0; c < 3; ++c)
                    nulls += sqlite3_column_int(row, c);
            });
    EXPECT_EQ(nulls, 3);

    const JetConversion again = convertIfJet(path);
    EXPECT_TRUE(again.ok());
    EXPECT_FALSE(again.converted);
}

TEST(JetConversion, AnOriginalAlreadyKeptBlocksASecondConversion)
{
    const QTemporaryDir temp;
    const QString path = temp.filePath(u"Alt.mdb"_s);
    writeFile(path, fileBytes(jetFixture()));
    writeFile(path + u".jet"_s, "older original");
    const JetConversion conversion = convertIfJet(path);
    EXPECT_EQ(conversion.error.message,
        u"Das Archiv Alt stammt aus der Windows-Version und konnte nicht umgewandelt werden. Die Datei Alt.mdb.jet "
        u"ist bereits vorhanden; bitte benennen Sie sie um."_s);
    EXPECT_EQ(fileBytes(path + u".jet"_s), QByteArray("older original"));
    EXPECT_TRUE(isJetFile(path));
}

} // namespace
