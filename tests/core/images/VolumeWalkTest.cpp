#include "images/ArchiveListing.h"
#include "images/ImageCapture.h"

#include "TestPaths.h"
#include "TreeBuilder.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <vector>

// The pruned walk writes as it goes and keeps only the lines that may still be taken back.
// This test holds it against the plain rule on random trees: collect every line, and after
// a subfolder without a passing file drop the last collected line, whatever it is.
namespace {

constexpr int64_t kTime = 981173106; // 03.02.2001 04:05:06

// Random folders holding text and picture files, ZIPs, RARs, a ZIP without entries and a
// ".rar" that is no RAR (no entry rows at all), a few levels deep.
void growTree(TreeBuilder &tree, std::mt19937 &random, const QString &folder, int depth)
{
    const std::pair<const char *, const char *> kinds[] = { { ".txt", nullptr }, { ".jpg", nullptr },
        { ".zip", "zip/two_files_and_folder.zip" }, { ".rar", "rar/rar4_basic_windows.rar" },
        { ".zip", "zip/no_entries.zip" }, { ".rar", "zip/not_a_zip.zip" } };
    const int entries = static_cast<int>(random() % 5);
    for (int i = 0; i < entries; ++i) {
        const QString name = (folder.isEmpty() ? QString() : folder + u'/') + QStringLiteral("e%1").arg(i);
        const size_t kind = random() % (depth < 4 ? 8 : 6);
        if (kind >= std::size(kinds)) {
            tree.folder(name);
            growTree(tree, random, name, depth + 1);
        } else if (const auto &[suffix, source] = kinds[kind]; source) {
            tree.copy(fixturePath(QLatin1String(source)), name + QLatin1String(suffix), kTime);
        } else {
            tree.file(name + QLatin1String(suffix), 1, kTime);
        }
    }
}

// The image by the plain rule, lines collected in `lines`.
QByteArray plainImage(const TreeBuilder &tree, bool textOnly, bool prune)
{
    std::vector<QByteArray> lines { ">d:" };
    const std::function<bool(const QString &, const QByteArray &)> walk
        = [&](const QString &folder, const QByteArray &imagePath) {
              bool passed = false;
              for (const QString &name : tree.listingOrder(folder)) {
                  const QString relative = folder.isEmpty() ? name : folder + u'/' + name;
                  const QByteArray path = imagePath + "\\" + name.toLatin1();
                  const std::string fsPath = QFile::encodeName(tree.path(relative)).toStdString();
                  const bool zip = name.endsWith(QLatin1String(".zip"));
                  if (QFileInfo(tree.path(relative)).isDir()) {
                      lines.push_back(">" + path);
                      const bool below = walk(relative, path);
                      if (prune && !below)
                          lines.pop_back();
                      passed = passed || below;
                  } else if (zip || name.endsWith(QLatin1String(".rar"))) {
                      lines.push_back(">" + path);
                      for (const ArchiveEntry &row : (zip ? listZip(fsPath) : listRar(fsPath)).rows)
                          lines.push_back(path + "\\"
                              + QByteArray::fromStdString(row.name + "|" + row.size + "|" + row.date));
                  } else if (!textOnly || name.endsWith(QLatin1String(".txt"))) {
                      lines.push_back(path + "|1|03.02.2001 04:05:06");
                      passed = true;
                  }
              }
              return passed;
          };
    walk({}, "d:");
    QByteArray out;
    for (const QByteArray &line : lines)
        out += line + "\r\n";
    return out + "\r\n";
}

} // namespace

TEST(VolumeWalk, MatchesTheCollectAndDropRuleOnRandomTrees)
{
    for (unsigned seed = 1; seed <= 8; ++seed) {
        QTemporaryDir volume;
        QTemporaryDir data;
        TreeBuilder tree(volume.path());
        std::mt19937 random(seed);
        growTree(tree, random, {}, 0);
        for (const int mode : { 0, 1, 2, 3 }) {
            const bool textOnly = mode & 1, prune = mode & 2;
            SCOPED_TRACE("seed " + std::to_string(seed) + " mode " + std::to_string(mode));
            ASSERT_TRUE(ImageCapture(data.path())
                            .capture(QStringLiteral("d:"), volume.path(), 1,
                                textOnly ? QStringLiteral("*.txt") : QStringLiteral("*.*"), prune)
                            .ok());
            QFile image(data.filePath(QStringLiteral("lws/1.dat")));
            ASSERT_TRUE(image.open(QIODevice::ReadOnly));
            EXPECT_EQ(image.readAll(), plainImage(tree, textOnly, prune));
        }
    }
}
