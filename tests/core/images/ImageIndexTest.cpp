#include "images/ImageIndex.h"
#include "images/ImageIndexCache.h"

#include "ExampleImage.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace {

using Strings = std::vector<std::string>;
constexpr auto kNone = ImageIndex::Icons::None;

class ImageIndexTest : public ::testing::Test
{
protected:
    QString write(const std::string &bytes, const QString &name = QStringLiteral("1.dat"))
    {
        QFile file(m_dir.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
        return file.fileName();
    }
    std::shared_ptr<const ImageIndex> load(const std::string &bytes)
    {
        return ImageIndex::load(write(bytes));
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
    const struct
    {
        const char *why;
        std::string image;
        Strings tree;
        int64_t folderLines, fileLines;
    } cases[] = {
        // The ZIP's closing row "||" counts as a file; empty lines count as nothing.
        { "a whole image", exampleImage(),
            { "d:<-1", "d:\\Bilder<0", "d:\\Bilder\\alt.zip<1", "d:\\Setup<0", "d:\\Setup\\daten.rar<3" }, 5,
            9 },
        { "an empty volume", ">e:\r\n\r\n", { "e:<-1" }, 1, 0 },
        { "a second root stands beside the first", ">d:\r\n>e:\r\n>e:\\x\r\n",
            { "d:<-1", "e:<-1", "e:\\x<1" }, 3, 0 },
        { "lines without a backslash are skipped", ">d:\r\nirgendwas\r\n>d:\\b\r\n", { "d:<-1", "d:\\b<0" },
            2, 1 },
        { "a file line without a bar below the root does not stop it",
            ">d:\r\n>d:\\a\r\nd:\\a\\kaputt\r\n>d:\\b\r\n", { "d:<-1", "d:\\a<0", "d:\\b<0" }, 3, 1 },
        // The tree stops at the first line it cannot take; counting goes on.
        { "folder under an unknown parent", ">d:\r\n>d:\\a\r\n>d:\\x\\y\r\n>d:\\b\r\n",
            { "d:<-1", "d:\\a<0" }, 4, 0 },
        { "folder key used twice", ">d:\r\n>d:\\a\r\n>d:\\a\r\n>d:\\b\r\n", { "d:<-1", "d:\\a<0" }, 4, 0 },
        { "root file line without a bar", ">d:\r\n>d:\\a\r\nd:\\kaputt\r\n>d:\\b\r\n", { "d:<-1", "d:\\a<0" },
            3, 1 },
        { "nameless folder line", ">d:\r\n>\r\n>d:\\b\r\n", { "d:<-1" }, 3, 0 },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        const auto image = load(c.image);
        ASSERT_TRUE(image->isLoaded());
        EXPECT_EQ(tree(*image), c.tree);
        EXPECT_EQ(image->folderLineCount(), c.folderLines);
        EXPECT_EQ(image->fileLineCount(), c.fileLines);
    }
    Strings texts;
    const auto example = load(exampleImage());
    for (const ImageIndex::Folder &folder : example->folders())
        texts.emplace_back(folder.text);
    EXPECT_EQ(texts, (Strings { "d:", "Bilder", "alt.zip", "Setup", "daten.rar" }));
}

TEST_F(ImageIndexTest, ListsTheFilesOfExactlyOneFolderInFileOrder)
{
    const struct
    {
        const char *why;
        std::string image;
        const char *folder;
        Strings rows;
    } cases[] = {
        { "root", exampleImage(), "d:", { "liesmich.txt|1834|12.03.2003 09:41:07" } },
        { "files before and after a subfolder's lines", exampleImage(), "d:\\Bilder",
            { "haus.jpg|482113|28.07.2002 18:02:44", "garten.jpg|501772|28.07.2002 18:02:50" } },
        { "inner names keep their \"/\", the closing row is nameless", exampleImage(), "d:\\Bilder\\alt.zip",
            { "2001/haus.jpg|120455|04.11.2001", "2001/garten.jpg|98012|04.11.2001", "||" } },
        { "no such folder", exampleImage(), "d:\\Leer", {} },
        { "the root node's text", exampleImage(), "Meine CD (d:):", {} },
        { "comparison is exact", exampleImage(), "D:\\Bilder", {} },
        { "a line without bar is stepped over",
            ">d:\r\n>d:\\a\r\nd:\\a\\eins|1|x\r\nd:\\a\\kaputt\r\nd:\\a\\zwei|2|y\r\n", "d:\\a",
            { "eins|1|x", "zwei|2|y" } },
        { "lines after the tree stopped", ">d:\r\nd:\\kaputt\r\n>d:\\b\r\nd:\\b\\x.txt|1|01.01.2003\r\n",
            "d:\\b", { "x.txt|1|01.01.2003" } },
        { "lines end at CR LF or a lone CR, not at a lone LF",
            ">d:\rd:\\a.txt|1|x\r\nd:\\b\nc.txt|2|y\r\nd:\\last.txt|3|z",
            "d:", { "a.txt|1|x", "b\nc.txt|2|y", "last.txt|3|z" } },
        { "a duplicate name hands its size and date to the row before",
            ">d:\r\n>d:\\z.zip\r\nd:\\z.zip\\a.txt|1|01.01.2001\r\nd:\\z.zip\\b.txt|2|02.02.2002\r\n"
            "d:\\z.zip\\a.txt|3|03.03.2003\r\nd:\\z.zip\\||\r\nd:\\z.zip\\||\r\n",
            "d:\\z.zip", { "a.txt|1|01.01.2001", "b.txt|3|03.03.2003", "||", "||" } },
    };
    for (const auto &c : cases) {
        const auto image = load(c.image);
        EXPECT_EQ(rows(image->listFolder(c.folder, kNone)), c.rows) << c.why;
    }
}

TEST_F(ImageIndexTest, IconTypes)
{
    const struct
    {
        const char *why;
        std::string image;
        const char *folder;
        ImageIndex::Icons icons;
        std::vector<std::string_view> table;
        Strings ofRows;
    } cases[] = {
        // The table takes "dat" for lied.mp3 (digit rule), a row looks up "mp3" (plain rule),
        // finds nothing and keeps the icon of the row before, the first icon for the first row.
        { "digit rule in the table, plain rule in the rows",
            ">d:\r\nd:\\lied.mp3|1|x\r\nd:\\a.txt|1|x\r\nd:\\b.TXT|1|x\r\nd:\\lied2.mp3|1|x\r\nd:\\ohnepunkt|"
            "1|x\r\n"
            "d:\\c.txt|1|x\r\n",
            "d:", ImageIndex::Icons::FileSpecific, { "dat", "txt", "TXT", "" },
            { "dat", "txt", "TXT", "TXT", "dat", "txt" } },
        { "a file without dot in a folder with one",
            ">d:\r\n>d:\\v1.0\r\nd:\\v1.0\\README|1|x\r\nd:\\v1.0\\x.zip\\||\r\n", "d:\\v1.0",
            ImageIndex::Icons::FileSpecific, { "0\\README", "" }, { "0\\README" } },
        { "without icons one standard picture", exampleImage(), "d:\\Setup\\daten.rar", kNone, { "dat" },
            { "dat", "dat" } },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        const auto image = load(c.image);
        const ImageIndex::Listing listing = image->listFolder(c.folder, c.icons);
        EXPECT_EQ(listing.iconTypes, c.table);
        Strings ofRows;
        for (const ImageIndex::Row &row : listing.rows)
            ofRows.emplace_back(listing.iconTypes.at(static_cast<size_t>(row.icon)));
        EXPECT_EQ(ofRows, c.ofRows);
    }
}

TEST_F(ImageIndexTest, CacheReloadsWhenTheFileChangesOrAppears)
{
    ImageIndexCache cache;
    const QString path = write(">d:\r\nd:\\a.txt|1|x\r\n");
    const auto first = cache.get(path);
    EXPECT_EQ(cache.get(path), first) << "an unchanged file is not read again";

    write(">d:\r\nd:\\a.txt|1|x\r\nd:\\b.txt|2|y\r\n");
    EXPECT_EQ(cache.get(path)->fileLineCount(), 2);
    // Same size, later time.
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    write(">d:\r\nd:\\a.txt|1|x\r\nd:\\c.txt|2|y\r\n");
    EXPECT_EQ(rows(cache.get(path)->listFolder("d:", kNone)).back(), "c.txt|2|y");

    // A missing file gives an empty index until it appears.
    const QString later = m_dir.filePath(QStringLiteral("2.dat"));
    const auto missing = cache.get(later);
    EXPECT_FALSE(missing->isLoaded());
    EXPECT_TRUE(missing->folders().empty());
    EXPECT_TRUE(missing->listFolder("d:", ImageIndex::Icons::FileSpecific).rows.empty());
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
    Strings names;
    const auto add = [&](std::string name, const char *end) {
        image += "d:\\a\\" + name + "|1|x" + end;
        names.push_back(name + "|1|x");
    };
    const auto fillTo = [&](size_t crAt, const char *end) {
        while (image.size() + 40 < crAt)
            add("datei" + std::to_string(names.size()), "\r\n");
        // The last line before the edge is padded so that its CR is the block's last byte.
        add(std::string(crAt - image.size() - std::strlen("d:\\a\\|1|x"), 'p'), end);
    };
    fillTo(blockSize - 1, "\r\n");
    ASSERT_EQ(image.substr(blockSize - 1, 2), "\r\n");
    fillTo(2 * blockSize - 1, "\r");
    ASSERT_EQ(image[2 * blockSize - 1], '\r');
    for (int i = 0; i < 1000; ++i)
        add("rest" + std::to_string(i), "\r\n");

    const auto loaded = load(image);
    EXPECT_EQ(loaded->fileLineCount(), static_cast<int64_t>(names.size()));
    EXPECT_TRUE(rows(loaded->listFolder("d:\\a", kNone)) == names);
}
