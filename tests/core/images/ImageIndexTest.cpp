#include "images/ImageIndex.h"
#include "images/ImageIndexCache.h"

#include "ExampleImage.h"
#include "TestPaths.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <thread>

namespace {

using Strings = std::vector<std::string>;
constexpr auto kNone = ImageIndex::Icons::None;

class ImageIndexTest : public ::testing::Test
{
protected:
    QString write(const std::string &bytes)
    {
        return writeFile(m_dir.filePath(QStringLiteral("1.dat")), QByteArray::fromStdString(bytes));
    }

    // Each folder as "key<parent" and each row as "name|size|date".
    static Strings tree(const ImageIndex &image)
    {
        Strings out;
        for (const ImageIndex::Folder &folder : image.folders())
            out.push_back(std::string(folder.key) + "<" + std::to_string(folder.parent));
        return out;
    }
    static Strings rows(const ImageIndex::Listing &listing)
    {
        Strings out;
        for (const ImageIndex::Row &row : listing.rows)
            out.push_back(std::string(row.name) + "|" + std::string(row.size) + "|" + std::string(row.date));
        return out;
    }

    QTemporaryDir m_dir;
};

} // namespace

TEST_F(ImageIndexTest, TreeAndLineCounts)
{
    // The ZIP's closing row "||" counts as a file, empty lines as nothing; the tree stops at
    // the first line it cannot take while counting goes on.
    const std::tuple<const char *, std::string, Strings, int64_t, int64_t> cases[] = {
        { "a whole image", exampleImage(),
            { "d:<-1", "d:\\Bilder<0", "d:\\Bilder\\alt.zip<1", "d:\\Setup<0", "d:\\Setup\\daten.rar<3" }, 5,
            9 },
        { "a second root stands beside the first", ">d:\r\n>e:\r\n>e:\\x\r\n",
            { "d:<-1", "e:<-1", "e:\\x<1" }, 3, 0 },
        { "lines without a backslash are skipped", ">d:\r\nirgendwas\r\n>d:\\b\r\n", { "d:<-1", "d:\\b<0" },
            2, 1 },
        { "a file line without a bar below the root does not stop it",
            ">d:\r\n>d:\\a\r\nd:\\a\\kaputt\r\n>d:\\b\r\n", { "d:<-1", "d:\\a<0", "d:\\b<0" }, 3, 1 },
        { "folder under an unknown parent", ">d:\r\n>d:\\a\r\n>d:\\x\\y\r\n>d:\\b\r\n",
            { "d:<-1", "d:\\a<0" }, 4, 0 },
        { "folder key used twice", ">d:\r\n>d:\\a\r\n>d:\\a\r\n>d:\\b\r\n", { "d:<-1", "d:\\a<0" }, 4, 0 },
        { "root file line without a bar", ">d:\r\n>d:\\a\r\nd:\\kaputt\r\n>d:\\b\r\n", { "d:<-1", "d:\\a<0" },
            3, 1 },
        { "nameless folder line", ">d:\r\n>\r\n>d:\\b\r\n", { "d:<-1" }, 3, 0 },
    };
    for (const auto &[why, bytes, folders, folderLines, fileLines] : cases) {
        SCOPED_TRACE(why);
        const auto image = ImageIndex::load(write(bytes));
        EXPECT_EQ(
            std::tuple(image->isLoaded(), tree(*image), image->folderLineCount(), image->fileLineCount()),
            std::tuple(true, folders, folderLines, fileLines));
    }
}

