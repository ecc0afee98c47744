#include "images/ImageIndex.h"
#include "images/ImageIndexCache.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace {

using Rows = std::vector<std::tuple<std::string, std::string, std::string>>;

// The complete image of a volume with one ZIP and one RAR, lines in CR LF.
const char *const exampleImage = ">d:\r\n"
                                 "d:\\liesmich.txt|1834|12.03.2003 09:41:07\r\n"
                                 ">d:\\Bilder\r\n"
                                 "d:\\Bilder\\haus.jpg|482113|28.07.2002 18:02:44\r\n"
                                 ">d:\\Bilder\\alt.zip\r\n"
                                 "d:\\Bilder\\alt.zip\\2001/haus.jpg|120455|04.11.2001\r\n"
                                 "d:\\Bilder\\alt.zip\\2001/garten.jpg|98012|04.11.2001\r\n"
                                 "d:\\Bilder\\alt.zip\\||\r\n"
                                 "d:\\Bilder\\garten.jpg|501772|28.07.2002 18:02:50\r\n"
                                 ">d:\\Setup\r\n"
                                 ">d:\\Setup\\daten.rar\r\n"
                                 "d:\\Setup\\daten.rar\\lib/core.dll|804864|19.01.2003\r\n"
                                 "d:\\Setup\\daten.rar\\liesmich.txt|2210|19.01.2003\r\n"
                                 "d:\\Setup\\start.exe|65536|19.01.2003 00:12:31\r\n"
                                 "\r\n";

class ImageIndexTest : public ::testing::Test
{
protected:
    QString write(const std::string &bytes, const QString &name = QStringLiteral("1.dat"))
    {
        const QString path = m_dir.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
        return path;
    }

    std::shared_ptr<const ImageIndex> load(const std::string &bytes)
    {
        return ImageIndex::load(write(bytes));
    }

    static std::vector<std::string> keys(const ImageIndex &image)
    {
        std::vector<std::string> out;
        for (const ImageIndex::Folder &folder : image.folders())
            out.emplace_back(folder.key);
        return out;
    }

    static Rows rows(const ImageIndex::Listing &listing)
    {
        Rows out;
        for (const ImageIndex::Row &row : listing.rows)
            out.emplace_back(row.name, row.size, row.date);
        return out;
    }

    static std::vector<std::string> iconTypesOfRows(const ImageIndex::Listing &listing)
    {
        std::vector<std::string> out;
        for (const ImageIndex::Row &row : listing.rows)
            out.emplace_back(listing.iconTypes.at(static_cast<size_t>(row.icon)));
        return out;
    }

    QTemporaryDir m_dir;
};

} // namespace

TEST_F(ImageIndexTest, TreeHoldsEveryFolderUnderItsParent)
{
    const auto image = load(exampleImage);
    ASSERT_TRUE(image->isLoaded());
    const std::vector<std::string> expectedKeys
        = { "d:", "d:\\Bilder", "d:\\Bilder\\alt.zip", "d:\\Setup", "d:\\Setup\\daten.rar" };
    EXPECT_EQ(keys(*image), expectedKeys);
    const auto &folders = image->folders();
    EXPECT_EQ(folders[0].text, "d:");
    EXPECT_EQ(folders[0].parent, -1);
    EXPECT_EQ(folders[1].text, "Bilder");
    EXPECT_EQ(folders[1].parent, 0);
    EXPECT_EQ(folders[2].text, "alt.zip");
    EXPECT_EQ(folders[2].parent, 1);
    EXPECT_EQ(folders[4].text, "daten.rar");
    EXPECT_EQ(folders[4].parent, 3);
}

TEST_F(ImageIndexTest, CountsFolderAndFileLinesButNotEmptyOnes)
{
    const auto image = load(exampleImage);
    EXPECT_EQ(image->folderLineCount(), 5);
    // The ZIP's closing row "||" counts as a file.
    EXPECT_EQ(image->fileLineCount(), 9);

    const auto empty = load(">e:\r\n\r\n");
    EXPECT_EQ(empty->folderLineCount(), 1);
    EXPECT_EQ(empty->fileLineCount(), 0);
    EXPECT_EQ(keys(*empty), std::vector<std::string> { "e:" });
}

TEST_F(ImageIndexTest, ListsTheFilesOfExactlyOneFolderInFileOrder)
{
    const auto image = load(exampleImage);
    const auto none = ImageIndex::Icons::None;
    EXPECT_EQ(
        rows(image->listFolder("d:", none)), (Rows { { "liesmich.txt", "1834", "12.03.2003 09:41:07" } }));
    // The files of Bilder stand before and after its subfolder's lines.
    EXPECT_EQ(rows(image->listFolder("d:\\Bilder", none)),
        (Rows { { "haus.jpg", "482113", "28.07.2002 18:02:44" },
            { "garten.jpg", "501772", "28.07.2002 18:02:50" } }));
    // Entries keep their inner names with "/", and the listing's closing row is a nameless row.
    EXPECT_EQ(rows(image->listFolder("d:\\Bilder\\alt.zip", none)),
        (Rows { { "2001/haus.jpg", "120455", "04.11.2001" }, { "2001/garten.jpg", "98012", "04.11.2001" },
            { "", "", "" } }));
    EXPECT_TRUE(image->listFolder("d:\\Leer", none).rows.empty());
    // The root node's text with ":" behind it matches no line.
    EXPECT_TRUE(image->listFolder("Meine CD (d:):", none).rows.empty());
    // Comparison is exact.
    EXPECT_TRUE(image->listFolder("D:\\Bilder", none).rows.empty());
}

