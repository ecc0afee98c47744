#include "transfer/OldDatabaseImport.h"

#include "TestPaths.h"

#include "app/DataPaths.h"
#include "archives/ArchiveStore.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

// The rows of an archive as "number|title|id|comments".
QStringList rowsOf(const QString &mdbPath)
{
    QStringList rows;
    for (const CdRow &row : ArchiveStore(mdbPath).selectAll().value)
        rows << u"%1|%2|%3|%4"_s.arg(row.number).arg(row.name).arg(row.imageId).arg(row.comments);
    return rows;
}

// The example a tester writes by hand: two sections, an image beside the old file's folder.
TEST(OldDatabaseImport, TheExampleGivesItsTwoRows)
{
    QTemporaryDir dir;
    const QString ini = writeFile(dir.filePath(u"Alt/Daten/meine.ini"_s),
        "[Urlaub 2001]\r\nSeriennummer=1234\r\nFotos aus Italien\r\nTeil 2\r\n\r\n[Treiber]\r\nSeriennummer=no\r\n"
        "Nur Drucker\r\n\r\n");
    writeFile(dir.filePath(u"Alt/lws/1234.dat"_s), ">d:\r\n\r\n");
    const QString data = dir.filePath(u"data"_s);
    const olddatabase::ImportResult result = olddatabase::importIni(ini, data, u"meine.ini"_s);
    ASSERT_TRUE(result.ok()) << result.error.toStdString();
    EXPECT_EQ(rowsOf(datapaths::archiveFile(data, u"meine.ini"_s)),
        QStringList({ u"1|Urlaub 2001|1234|Sta1|Fotos aus Italien|Teil 2||End1"_s, u"2|Treiber|0|Sta1|Nur Drucker||End1"_s }));
    EXPECT_TRUE(QFileInfo::exists(datapaths::imageFile(data, 1234)));
}

TEST(OldDatabaseImport, EdgeCasesOfTheOldFormat)
{
    // What, the file, the rows of the archive, the error reported.
    const std::tuple<const char *, QByteArray, QStringList, QString> cases[] = {
        { "empty file", "", {}, {} },
        { "no section heads", "Name=x\r\nnoch was\r\n", {}, {} },
        { "NO in capitals is no image", "[A]\r\nSeriennummer=NO\r\neins\r\n\r\n", { u"1|A|0|Sta1|eins||End1"_s }, {} },
        { "the prefix counts with case", "[A]\r\nseriennummer=123\r\neins\r\n\r\n",
            { u"1|A|0|Sta1|seriennummer=123|eins|End1"_s }, {} },
        { "a missing image file leaves the id out", "[A]\r\nSeriennummer=77\r\n\r\n", { u"1|A|0|Sta1||End1"_s }, {} },
        { "heads differing in case both get the first's lines",
            "[A]\r\nSeriennummer=no\r\neins\r\n\r\n[a]\r\nSeriennummer=no\r\nzwei\r\n\r\n",
            { u"1|A|0|Sta1|eins||End1"_s, u"2|a|0|Sta1|eins||End1"_s }, {} },
        { "an empty head leaves a gap", "[]\r\nx\r\n\r\n[B]\r\nSeriennummer=no\r\ny\r\n\r\n", { u"2|B|0|Sta1|y||End1"_s }, {} },
        { "a head without a blank line before it is a comment line",
            "[A]\r\nSeriennummer=no\r\neins\r\n[B]\r\nSeriennummer=no\r\n\r\n",
            { u"1|A|0|Sta1|eins|[B]|End1"_s, u"2|B|0|Sta1||End1"_s }, {} },
        { "a stop line right behind the head", "[A]\r\n\r\n[B]\r\nx", { u"1|A|0|Sta1|End1"_s, u"2|B|0|Sta1|End1"_s }, {} },
        { "the last line a head: the sections before stay", "[A]\r\nSeriennummer=no\r\neins\r\n\r\n[B]",
            { u"1|A|0|Sta1|eins||End1"_s }, u"Fehler! Fehlernummer: 9 Description: Index außerhalb des gültigen Bereichs"_s },
    };
    for (const auto &[what, ini, rows, error] : cases) {
        SCOPED_TRACE(what);
        QTemporaryDir dir;
        const QString data = dir.filePath(u"data"_s);
        const olddatabase::ImportResult result
            = olddatabase::importIni(writeFile(dir.filePath(u"Alt/Daten/alt.ini"_s), ini), data, u"alt.ini"_s);
        EXPECT_EQ(std::tuple(result.error, rowsOf(datapaths::archiveFile(data, u"alt.ini"_s))), std::tuple(error, rows));
    }
}

} // namespace
