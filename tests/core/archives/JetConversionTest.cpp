#include "archives/JetConversion.h"
#include "TestPaths.h"
#include "archives/ArchiveConnection.h"
#include "archives/ArchiveStore.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <sys/resource.h>
#include <unistd.h>

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
        QStringList({ u"IDCol"_s, u"DateTimeCol"_s, u"DateCol"_s, u"TimeCol"_s, u"LongTextCol"_s,
            u"ShortTextCol"_s }));
    // IDCol, LongTextCol and ShortTextCol of each row.
    const std::tuple<qint64, QString, QString> expected[] = { { 1, u"Hello"_s, u"Hello"_s },
        { 2, u"Year 9999"_s, u"Year 1999"_s }, { 3, u"Pre-1900 years"_s, u"Pre-1900 years"_s },
        { 4, u"Pre-1000 years"_s, u"Pre-1000 years"_s },
        { 5, u"Escaped new line \\r\\n in field"_s, u"Escaped new line \\r\\n in field"_s },
        { 6, u"New line\r\nin field"_s, u"No new line"_s } };
    ASSERT_EQ(read.table.rows.size(), std::size(expected));
    for (size_t i = 0; i < std::size(expected); ++i) {
        const std::vector<QVariant> &row = read.table.rows[i];
        EXPECT_EQ(row[0].typeId(), QMetaType::LongLong) << i;
        EXPECT_EQ(std::tuple(row[0].toLongLong(), row[4].toString(), row[5].toString()), expected[i]) << i;
    }
}

TEST(JetTable, OnlyJetHeadersCount)
{
    const QTemporaryDir temp;
    const QString sqlite = temp.filePath(u"ours.mdb"_s);
    ASSERT_TRUE(ArchiveStore::create(sqlite).ok());
    // The signature at the wrong offset does not count; neither does a missing file.
    const std::pair<QString, bool> cases[]
        = { { jetFixture(), true }, { sqlite, false }, { writeFile(temp.filePath(u"empty.mdb"_s)), false },
              { writeFile(temp.filePath(u"shifted.mdb"_s), "Standard Jet DB and more bytes"), false },
              { temp.filePath(u"none.mdb"_s), false } };
    for (const auto &[path, jet] : cases)
        EXPECT_EQ(isJetFile(path), jet) << path.toStdString();
}

// Damage must never come out as a shorter table: the reader refuses, the converter leaves
// the file and its folder exactly as they were.
TEST(JetConversion, DamagedFilesAreRefusedAndLeftAlone)
{
    const QByteArray original = fileBytes(jetFixture());
    ASSERT_GT(original.size(), 8 * 4096);
    // what, bytes kept, first and last byte flipped, the mask they are flipped with
    const std::tuple<const char *, qsizetype, int, int, char> cases[] = {
        { "cut in half", original.size() / 2, 0, -1, 0 },
        { "cut at a page edge", 8 * 4096, 0, -1, 0 },
        { "version byte flipped", original.size(), 0x14, 0x14, char(0xff) },
        { "coded header bytes flipped", original.size(), 0x18, 0x3f, 0x5a },
    };
    for (const auto &[what, kept, first, last, mask] : cases) {
        SCOPED_TRACE(what);
        const QTemporaryDir temp;
        const QString path = temp.filePath(u"Alt.mdb"_s);
        QByteArray damaged = original.left(kept);
        for (int i = first; i <= last; ++i)
            damaged[i] = static_cast<char>(damaged[i] ^ mask);
        writeFile(path, damaged);
        EXPECT_FALSE(readJetTable(path, u"DateTest"_s).ok());
        const JetConversion conversion = convertIfJet(path);
        EXPECT_TRUE(!conversion.ok()
            && conversion.error.message.startsWith(
                u"Das Archiv Alt stammt aus der Windows-Version und konnte nicht umgewandelt werden."_s));
        EXPECT_EQ(std::pair(fileBytes(path), QDir(temp.path()).entryList(QDir::Files | QDir::Hidden)),
            std::pair(damaged, QStringList({ u"Alt.mdb"_s })));
    }
}

// What this process writes to its standard error while the object lives.
class StandardErrorCapture
{
public:
    StandardErrorCapture()
        : m_saved(::dup(STDERR_FILENO))
    {
        m_file.open();
        ::dup2(m_file.handle(), STDERR_FILENO);
    }
    ~StandardErrorCapture()
    {
        ::dup2(m_saved, STDERR_FILENO);
        ::close(m_saved);
    }
    // The first bytes written, enough to show what leaked.
    QByteArray writtenStart() const
    {
        QFile file(m_file.fileName());
        return file.open(QIODevice::ReadOnly) ? file.read(200) : QByteArray("<unreadable>");
    }

private:
    QTemporaryFile m_file;
    int m_saved;
};

