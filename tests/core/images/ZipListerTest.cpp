#include "images/ArchiveListing.h"
#include "images/DosDate.h"

#include "ListingExpectations.h"
#include "TestPaths.h"
#include "ZipBytes.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

// Rows end in the empty row "||" that closes every archive in the image; 03.02.2001 is the
// date of every entry but where a row says otherwise.
TEST(ZipLister, ListsEveryFixtureAsItsLocalHeadersSay)
{
    const std::pair<const char *, std::string> cases[] = {
        { "two_files_and_folder.zip", "folder/a.txt|7|03.02.2001;b.txt|12|03.02.2001" },
        // The stored empty file drops out; the deflated one has two bytes of data.
        { "empty_file.zip",
            "before.txt|8|03.02.2001;after.txt|7|03.02.2001;empty_deflated.txt|2|03.02.2001" },
        // Sizes in a data descriptor: the walk cannot go on behind such an entry.
        { "data_descriptor_middle.zip", "before.txt|8|03.02.2001" },
        { "backslash_names.zip",
            "dir\\sub\\file.txt|6|03.02.2001;dir\\other.txt|7|03.02.2001;plain.txt|7|03.02.2001" },
        { "dos_date_zero.zip", "nodate.txt|9|;dated.txt|7|03.02.2001" },
        { "zero_bytes.zip", "" },
        { "prefixed_stub.zip", "" },
        { "name_lone_cr.zip", "line1\rline2.txt|4|03.02.2001;after.txt|7|03.02.2001" },
        { "name_pipe.zip", "a|b.txt|6|03.02.2001;after.txt|7|03.02.2001" },
        // Names are the stored bytes, whatever their code page.
        { "name_cp1252.zip", "M\xFCller_\x80.txt|8|03.02.2001" },
        // The second header is whole, its data cut short: it counts, then the walk ends.
        { "truncated.zip", "first.txt|12|03.02.2001;second.txt|24|03.02.2001" },
    };
    for (const auto &[file, rows] : cases) {
        const std::string path
            = QFile::encodeName(fixturePath(QStringLiteral("zip/") + QLatin1String(file))).toStdString();
        listZip(path); // a second listing of the same file starts afresh
        EXPECT_EQ(rowsOf(listZip(path)), rows + (rows.empty() ? "||" : ";||")) << file;
    }
}

TEST(ZipLister, BlockEdgesCutHeadersLimitAndMissingFile)
{
    QTemporaryDir dir;
    // A jump far behind the buffered block, a header straddling the short block read after it,
    // and a header cut off before its name is complete, which is no entry.
    const std::string edges = zipEntry("a", std::string(70000, 'x')) + zipEntry("b", std::string(4055, 'x'))
        + zipEntry("c", "x") + zipEntry("langer_name.txt", "").substr(0, 40);
    EXPECT_EQ(rowsOf(listZip(writeZip(dir.filePath(QStringLiteral("edges.zip")), edges))),
        "a|70000|03.02.2001;b|4055|03.02.2001;c|1|03.02.2001;||");
    // Folder entries hold no data and do not count towards the limit.
    const ArchiveListing full = listZip(writeZip(
        dir.filePath(QStringLiteral("voll.zip")), zipEntries(kMaxZipEntries) + zipEntry("ordner/", "")));
    EXPECT_EQ(std::pair(full.error, full.rows.size()), std::pair(QString(), size_t(kMaxZipEntries) + 1));
    const QString over = dir.filePath(QStringLiteral("zuviel.zip"));
    const ArchiveListing listing = listZip(writeZip(over, zipEntries(kMaxZipEntries + 1)));
    EXPECT_EQ(std::pair(listing.rows.size(), listing.error),
        std::pair(size_t(0),
            QStringLiteral("Überlauf: Die ZIP-Datei „%1“ hat mehr als 32767 Einträge.").arg(over)));
    const QString missing = dir.filePath(QStringLiteral("weg.zip"));
    EXPECT_EQ(listZip(QFile::encodeName(missing).toStdString()).error,
        QStringLiteral("Datei nicht gefunden: „%1“").arg(missing));
}

// Names marked as UTF-8 (flag bit 11, or a Unicode path extra field, whose name then counts)
// reach the image in code page 1252 like file names; other names stay the packer's bytes.
TEST(ZipLister, Utf8NamesAreConvertedOthersStayBytes)
{
    const std::string umlauts = "Gr\xC3\xBC\xC3\x9F"
                                "e.txt"; // "Grüße.txt" in UTF-8
    const std::string cp1252 = "Gr\xFC\xDF"
                               "e.txt";
    const auto unicodePath = [](const std::string &utf8) {
        const size_t size = utf8.size() + 5;
        return "\x75\x70" + std::string { char(size & 0xFF), char(size >> 8) } + "\x01" + "CRC!" + utf8;
    };
    const std::tuple<const char *, std::string, std::string> cases[] = {
        // why, entry, name listed
        { "flag bit 11", zipEntry(umlauts, "x", 0x0800), cp1252 },
        { "no flag: bytes as written", zipEntry(umlauts, "x"), umlauts },
        { "code page name without flag", zipEntry(cp1252, "x"), cp1252 },
        { "outside the code page", zipEntry("\xE6\x97\xA5.txt", "x", 0x0800), "?.txt" },
        { "Unicode path field wins",
            zipEntry("alt.txt", "x", 0, std::string("\x0a\x00\x00\x00", 4) + unicodePath(umlauts)), cp1252 },
        { "cut field is ignored", zipEntry("alt.txt", "x", 0, unicodePath(umlauts).substr(0, 9)), "alt.txt" },
    };
    QTemporaryDir dir;
    for (const auto &[why, entry, listed] : cases) {
        const ArchiveListing listing = listZip(writeZip(dir.filePath(QStringLiteral("u.zip")), entry));
        ASSERT_EQ(listing.rows.size(), 2u) << why;
        EXPECT_EQ(listing.rows[0].name, listed) << why;
    }
}

TEST(DosDate, WordHoldsOnlyTheYearsItCanCarryAndItsTextIsNotChecked)
{
    const std::tuple<int, int, int, uint16_t> words[]
        = { { 1979, 12, 31, 0 }, { 1980, 1, 1, 0x0021 }, { 2043, 12, 31, 0x7F9F }, { 2044, 1, 1, 0 } };
    for (const auto &[year, month, day, word] : words)
        EXPECT_EQ(dosDateWord(year, month, day), word) << year;
    // Month 15 and day 0 stand as they are; year 2044 and later has no text.
    const std::pair<uint16_t, const char *> texts[]
        = { { 0x2A43, "03.02.2001" }, { 0x0000, "" }, { 0x8021, "" }, { 0x01E0, "00.15.1980" } };
    for (const auto &[word, text] : texts)
        EXPECT_EQ(dosDateText(word), text) << word;
}