TEST_F(ImageIndexTest, TreeStopsAtTheFirstLineItCannotTake)
{
    struct Case
    {
        const char *name;
        std::string image;
        std::vector<std::string> keys;
    };
    const std::vector<Case> cases = {
        { "folder under an unknown parent", ">d:\r\n>d:\\a\r\n>d:\\x\\y\r\n>d:\\b\r\n", { "d:", "d:\\a" } },
        { "folder key used twice", ">d:\r\n>d:\\a\r\n>d:\\a\r\n>d:\\b\r\n", { "d:", "d:\\a" } },
        { "root file line without a bar", ">d:\r\n>d:\\a\r\nd:\\kaputt\r\n>d:\\b\r\n", { "d:", "d:\\a" } },
        { "nameless folder line", ">d:\r\n>\r\n>d:\\b\r\n", { "d:" } },
        { "file line without a bar below the root does not stop it",
            ">d:\r\n>d:\\a\r\nd:\\a\\kaputt\r\n>d:\\b\r\n", { "d:", "d:\\a", "d:\\b" } },
        { "lines without a backslash are skipped", ">d:\r\nirgendwas\r\n>d:\\b\r\n", { "d:", "d:\\b" } },
        { "a second root stands beside the first", ">d:\r\n>e:\r\n>e:\\x\r\n", { "d:", "e:", "e:\\x" } },
    };
    for (const Case &c : cases) {
        const auto image = load(c.image);
        EXPECT_EQ(keys(*image), c.keys) << c.name;
    }
}

TEST_F(ImageIndexTest, LinesAfterTheTreeStoppedAreStillCountedAndListed)
{
    const auto image = load(">d:\r\nd:\\kaputt\r\n>d:\\b\r\nd:\\b\\x.txt|1|01.01.2003\r\n");
    EXPECT_EQ(keys(*image), std::vector<std::string> { "d:" });
    EXPECT_EQ(image->folderLineCount(), 2);
    EXPECT_EQ(image->fileLineCount(), 2);
    EXPECT_EQ(
        rows(image->listFolder("d:\\b", ImageIndex::Icons::None)), (Rows { { "x.txt", "1", "01.01.2003" } }));
}

TEST_F(ImageIndexTest, ListingStepsOverALineWithoutBar)
{
    const auto image = load(">d:\r\n>d:\\a\r\nd:\\a\\eins|1|x\r\nd:\\a\\kaputt\r\nd:\\a\\zwei|2|y\r\n");
    EXPECT_EQ(rows(image->listFolder("d:\\a", ImageIndex::Icons::None)),
        (Rows { { "eins", "1", "x" }, { "zwei", "2", "y" } }));
}

TEST_F(ImageIndexTest, ADuplicateNameHandsItsSizeAndDateToTheRowBefore)
{
    const auto image = load(">d:\r\n>d:\\z.zip\r\n"
                            "d:\\z.zip\\a.txt|1|01.01.2001\r\n"
                            "d:\\z.zip\\b.txt|2|02.02.2002\r\n"
                            "d:\\z.zip\\a.txt|3|03.03.2003\r\n"
                            "d:\\z.zip\\||\r\n"
                            "d:\\z.zip\\||\r\n");
    EXPECT_EQ(rows(image->listFolder("d:\\z.zip", ImageIndex::Icons::None)),
        (Rows { { "a.txt", "1", "01.01.2001" }, { "b.txt", "3", "03.03.2003" }, { "", "", "" },
            { "", "", "" } }));
}

TEST_F(ImageIndexTest, IconTableUsesTheDigitRuleWhileRowsLookUpThePlainType)
{
    const auto image = load(">d:\r\n"
                            "d:\\lied.mp3|1|x\r\n"
                            "d:\\a.txt|1|x\r\n"
                            "d:\\b.TXT|1|x\r\n"
                            "d:\\lied2.mp3|1|x\r\n"
                            "d:\\ohnepunkt|1|x\r\n"
                            "d:\\c.txt|1|x\r\n");
    const auto listing = image->listFolder("d:", ImageIndex::Icons::FileSpecific);
    const std::vector<std::string_view> types = {
        "dat",
        "txt",
        "TXT",
        "",
    };
    EXPECT_EQ(listing.iconTypes, types);
    // lied.mp3 is entered as "dat" but looked up as "mp3": the first row gets the first
    // icon, a later one the icon of the row before it.
    const std::vector<std::string> expected = { "dat", "txt", "TXT", "TXT", "dat", "txt" };
    EXPECT_EQ(iconTypesOfRows(listing), expected);
}