// Files on which the Jet library loops while its memory grows, or floods standard error with
// warnings: each is refused within the reader's limits (10 s, 256 MB), left as it was, and
// nothing of the library's output reaches the program's standard error.
TEST(JetConversion, FilesThatHangTheReaderAreRefusedWithinItsLimits)
{
    const char *const samples[] = { "truncated-148628.mdb", "bitflip-2146.mdb", "bitflip-warnings.mdb" };
    for (const char *sample : samples) {
        SCOPED_TRACE(sample);
        const QTemporaryDir temp;
        const QString path = temp.filePath(u"Alt.mdb"_s);
        const QByteArray original = fileBytes(fixturePath(u"mdb/damaged/"_s + QString::fromLatin1(sample)));
        writeFile(path, original);
        StandardErrorCapture standardError;
        QElapsedTimer clock;
        clock.start();
        const JetConversion conversion = convertIfJet(path);
        // Only a safety net: the limit itself is the child's.
        EXPECT_LT(clock.elapsed(), 15000);
        EXPECT_EQ(standardError.writtenStart(), QByteArray());
        EXPECT_TRUE(!conversion.ok()
            && conversion.error.message.startsWith(
                u"Das Archiv Alt stammt aus der Windows-Version und konnte nicht umgewandelt werden. Die Jet-Datenbank"_s))
            << conversion.error.message.toStdString();
        EXPECT_EQ(std::pair(fileBytes(path), QDir(temp.path()).entryList(QDir::Files | QDir::Hidden)),
            std::pair(original, QStringList({ u"Alt.mdb"_s })));
    }
    rusage children {};
    ::getrusage(RUSAGE_CHILDREN, &children);
    EXPECT_LT(children.ru_maxrss, 400 * 1024); // kilobytes
}

// The fields of the table are taken by name in any case, nulls stay nulls; the file is replaced
// once and its original kept beside it, never overwritten.
TEST(JetConversion, FieldsByNameReplaceTheFileOnceAndKeepTheOriginal)
{
    JetTable table;
    table.columns = QStringList({ u"CD_COVER"_s, u"cd_Ausgeliehen"_s, u"cd_inhalt"_s, u"cd_seriennummer"_s,
        u"cd_name"_s, u"cd_nummer"_s, u"extra"_s });
    table.rows = { { u"3"_s, true, u"Fotos"_s, qint64(1234), u"Übersicht \"A\" & B"_s, qint64(7), u"x"_s },
        { QVariant(), false, QVariant(), qint64(0), QVariant(), qint64(40000), QVariant() } };
    const auto rows = cdsRowsOf(table);
    ASSERT_TRUE(rows.ok());
    const QTemporaryDir temp;
    const QString path = temp.filePath(u"Alt.mdb"_s);
    const QByteArray original = fileBytes(jetFixture());
    writeFile(path, original);
    const JetConversion conversion = replaceByArchive(path, rows.value);
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
    EXPECT_EQ(stored.value[0], (CdRow { 7, u"Übersicht \"A\" & B"_s, 1234, u"Fotos"_s, true, u"3"_s }));
    EXPECT_EQ(std::tuple(stored.value[1].number, stored.value[1].imageId, stored.value[1].lent),
        std::tuple(40000, 0, false));
    int nulls = 0;
    ArchiveConnection(path, ArchiveConnection::Mode::Existing)
        .run(
            u"SELECT (cd_name IS NULL) + (cd_inhalt IS NULL) + (cd_cover IS NULL) FROM cds WHERE cd_nummer=40000"_s,
            {}, [&](sqlite3_stmt *row) { nulls = sqlite3_column_int(row, 0); });
    EXPECT_EQ(nulls, 3);
    EXPECT_TRUE(convertIfJet(path).ok() && !convertIfJet(path).converted);
    // An original already kept blocks a second conversion.
    writeFile(path, original);
    writeFile(path + u".jet"_s, "older original");
    EXPECT_EQ(convertIfJet(path).error.message,
        u"Das Archiv Alt stammt aus der Windows-Version und konnte nicht umgewandelt werden. Die Datei "
        u"Alt.mdb.jet ist bereits vorhanden; bitte benennen Sie sie um."_s);
    EXPECT_EQ(std::pair(fileBytes(path + u".jet"_s), isJetFile(path)),
        std::pair(QByteArray("older original"), true));

    table.columns[0] = u"cd_bild"_s;
    EXPECT_EQ(cdsRowsOf(table).error.message, u"Der Tabelle cds fehlt das Feld cd_cover."_s);
}

} // namespace