TEST_F(ImageIndexTest, ListsTheFilesOfExactlyOneFolderInFileOrder)
{
    const std::tuple<const char *, std::string, const char *, Strings> cases[] = {
        { "no such folder", exampleImage(), "d:\\Leer", {} },
        { "comparison is exact", exampleImage(), "D:\\Bilder", {} },
        { "a line without bar is stepped over",
            ">d:\r\n>d:\\a\r\nd:\\a\\eins|1|x\r\nd:\\a\\kaputt\r\nd:\\a\\zwei|2|y\r\n", "d:\\a",
            { "eins|1|x", "zwei|2|y" } },
        { "lines after the tree stopped", ">d:\r\nd:\\kaputt\r\n>d:\\b\r\nd:\\b\\x.txt|1|01.01.2003\r\n",
            "d:\\b", { "x.txt|1|01.01.2003" } },
        { "lines end at CR LF or a lone CR, not at a lone LF",
            ">d:\rd:\\a.txt|1|x\r\nd:\\b\nc.txt|2|y\r\nd:\\last.txt|3|z",
            "d:", { "a.txt|1|x", "b\nc.txt|2|y", "last.txt|3|z" } },
        { "the empty folder text is compared without touching bytes", "r\r\\", "", {} },
        { "a run ending in a lone CR is not joined to the next run's LF", "a|1|x\r\r\n\n|2|y", "",
            { "a|1|x", "\n|2|y" } },
        { "a duplicate name hands its size and date to the row before",
            ">d:\r\n>d:\\z.zip\r\nd:\\z.zip\\a.txt|1|01.01.2001\r\nd:\\z.zip\\b.txt|2|02.02.2002\r\nd:\\z."
            "zip\\a.txt|3|03.03.2003\r\nd:\\z.zip\\||\r\nd:\\z.zip\\||\r\n",
            "d:\\z.zip", { "a.txt|1|01.01.2001", "b.txt|3|03.03.2003", "||", "||" } },
    };
    for (const auto &[why, bytes, folder, expected] : cases)
        EXPECT_EQ(rows(ImageIndex::load(write(bytes))->listFolder(folder, kNone)), expected) << why;
}

TEST_F(ImageIndexTest, CacheReloadsWhenTheFileChangesOrAppears)
{
    ImageIndexCache cache;
    const QString path = write(">d:\r\nd:\\a.txt|1|x\r\n");
    const auto first = cache.get(path);
    EXPECT_EQ(cache.get(path), first) << "an unchanged file is not read again";
    // Same size, later time: the old index no longer lists from the changed file.
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    write(">d:\r\nd:\\c.txt|1|x\r\n");
    EXPECT_TRUE(first->listFolder("d:", kNone).rows.empty());
    EXPECT_EQ(rows(cache.get(path)->listFolder("d:", kNone)), Strings { "c.txt|1|x" });
    // A missing file gives an empty index until it appears.
    QFile::remove(path);
    EXPECT_FALSE(cache.get(path)->isLoaded());
    write(">d:\r\n");
    EXPECT_TRUE(cache.get(path)->isLoaded());
}

TEST_F(ImageIndexTest, LargeImageLosesNoLineAtBlockEdgesOrInOverlongLines)
{
    // Several megabytes in thousands of folders: lines cut by the ends of the read blocks at
    // many positions, names longer than a block, and the first block of 256 KiB ending on
    // the CR of a line whose LF opens the next one.
    const size_t blockSize = size_t(256) << 10;
    std::string image = ">d:\r\n>d:\\a\r\n";
    const std::string filler(blockSize - 1 - image.size() - std::strlen("d:\\a\\|1|x"), 'p');
    image += "d:\\a\\" + filler + "|1|x\r\n";
    ASSERT_EQ(image.substr(blockSize - 1, 2), "\r\n");
    std::map<std::string, Strings> expected { { "d:\\a", { filler + "|1|x" } } };
    for (int f = 0; f < 3000; ++f) {
        const std::string folder = "d:\\Ordner " + std::to_string(f);
        image += ">" + folder + "\r\n";
        for (int n = 0; n < 15; ++n) {
            const std::string name = f % 1000 == 7 && n == 3
                ? std::string(700000, 'l')
                : "datei " + std::string(static_cast<size_t>(n * 7 + f % 13), 'x');
            image += folder + "\\" + name + "|" + std::to_string(n) + "|x\r\n";
            expected[folder].push_back(name + "|" + std::to_string(n) + "|x");
        }
    }
    const auto loaded = ImageIndex::load(write(image));
    ASSERT_EQ(loaded->folders().size(), 3002u);
    EXPECT_EQ(loaded->fileLineCount(), 45001);
    for (const auto &[folder, names] : expected)
        ASSERT_EQ(rows(loaded->listFolder(folder, kNone)), names) << folder;
}
