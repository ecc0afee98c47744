#include "images/FolderEntries.h"

#include <gtest/gtest.h>

namespace {

// Folders list as the Windows file system sorts them, so images match the Windows
// version's: upper-cased UTF-16 code units, compared one by one; equal keys by their bytes.
TEST(FolderEntries, NamesSortAsTheWindowsFileSystemListsThem)
{
    struct Case
    {
        const char *what;
        const char *before;
        const char *after;
    };
    const Case cases[] = {
        { "letter case does not count", "apfel", "Birne" },
        { "a prefix comes first", "A.ZIP", "a.zip.bak" },
        { "punctuation by its code", "A.ZIP", "Archiv" },
        { "letters before the underscore", "zebra", "_intern" },
        { "hidden names by their dot", ".versteckt", "Archiv" },
        { "equal when upper-cased: by bytes", "README", "Readme" },
        { "umlauts after every ASCII letter", "Zebra", "Äpfel" },
        { "sharp s stays itself, not SS", "Grüsse2", "Grüße" },
        { "dotless i is I", "i", "ı" },
        { "code units, not code points", "😀", "ﬁ" },
        { "digits before letters", "9", "A" },
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_TRUE(ntfsLess(c.before, c.after));
        EXPECT_FALSE(ntfsLess(c.after, c.before));
    }
}

} // namespace
