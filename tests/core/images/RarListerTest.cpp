#include "images/ArchiveListing.h"

#include "ListingExpectations.h"
#include "TestPaths.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>

// What is no readable RAR gives no rows.
TEST(RarLister, ListsEachKindOfFixtureAndNothingOfTheRest)
{
    const auto rarRows
        = [](const QString &path) { return rowsOf(listRar(QFile::encodeName(path).toStdString())); };
    const std::string first = "LibarchiveAddingTest2.html|20111|21.09.2012";
    const std::string second = "LibarchiveAddingTest.html|20111|01.01.2012";
    const std::string unixTest = "test.txt|20|26.06.2011";
    const auto bins = [](const char *date) {
        std::string rows = "test.bin|1200|" + std::string(date);
        for (int i = 1; i <= 6; ++i)
            rows += ";test" + std::to_string(i) + ".bin|4096|" + date;
        return rows;
    };
    std::map<std::string, std::string> cases = {
        // Links and folders have no dot behind the first separator and stay out.
        { "rar4_basic_unix.rar", unixTest + ";testdir/test.txt|20|26.06.2011" },
        { "rar4_basic_windows.rar",
            "testdir/test.txt|16|18.08.2011;test.txt|16|18.08.2011;testshortcut.lnk|441|18.08.2011" },
        // Characters outside code page 1252 become "?" ("\?" keeps "??/" from reading as a trigraph).
        { "rar4_unicode_names.rar",
            "??\?/??????\?/?????? ??????.txt|0|01.07.2011;"
            "??\?/????????\?long-filename-in-??.txt|5|20.03.2011;abcdefghijklmnopqrs???.txt|16|07.03.2012" },
        { "rar4_comment_block.rar", unixTest },
        // Encrypted data does not matter, only the headers are read.
        { "rar4_encrypted_data.rar", "foo.txt|16|17.09.2013;bar.txt|16|17.09.2013" },
        { "rar4_encrypted_headers.rar", "" },
        // The reader gives up at the first solid entry of a RAR 4 archive.
        { "rar4_solid_encrypted_data.rar", "a.txt|18|22.03.2024" },
        { "rar4_damaged_no_endarc.rar", unixTest },
        { "rar4_damaged_truncated_data.rar", "" },
        { "rar5_stored.rar", "helloworld.txt|29|26.09.2018" },
        { "rar5_win32_dir.rar", bins("02.10.2018") },
        // Read as RAR although its first member is a ZIP.
        { "rar5_folder_zip_inside.rar",
            "payload/inner.zip|165|21.08.2026;payload/real_after.txt|21|21.08.2026" },
        // A link has no size of its own.
        { "rar5_unicode_links.rar",
            "??.txt|13|20.09.2023;???? ????.txt|0|20.09.2023;???????? ????.txt|0|20.09.2023" },
        // The time of an encrypted entry stands behind its encryption record and is not read.
        { "rar5_encrypted_data.rar", "a.txt|18|22.03.2024;b.txt|18|;c.txt|18|22.03.2024;d.txt|18|" },
        { "rar5_encrypted_headers.rar", "" },
        { "rar5_solid.rar", bins("27.09.2018") },
        { "rar5_damaged_truncated_huff.rar", "" },
    };
    // Each volume lists the entries whose pieces it holds; both members of the RAR 5 set have no
    // dot behind their first separator, in its first, a middle and its last volume.
    for (int part = 1; part <= 6; ++part)
        cases["rar4_multivol_two_files.part" + std::to_string(part) + ".rar"] = part < 3 ? first
            : part == 3 ? first + ";" + second
                        : second;
    for (const char *part : { "01", "04", "08" })
        cases["rar5_multivol.part" + std::string(part) + ".rar"] = "";
    for (const auto &[file, rows] : cases)
        EXPECT_EQ(rarRows(fixturePath(QStringLiteral("rar/") + QString::fromStdString(file))), rows) << file;
    QTemporaryDir dir;
    writeFile(dir.filePath(QStringLiteral("text.rar")), "Dies ist kein RAR-Archiv.\r\n");
    writeFile(dir.filePath(QStringLiteral("nur_signatur.rar")), QByteArray("Rar!\x1A\x07\x01\x00", 8));
    for (const char *name : { "text.rar", "nur_signatur.rar", "fehlt.rar", "" }) // "": the folder itself
        EXPECT_EQ(rarRows(dir.filePath(QLatin1String(name))), "") << name;
}
