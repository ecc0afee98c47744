#include "app/Installation.h"

#include "TestPaths.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

// An installed program (<prefix>/bin) reads <prefix>/share/silberbuch; run from the build
// folder it reads the build's copy; a share folder without the help page is not ours.
TEST(Installation, ResourcesAreFoundBesideTheProgramOrInTheBuild)
{
    // why, the files below the temporary folder, the folder found relative to it ("" for none)
    const std::tuple<const char *, QStringList, const char *> cases[] = {
        { "installed", { u"usr/share/silberbuch/Hilfe.html"_s, u"build/share/silberbuch/Hilfe.html"_s },
            "usr/share/silberbuch" },
        { "build folder", { u"build/share/silberbuch/Hilfe.html"_s }, "build/share/silberbuch" },
        { "foreign share folder",
            { u"usr/share/silberbuch/other.txt"_s, u"build/share/silberbuch/Hilfe.html"_s },
            "build/share/silberbuch" },
        { "neither", {}, "" },
    };
    for (const auto &[why, files, expected] : cases) {
        SCOPED_TRACE(why);
        const QTemporaryDir temp;
        QDir().mkpath(temp.filePath(u"usr/bin"_s));
        for (const QString &file : files)
            writeFile(temp.filePath(file));
        const QString found = installation::findResourceFolder(
            temp.filePath(u"usr/bin"_s), temp.filePath(u"build/share/silberbuch"_s));
        EXPECT_EQ(found, *expected ? temp.filePath(QString::fromLatin1(expected)) : QString());
    }
}

} // namespace
