#include "transfer/OldDatabaseImport.h"

#include "QStringPrinting.h"
#include "TestPaths.h"

#include "app/DataPaths.h"
#include "archives/ArchiveCatalog.h"
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

// The old program kept its file in Daten/ beside LWS/; copied into our data folder, that LWS/
// is our own image folder (lws/ here, found in any case): each image is the file it would be
// copied to, and stays as it is.
TEST(OldDatabaseImport, TheOldLayoutInsideTheDataFolderKeepsItsImages)
{
    QTemporaryDir dir;
    const QString data = dir.filePath(u"data"_s);
    const QString ini = writeFile(data + u"/Daten/meine.ini"_s,
        "[Urlaub 2001]\r\nSeriennummer=1234\r\nFotos\r\n\r\n[Treiber]\r\nSeriennummer=77\r\n\r\n");
    writeFile(datapaths::imageFile(data, 1234), ">d:\r\n\r\n");
    writeFile(datapaths::imageFile(data, 77), ">e:\r\n\r\n");
    const olddatabase::ImportResult result = olddatabase::importIni(ini, data, u"meine.ini"_s);
    EXPECT_EQ(std::tuple(result.error, result.leftOut), std::tuple(QString(), QStringList()));
    EXPECT_EQ(rowsOf(datapaths::archiveFile(data, u"meine.ini"_s)),
        QStringList({ u"1|Urlaub 2001|1234|Sta1|Fotos||End1"_s, u"2|Treiber|77|Sta1||End1"_s }));
    EXPECT_EQ(
        std::tuple(fileBytes(datapaths::imageFile(data, 1234)), fileBytes(datapaths::imageFile(data, 77)),
            QDir(datapaths::imageFolder(data)).entryList(QDir::Files | QDir::Hidden)),
        std::tuple(QByteArray(">d:\r\n\r\n"), QByteArray(">e:\r\n\r\n"),
            QStringList({ u"1234.dat"_s, u"77.dat"_s })));
}

// An ini file's name becomes the archive's: one the archive list could not show is refused
// like a typed one, and no archive file is made.
TEST(OldDatabaseImport, NamesNoArchiveMayHaveAreRefused)
{
    QTemporaryDir dir;
    const QString data = dir.filePath(u"data"_s);
    const QString ini = writeFile(dir.filePath(u".versteckt.ini"_s), "[Eins]\r\nSeriennummer=no\r\n\r\n");
    const olddatabase::ImportResult result = olddatabase::importIni(ini, data, olddatabase::archiveNameFor(ini));
    EXPECT_EQ(result.error, checkNewArchiveName(u".versteckt.ini"_s).message);
    EXPECT_FALSE(result.error.isEmpty());
    EXPECT_EQ(QDir(datapaths::archiveFolder(data)).entryList(QDir::Files | QDir::Hidden), QStringList());
}

TEST(OldDatabaseImport, EdgeCasesOfTheOldFormat)
{
    struct Case
    {
        const char *what;
        QByteArray ini;
        QStringList rows;
        QStringList leftOut;
    };
    const QString longTitle = u"Urlaub in Italien, Frankreich und Spanien, Sommer 2001"_s;
    const Case cases[] = {
        { "empty file", "", {}, {} },
        { "no section heads", "Name=x\r\nnoch was\r\n", {}, {} },
        { "NO in capitals is no image", "[A]\r\nSeriennummer=NO\r\neins\r\n\r\n",
            { u"1|A|0|Sta1|eins||End1"_s }, {} },
        { "the prefix counts with case", "[A]\r\nseriennummer=123\r\neins\r\n\r\n",
            { u"1|A|0|Sta1|seriennummer=123|eins|End1"_s }, {} },
        { "a missing image file leaves the id out", "[A]\r\nSeriennummer=77\r\n\r\n",
            { u"1|A|0|Sta1||End1"_s }, {} },
        { "heads differing in case both get the first's lines",
            "[A]\r\nSeriennummer=no\r\neins\r\n\r\n[a]\r\nSeriennummer=no\r\nzwei\r\n\r\n",
            { u"1|A|0|Sta1|eins||End1"_s, u"2|a|0|Sta1|eins||End1"_s }, {} },
        { "an empty head leaves a gap", "[]\r\nx\r\n\r\n[B]\r\nSeriennummer=no\r\ny\r\n\r\n",
            { u"2|B|0|Sta1|y||End1"_s }, {} },
        { "a head without a blank line before it is a comment line",
            "[A]\r\nSeriennummer=no\r\neins\r\n[B]\r\nSeriennummer=no\r\n\r\n",
            { u"1|A|0|Sta1|eins|[B]|End1"_s, u"2|B|0|Sta1||End1"_s }, {} },
        { "a stop line right behind the head", "[A]\r\n\r\n[B]\r\nx",
            { u"1|A|0|Sta1|End1"_s, u"2|B|0|Sta1|End1"_s }, {} },
        { "the last line a head: that section alone is left out", "[A]\r\nSeriennummer=no\r\neins\r\n\r\n[B]",
            { u"1|A|0|Sta1|eins||End1"_s }, { u"B"_s } },
        { "a title over 50 characters comes over whole",
            "[" + longTitle.toLatin1() + "]\r\nSeriennummer=no\r\neins\r\n\r\n[B]\r\nSeriennummer=no\r\n\r\n",
            { u"1|"_s + longTitle + u"|0|Sta1|eins||End1"_s, u"2|B|0|Sta1||End1"_s }, {} },
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        QTemporaryDir dir;
        const QString data = dir.filePath(u"data"_s);
        const olddatabase::ImportResult result = olddatabase::importIni(
            writeFile(dir.filePath(u"Alt/Daten/alt.ini"_s), c.ini), data, u"alt.ini"_s);
        EXPECT_EQ(
            std::tuple(result.error, result.leftOut, rowsOf(datapaths::archiveFile(data, u"alt.ini"_s))),
            std::tuple(QString(), c.leftOut, c.rows));
    }
}