TEST_F(ImageIndexTest, TypeOfAFileWithoutDotInAFolderWithOneHoldsABackslash)
{
    const auto image = load(">d:\r\n>d:\\v1.0\r\nd:\\v1.0\\README|1|x\r\nd:\\v1.0\\x.zip\\||\r\n");
    const auto listing = image->listFolder("d:\\v1.0", ImageIndex::Icons::FileSpecific);
    const std::vector<std::string_view> types = { "0\\README", "" };
    EXPECT_EQ(listing.iconTypes, types);
    EXPECT_EQ(listing.rows.at(0).icon, 0);
}

TEST_F(ImageIndexTest, WithoutIconsEveryRowHasTheOneStandardPicture)
{
    const auto image = load(exampleImage);
    const auto listing = image->listFolder("d:\\Setup\\daten.rar", ImageIndex::Icons::None);
    EXPECT_EQ(listing.iconTypes, std::vector<std::string_view> { "dat" });
    ASSERT_EQ(listing.rows.size(), 2u);
    for (const auto &row : listing.rows)
        EXPECT_EQ(row.icon, 0);
}

TEST_F(ImageIndexTest, LinesEndAtCrLfOrALoneCrButNotAtALoneLf)
{
    const auto image = load(">d:\rd:\\a.txt|1|x\r\nd:\\b\nc.txt|2|y\r\nd:\\last.txt|3|z");
    EXPECT_EQ(rows(image->listFolder("d:", ImageIndex::Icons::None)),
        (Rows { { "a.txt", "1", "x" }, { "b\nc.txt", "2", "y" }, { "last.txt", "3", "z" } }));
}

TEST_F(ImageIndexTest, MissingFileGivesAnEmptyIndex)
{
    const auto image = ImageIndex::load(m_dir.filePath(QStringLiteral("fehlt.dat")));
    EXPECT_FALSE(image->isLoaded());
    EXPECT_TRUE(image->folders().empty());
    EXPECT_EQ(image->fileLineCount(), 0);
    EXPECT_TRUE(image->listFolder("d:", ImageIndex::Icons::FileSpecific).rows.empty());
}

TEST_F(ImageIndexTest, CacheReloadsWhenTheFileChangesOrAppears)
{
    ImageIndexCache cache;
    const QString path = write(">d:\r\nd:\\a.txt|1|x\r\n");
    const auto first = cache.get(path);
    EXPECT_EQ(cache.get(path), first) << "an unchanged file is not read again";

    write(">d:\r\nd:\\a.txt|1|x\r\nd:\\b.txt|2|y\r\n");
    const auto second = cache.get(path);
    EXPECT_NE(second, first);
    EXPECT_EQ(second->fileLineCount(), 2);

    // Same size, later time.
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    write(">d:\r\nd:\\a.txt|1|x\r\nd:\\c.txt|2|y\r\n");
    EXPECT_EQ(rows(cache.get(path)->listFolder("d:", ImageIndex::Icons::None)).back(),
        std::make_tuple(std::string("c.txt"), std::string("2"), std::string("y")));

    const QString later = m_dir.filePath(QStringLiteral("2.dat"));
    EXPECT_FALSE(cache.get(later)->isLoaded());
    write(">d:\r\n", QStringLiteral("2.dat"));
    EXPECT_TRUE(cache.get(later)->isLoaded());
}

TEST_F(ImageIndexTest, LargeImageReadInBlocksLosesNoLineAtTheBlockEdges)
{
    // The file is read in blocks of 4 MiB while it is indexed; line ends fall on the edges:
    // one CR as the last byte of the first block with its LF in the next, and one lone CR
    // as the last byte of the second block.
    const size_t blockSize = size_t(4) << 20;
    std::string image = ">d:\r\n>d:\\a\r\n";
    std::vector<std::string> names;
    const auto add = [&](std::string name, const char *end) {
        image += "d:\\a\\" + name + "|1|x" + end;
        names.push_back(std::move(name));
    };
    const auto fillTo = [&](size_t crAt, const char *end) {
        while (image.size() + 40 < crAt)
            add("datei" + std::to_string(names.size()), "\r\n");
        // The last line before the edge is padded so that its CR is the block's last byte.
        const size_t fixed = std::string("d:\\a\\|1|x").size();
        add(std::string(crAt - image.size() - fixed, 'p'), end);
    };
    fillTo(blockSize - 1, "\r\n");
    ASSERT_EQ(image[blockSize - 1], '\r');
    ASSERT_EQ(image[blockSize], '\n');
    fillTo(2 * blockSize - 1, "\r");
    ASSERT_EQ(image[2 * blockSize - 1], '\r');
    for (int i = 0; i < 1000; ++i)
        add("rest" + std::to_string(i), "\r\n");

    const auto loaded = load(image);
    ASSERT_TRUE(loaded->isLoaded());
    EXPECT_EQ(loaded->fileLineCount(), static_cast<int64_t>(names.size()));
    const auto listing = loaded->listFolder("d:\\a", ImageIndex::Icons::None);
    ASSERT_EQ(listing.rows.size(), names.size());
    for (size_t i = 0; i < names.size(); ++i)
        ASSERT_EQ(listing.rows[i].name, names[i]) << i;
}
