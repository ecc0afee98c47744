#include "images/ArchiveListing.h"

#include "ListingExpectations.h"
#include "TestPaths.h"
#include "ZipBytes.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

const std::string kDate = "03.02.2001";

// The rows as the image gets them: the listing's own rows and the empty row at its end.
std::vector<ArchiveEntry> withEndRow(std::vector<ArchiveEntry> rows)
{
    rows.emplace_back();
    return rows;
}

} // namespace

TEST(ZipLister, ListsEveryFixtureAsItsLocalHeadersSay)
{
    const std::pair<const char *, std::vector<ArchiveEntry>> cases[] = {
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
    for (const auto &[file, rows] : cases) {
        SCOPED_TRACE(file);
        const std::string path
            = QFile::encodeName(fixturePath(QStringLiteral("zip/") + QLatin1String(file))).toStdString();
        listZip(path); // a second listing of the same file starts afresh
        expectRows(listZip(path), withEndRow(rows));
    }
}

TEST(ZipLister, OddHeadersEndTheWalkWithoutLosingWhatCameBefore)
{
    const ZipBytes front = ZipBytes().entry("a.txt", "abc");
    const std::tuple<const char *, ZipBytes, std::vector<ArchiveEntry>> cases[] = {
        // A size of 2 GiB or more is negative as a signed number: the field stays empty, and
        // the jump over the data lands behind the end.
        { "huge_entry", ZipBytes(front).header("gross.iso", 0x80000000u),
            { { "a.txt", "3", kDate }, { "gross.iso", "", kDate } } },
        // A header that the file cuts off before its name is complete is no entry.
        { "name_cut_short", ZipBytes(front).header("langer_name.txt", 5).cutLast(4),
            { { "a.txt", "3", kDate } } },
        { "header_cut_short", ZipBytes(front).header("b.txt", 5).cutLast(15), { { "a.txt", "3", kDate } } },
        { "garbage_behind", ZipBytes(front).raw("PK\x01\x02 central directory"),
            { { "a.txt", "3", kDate } } },
        // Day and month are not checked: a zero shows as "00".
        { "day_and_month_zero", ZipBytes().entry("a.txt", "abc", 0x0200),
            { { "a.txt", "3", "00.00.1981" } } },
    };
    QTemporaryDir dir;
    for (const auto &[name, zip, rows] : cases) {
        SCOPED_TRACE(name);
        expectRows(listZip(zip.writeTo(dir.filePath(QLatin1String(name)))), withEndRow(rows));
    }
}

TEST(ZipLister, StepsOverDataOfAnySize)
{
    // Sizes around the reader's block so that headers straddle blocks and jumps land in,
    // at and far behind the buffered part.
    const size_t sizes[] = { 1, 65400, 70000, 3, 4090, 200000, 65536, 40 };
    ZipBytes zip;
    std::vector<ArchiveEntry> rows;
    for (size_t i = 0; i < std::size(sizes); ++i) {
        const std::string name = "teil" + std::to_string(i) + ".bin";
        zip.entry(name, std::string(sizes[i], static_cast<char>('a' + i)));
        rows.push_back({ name, std::to_string(sizes[i]), kDate });
    }
    QTemporaryDir dir;
    expectRows(listZip(zip.writeTo(dir.filePath(QStringLiteral("gemischt.zip")))), withEndRow(rows));
}

TEST(ZipLister, StopsWithAMessageOverTheLimitOrWithoutAFile)
{
    QTemporaryDir dir;
    // Folder entries hold no data and do not count towards the limit.
    const ArchiveListing full = listZip(ZipBytes::stored(kMaxZipEntries)
                                            .entry("ordner/", "")
                                            .writeTo(dir.filePath(QStringLiteral("voll.zip"))));
    EXPECT_TRUE(full.error.isEmpty());
    ASSERT_EQ(full.rows.size(), static_cast<size_t>(kMaxZipEntries) + 1);
    EXPECT_EQ(full.rows[kMaxZipEntries - 1].name, "f32766.txt");

    const QString over = dir.filePath(QStringLiteral("zuviel.zip"));
    const ArchiveListing listing = listZip(ZipBytes::stored(kMaxZipEntries + 1).writeTo(over));
    EXPECT_TRUE(listing.rows.empty());
    EXPECT_EQ(
        listing.error, QStringLiteral("Überlauf: Die ZIP-Datei „%1“ hat mehr als 32767 Einträge.").arg(over));

    const QString missing = dir.filePath(QStringLiteral("weg.zip"));
    EXPECT_EQ(listZip(QFile::encodeName(missing).toStdString()).error,
        QStringLiteral("Datei nicht gefunden: „%1“").arg(missing));
}