// Sections whose image is named by no number cannot be taken; every other section comes in,
// and the note names the first ten left out.
TEST(OldDatabaseImport, SectionsThatCannotBeTakenAreLeftOutAlone)
{
    QTemporaryDir dir;
    QByteArray ini = "[Erste]\r\nSeriennummer=no\r\n\r\n";
    QStringList leftOut;
    for (int i = 1; i <= 12; ++i) {
        const QByteArray id = "Nr" + QByteArray::number(i);
        writeFile(dir.filePath(u"Alt/LWS/"_s + QString::fromLatin1(id) + u".dat"_s), ">d:\r\n\r\n");
        ini += "[Kaputt " + QByteArray::number(i) + "]\r\nSeriennummer=" + id + "\r\n\r\n";
        leftOut << u"Kaputt %1"_s.arg(i);
    }
    writeFile(dir.filePath(u"Alt/LWS/5.dat"_s), ">e:\r\n\r\n");
    ini += "[Letzte]\r\nSeriennummer=5\r\n\r\n";
    const QString data = dir.filePath(u"data"_s);
    const olddatabase::ImportResult result
        = olddatabase::importIni(writeFile(dir.filePath(u"Alt/Daten/alt.ini"_s), ini), data, u"alt.ini"_s);
    EXPECT_EQ(std::tuple(result.error, result.cds, result.leftOut), std::tuple(QString(), 2, leftOut));
    EXPECT_EQ(rowsOf(datapaths::archiveFile(data, u"alt.ini"_s)),
        QStringList({ u"1|Erste|0|Sta1||End1"_s, u"14|Letzte|5|Sta1||End1"_s }));
    EXPECT_EQ(QDir(datapaths::imageFolder(data)).entryList(QDir::Files | QDir::Hidden),
        QStringList({ u"5.dat"_s }));
}

TEST(OldDatabaseImport, TheNoteNamesTenSectionsThenCountsTheRest)
{
    const auto titles = [](int count) {
        QStringList list;
        for (int i = 1; i <= count; ++i)
            list << u"CD %1"_s.arg(i);
        return list;
    };
    const QString start = u"Diese CDs der alten Datenbank konnten nicht übernommen werden: "_s;
    const QString ten = u"[CD 1], [CD 2], [CD 3], [CD 4], [CD 5], [CD 6], [CD 7], [CD 8], [CD 9], [CD 10]"_s;
    const std::tuple<const char *, QStringList, QString> cases[] = {
        { "none left out: no note", {}, {} },
        { "one", { u"Urlaub, Teil 2"_s }, start + u"[Urlaub, Teil 2]."_s },
        { "ten are all named", titles(10), start + ten + u"."_s },
        { "the eleventh is counted", titles(11), start + ten + u" und 1 weitere."_s },
        { "more are counted", titles(25), start + ten + u" und 15 weitere."_s },
    };
    for (const auto &[what, leftOut, note] : cases)
        EXPECT_EQ(olddatabase::leftOutMessage(leftOut), note) << what;
}

} // namespace
