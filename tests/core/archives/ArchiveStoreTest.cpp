#include "archives/ArchiveStore.h"

#include "ArchiveBuilder.h"
#include "QStringPrinting.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {

using Kind = ArchiveError::Kind;

std::vector<int32_t> numbersOf(const std::vector<CdRow> &rows)
{
    std::vector<int32_t> numbers;
    for (const CdRow &row : rows)
        numbers.push_back(row.number);
    return numbers;
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class ArchiveStoreTest : public ::testing::Test
{
protected:
    QString data() const { return m_dir.path(); }
    QString file(const QString &name) const { return m_dir.filePath(name); }

    QTemporaryDir m_dir;
};

TEST_F(ArchiveStoreTest, NewArchiveHasNoRowsAndTheSixFieldsInOrder)
{
    ArchiveBuilder archive(data(), QStringLiteral("Neu"));
    const auto rows = archive.store().selectAll();
    ASSERT_TRUE(rows.ok());
    EXPECT_TRUE(rows.value.empty());

    sqlite3 *db = nullptr;
    ASSERT_EQ(
        sqlite3_open_v2(archive.path().toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
    sqlite3_stmt *statement = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(db, "Select * FROM cds", -1, &statement, nullptr), SQLITE_OK);
    std::vector<std::string> names;
    for (int c = 0; c < sqlite3_column_count(statement); ++c)
        names.emplace_back(sqlite3_column_name(statement, c));
    sqlite3_finalize(statement);
    sqlite3_close(db);
    EXPECT_EQ(names,
        (std::vector<std::string> {
            "cd_nummer", "cd_name", "cd_seriennummer", "cd_inhalt", "cd_ausgeliehen", "cd_cover" }));
}

TEST_F(ArchiveStoreTest, CreateRefusesAnExistingFileAndLeavesItAlone)
{
    ArchiveBuilder archive(data(), QStringLiteral("Da"));
    archive.cd(1, QStringLiteral("Eins"));
    const QByteArray before = bytesOf(archive.path());
    const ArchiveError error = ArchiveStore::create(archive.path());
    EXPECT_EQ(error.kind, Kind::FileError);
    EXPECT_TRUE(error.message.contains(QStringLiteral("existiert bereits")));
    EXPECT_EQ(bytesOf(archive.path()), before);
}

TEST_F(ArchiveStoreTest, CreateInAMissingFolderFailsWithoutLeavingAFile)
{
    const QString path = file(QStringLiteral("fehlt/x.mdb"));
    const ArchiveError error = ArchiveStore::create(path);
    EXPECT_EQ(error.kind, Kind::FileError);
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(ArchiveStoreTest, RowRoundTripsWithEveryField)
{
    ArchiveBuilder archive(data(), QStringLiteral("A"));
    const CdRow row { 42, QStringLiteral("Größe & Maß"), -1234567,
        QStringLiteral("Sta1|Word|Excel 2000|End1"), true, QStringLiteral("417") };
    archive.row(row);
    const auto read = archive.store().selectByNumber(42);
    ASSERT_TRUE(read.ok()) << read.error.message.toStdString();
    EXPECT_EQ(read.value, row);
}

TEST_F(ArchiveStoreTest, SelectAllDeliversKeyOrderWhateverTheInsertOrder)
{
    ArchiveBuilder archive(data(), QStringLiteral("A"));
    for (int32_t number : { 30, 5, 32767, -2, 100000, 7 })
        archive.cd(number, QStringLiteral("CD ") + QString::number(number));
    const auto rows = archive.store().selectAll();
    ASSERT_TRUE(rows.ok());
    EXPECT_EQ(numbersOf(rows.value), (std::vector<int32_t> { -2, 5, 7, 30, 32767, 100000 }));

    // A renumbered row moves to its new place.
    CdRow moved = archive.store().selectByNumber(30).value;
    moved.number = 1;
    ASSERT_TRUE(archive.store().updateRow(30, moved).ok());
    EXPECT_EQ(
        numbersOf(archive.store().selectAll().value), (std::vector<int32_t> { -2, 1, 5, 7, 32767, 100000 }));
}

TEST_F(ArchiveStoreTest, DuplicateNumberIsRefusedAndTheRowStays)
{
    ArchiveBuilder archive(data(), QStringLiteral("A"));
    archive.cd(3, QStringLiteral("Erste"));
    const ArchiveError error
        = archive.store().addRow(CdRow { .number = 3, .name = QStringLiteral("Zweite") });
    EXPECT_EQ(error.kind, Kind::DuplicateNumber);
    EXPECT_EQ(error.message,
        QStringLiteral("Bitte geben Sie eine andere CD Nummer ein, da jede Nummer nur einmal "
                       "vergeben werden darf!"));
    const auto rows = archive.store().selectAll();
    ASSERT_EQ(rows.value.size(), 1u);
    EXPECT_EQ(rows.value.front().name, QStringLiteral("Erste"));
}

TEST_F(ArchiveStoreTest, TitleLimitCountsCharacters)
{
    struct Case
    {
        const char *name;
        QString title;
        bool accepted;
    };
    const Case cases[] = {
        { "empty", QString(), true },
        { "fifty", QString(50, QLatin1Char('x')), true },
        { "fiftyUmlauts", QString(50, QChar(0xE4)), true },
        { "fiftyOne", QString(51, QLatin1Char('x')), false },
    };
    ArchiveBuilder archive(data(), QStringLiteral("A"));
    int32_t number = 1;
    for (const Case &c : cases) {
        const ArchiveError error = archive.store().addRow(CdRow { .number = number, .name = c.title });
        EXPECT_EQ(error.ok(), c.accepted) << c.name;
        if (!c.accepted) {
            EXPECT_EQ(error.kind, Kind::TitleTooLong) << c.name;
            EXPECT_FALSE(archive.store().selectByNumber(number).ok()) << c.name;
        }
        ++number;
    }
}

TEST_F(ArchiveStoreTest, UpdateReplacesTheRowOfTheOldNumber)
{
    ArchiveBuilder archive(data(), QStringLiteral("A"));
    archive.cd(1, QStringLiteral("Eins")).cd(2, QStringLiteral("Zwei"));
    const CdRow changed { 5, QStringLiteral("Fünf"), 77, QStringLiteral("Sta1||End1"), false,
        QStringLiteral("9") };
    ASSERT_TRUE(archive.store().updateRow(1, changed).ok());
    EXPECT_FALSE(archive.store().selectByNumber(1).ok());
    EXPECT_EQ(archive.store().selectByNumber(5).value, changed);

    const ArchiveError taken
        = archive.store().updateRow(5, CdRow { .number = 2, .name = QStringLiteral("Doppelt") });
    EXPECT_EQ(taken.kind, Kind::DuplicateNumber);
    EXPECT_EQ(archive.store().selectByNumber(5).value, changed);
    EXPECT_EQ(archive.store().selectByNumber(2).value.name, QStringLiteral("Zwei"));
}

TEST_F(ArchiveStoreTest, ChangesOfAMissingRowReportNotFound)
{
    ArchiveBuilder archive(data(), QStringLiteral("A"));
    archive.cd(1, QStringLiteral("Eins"));
    const ArchiveError errors[]
        = { archive.store().updateRow(9, CdRow { .number = 9 }), archive.store().deleteRow(9),
              archive.store().setImageId(9, 5), archive.store().selectByNumber(9).error };
    for (const ArchiveError &error : errors) {
        EXPECT_EQ(error.kind, Kind::NotFound);
        EXPECT_EQ(error.message, QStringLiteral("Die CD (Nummer: 9) wurde im Archiv nicht gefunden."));
    }
    EXPECT_EQ(archive.store().selectAll().value.size(), 1u);
}

TEST_F(ArchiveStoreTest, DeleteAndImageIdTouchOnlyTheirRow)
{
    ArchiveBuilder archive(data(), QStringLiteral("A"));
    archive.cd(1, QStringLiteral("Eins"), QStringLiteral("Sta1|End1"), 11)
        .cd(2, QStringLiteral("Zwei"))
        .cd(3, QStringLiteral("Drei"), QStringLiteral("Sta1|End1"), 33);
    ASSERT_TRUE(archive.store().setImageId(2, 22).ok());
    ASSERT_TRUE(archive.store().deleteRow(3).ok());
    const auto rows = archive.store().selectAll();
    ASSERT_EQ(numbersOf(rows.value), (std::vector<int32_t> { 1, 2 }));
    EXPECT_EQ(rows.value[0].imageId, 11);
    EXPECT_EQ(rows.value[1].imageId, 22);
    EXPECT_EQ(rows.value[1].name, QStringLiteral("Zwei"));
}

TEST_F(ArchiveStoreTest, SelectWithImageLeavesOutRowsWithoutOne)
{
    ArchiveBuilder archive(data(), QStringLiteral("A"));
    archive.cd(4, QStringLiteral("Mit"), QStringLiteral("Sta1|End1"), -5)
        .cd(1, QStringLiteral("Ohne"))
        .cd(2, QStringLiteral("Auch mit"), QStringLiteral("Sta1|End1"), 123);
    const auto rows = archive.store().selectWithImage();
    ASSERT_TRUE(rows.ok());
    EXPECT_EQ(numbersOf(rows.value), (std::vector<int32_t> { 2, 4 }));
}

TEST_F(ArchiveStoreTest, FilesThatAreNoArchiveGiveGermanErrors)
{
    struct Case
    {
        const char *name;
        QByteArray content; // empty: the file is not created
        const char *expected;
    };
    const Case cases[] = {
        { "missing", {}, "wurde nicht gefunden" },
        { "textFile", QByteArray("Dies ist keine Datenbank, sondern ein Brief.\r\n").repeated(20),
            "keine Archivdatenbank" },
        { "emptyFile", QByteArray(""), "keine CD-Tabelle" },
    };
    for (const Case &c : cases) {
        const QString path = file(QString::fromLatin1(c.name) + QStringLiteral(".mdb"));
        if (!c.content.isNull()) {
            QFile out(path);
            ASSERT_TRUE(out.open(QIODevice::WriteOnly));
            out.write(c.content);
        }
        const ArchiveStore store(path);
        const auto rows = store.selectAll();
        EXPECT_EQ(rows.error.kind, Kind::FileError) << c.name;
        EXPECT_TRUE(rows.error.message.contains(QString::fromUtf8(c.expected)))
            << rows.error.message.toStdString();
        EXPECT_EQ(store.addRow(CdRow { .number = 1 }).kind, Kind::FileError) << c.name;
        EXPECT_EQ(bytesOf(path), c.content) << c.name;
    }
}

TEST_F(ArchiveStoreTest, NothingStaysOpenBetweenOperations)
{
    // Another program may replace the file between two actions; the next one sees the new file.
    ArchiveBuilder first(data(), QStringLiteral("Eins"));
    ArchiveBuilder second(data(), QStringLiteral("Zwei"));
    first.cd(1, QStringLiteral("Alt"));
    second.cd(2, QStringLiteral("Neu"));
    ASSERT_EQ(numbersOf(first.store().selectAll().value), std::vector<int32_t> { 1 });
    ASSERT_TRUE(QFile::remove(first.path()));
    ASSERT_TRUE(QFile::copy(second.path(), first.path()));
    EXPECT_EQ(numbersOf(first.store().selectAll().value), std::vector<int32_t> { 2 });
}

} // namespace
