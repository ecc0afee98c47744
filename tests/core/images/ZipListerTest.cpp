#include "images/ArchiveListing.h"

#include "ListingExpectations.h"
#include "TestPaths.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

const std::string kDate = "03.02.2001";

std::string fixture(const char *name)
{
    return QFile::encodeName(fixturePath(QStringLiteral("zip/") + QString::fromUtf8(name))).toStdString();
}

// The rows as the image gets them: the listing's own rows and the empty row at its end.
std::vector<ArchiveEntry> withEndRow(std::vector<ArchiveEntry> rows)
{
    rows.emplace_back();
    return rows;
}

// A ZIP written byte by byte, for what the fixtures do not hold: local headers only, since
// the lister never looks further.
class ZipBytes
{
public:
    ZipBytes &entry(const std::string &name, const std::string &data, uint16_t dateWord = 0x2A43)
    {
        return header(name, static_cast<uint32_t>(data.size()), dateWord).raw(data);
    }
    ZipBytes &header(const std::string &name, uint32_t compressedSize, uint16_t dateWord = 0x2A43)
    {
        m_bytes += "PK\x03\x04";
        put16(20);
        put16(0);
        put16(0);
        put16(0);
        put16(dateWord);
        put32(0);
        put32(compressedSize);
        put32(compressedSize);
        put16(static_cast<uint16_t>(name.size()));
        put16(0);
        m_bytes += name;
        return *this;
    }
    ZipBytes &raw(const std::string &bytes)
    {
        m_bytes += bytes;
        return *this;
    }
    ZipBytes &cutLast(size_t count)
    {
        m_bytes.resize(m_bytes.size() - count);
        return *this;
    }
    std::string writeTo(const QTemporaryDir &dir, const char *fileName) const
    {
        const QString path = dir.filePath(QString::fromUtf8(fileName));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(m_bytes.data(), static_cast<qint64>(m_bytes.size()));
        return QFile::encodeName(path).toStdString();
    }

private:
    void put16(uint16_t value)
    {
        m_bytes.push_back(static_cast<char>(value & 0xFF));
        m_bytes.push_back(static_cast<char>(value >> 8));
    }
    void put32(uint32_t value)
    {
        put16(static_cast<uint16_t>(value & 0xFFFF));
        put16(static_cast<uint16_t>(value >> 16));
    }

    std::string m_bytes;
};

ZipBytes manyStoredEntries(int count)
{
    ZipBytes zip;
    for (int i = 0; i < count; ++i)
        zip.entry("f" + std::to_string(i) + ".txt", "x");
    return zip;
}

} // namespace

TEST(ZipLister, ListsEveryFixtureAsItsLocalHeadersSay)
{
    struct Case
    {
        const char *file;
        std::vector<ArchiveEntry> rows;
    };
    const std::vector<Case> cases = {
        { "two_files_and_folder.zip", { { "folder/a.txt", "7", kDate }, { "b.txt", "12", kDate } } },
        // The stored empty file drops out; the deflated one has two bytes of data.
        { "empty_file.zip",
            { { "before.txt", "8", kDate }, { "after.txt", "7", kDate },
                { "empty_deflated.txt", "2", kDate } } },
        // Sizes in a data descriptor: the walk cannot go on behind such an entry.
        { "data_descriptor_streamed.zip", {} },
        { "data_descriptor_middle.zip", { { "before.txt", "8", kDate } } },
        { "backslash_names.zip",
            { { "dir\\sub\\file.txt", "6", kDate }, { "dir\\other.txt", "7", kDate },
                { "plain.txt", "7", kDate } } },
        { "dos_date_zero.zip", { { "nodate.txt", "9", "" }, { "dated.txt", "7", kDate } } },
        { "date_2044.zip", { { "y2043.txt", "6", "31.12.2043" }, { "y2044.txt", "6", "" } } },
        { "no_entries.zip", {} },
        { "not_a_zip.zip", {} },
        { "zero_bytes.zip", {} },
        { "prefixed_stub.zip", {} },
        { "name_lone_cr.zip", { { "line1\rline2.txt", "4", kDate }, { "after.txt", "7", kDate } } },
        { "name_pipe.zip", { { "a|b.txt", "6", kDate }, { "after.txt", "7", kDate } } },
        // Names are the stored bytes: UTF-8 stays UTF-8, code page 1252 stays itself.
        { "name_utf8.zip", { { "M\xC3\xBCller_\xE2\x82\xAC.txt", "6", kDate } } },
        { "name_cp1252.zip", { { "M\xFCller_\x80.txt", "8", kDate } } },
        // The second header is whole, its data cut short: it counts, then the walk ends.
        { "truncated.zip", { { "first.txt", "12", kDate }, { "second.txt", "24", kDate } } },
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.file);
        expectRows(listZip(fixture(c.file)), withEndRow(c.rows));
    }
}

TEST(ZipLister, ListsTheSameFileAfreshEachTime)
{
    const std::string path = fixture("two_files_and_folder.zip");
    listZip(path);
    expectRows(listZip(path), withEndRow({ { "folder/a.txt", "7", kDate }, { "b.txt", "12", kDate } }));
}

TEST(ZipLister, HoldsUpToTheLimitOfStoredEntries)
{
    QTemporaryDir dir;
    // Folder entries hold no data and do not count towards the limit.
    ZipBytes zip = manyStoredEntries(kMaxZipEntries);
    zip.entry("ordner/", "");
    const ArchiveListing listing = listZip(zip.writeTo(dir, "voll.zip"));
    EXPECT_TRUE(listing.error.isEmpty());
    ASSERT_EQ(listing.rows.size(), static_cast<size_t>(kMaxZipEntries) + 1);
    EXPECT_EQ(listing.rows[kMaxZipEntries - 1].name, "f32766.txt");
    EXPECT_EQ(listing.rows.back().name, "");
}

TEST(ZipLister, OneEntryOverTheLimitStopsWithAMessage)
{
    QTemporaryDir dir;
    const ArchiveListing listing = listZip(manyStoredEntries(kMaxZipEntries + 1).writeTo(dir, "zuviel.zip"));
    EXPECT_TRUE(listing.rows.empty());
    EXPECT_TRUE(listing.error.contains(QStringLiteral("32767"))) << listing.error.toStdString();
    EXPECT_TRUE(listing.error.contains(QStringLiteral("zuviel.zip")));
}

TEST(ZipLister, AMissingFileStopsWithAMessage)
{
    QTemporaryDir dir;
    const ArchiveListing listing
        = listZip(QFile::encodeName(dir.filePath(QStringLiteral("weg.zip"))).toStdString());
    EXPECT_TRUE(listing.rows.empty());
    EXPECT_EQ(listing.error,
        QStringLiteral("Datei nicht gefunden: „%1“").arg(dir.filePath(QStringLiteral("weg.zip"))));
}

TEST(ZipLister, OddHeadersEndTheWalkWithoutLosingWhatCameBefore)
{
    struct Case
    {
        const char *name;
        ZipBytes zip;
        std::vector<ArchiveEntry> rows;
    };
    const std::vector<Case> cases = {
        // A size of 2 GiB or more is negative as a signed number: the field stays empty, and
        // the jump over the data lands behind the end.
        { "huge_entry", ZipBytes().entry("a.txt", "abc").header("gross.iso", 0x80000000u),
            { { "a.txt", "3", kDate }, { "gross.iso", "", kDate } } },
        // A header that the file cuts off before its name is complete is no entry.
        { "name_cut_short", ZipBytes().entry("a.txt", "abc").header("langer_name.txt", 5).cutLast(4),
            { { "a.txt", "3", kDate } } },
        { "header_cut_short", ZipBytes().entry("a.txt", "abc").header("b.txt", 5).cutLast(15),
            { { "a.txt", "3", kDate } } },
        { "garbage_behind", ZipBytes().entry("a.txt", "abc").raw("PK\x01\x02 central directory"),
            { { "a.txt", "3", kDate } } },
        // Day and month are not checked: a zero shows as "00".
        { "day_and_month_zero", ZipBytes().entry("a.txt", "abc", 0x0200),
            { { "a.txt", "3", "00.00.1981" } } },
    };
    QTemporaryDir dir;
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        expectRows(listZip(c.zip.writeTo(dir, c.name)), withEndRow(c.rows));
    }
}

TEST(ZipLister, StepsOverDataOfAnySize)
{
    // Sizes around the reader's block so that headers straddle blocks and jumps land in,
    // at and far behind the buffered part.
    const std::vector<size_t> sizes = { 1, 65400, 70000, 3, 4090, 200000, 65536, 40 };
    ZipBytes zip;
    std::vector<ArchiveEntry> rows;
    for (size_t i = 0; i < sizes.size(); ++i) {
        const std::string name = "teil" + std::to_string(i) + ".bin";
        zip.entry(name, std::string(sizes[i], static_cast<char>('a' + i)));
        rows.push_back({ name, std::to_string(sizes[i]), kDate });
    }
    QTemporaryDir dir;
    expectRows(listZip(zip.writeTo(dir, "gemischt.zip")), withEndRow(rows));
}
