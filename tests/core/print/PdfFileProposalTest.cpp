#include "QStringPrinting.h"

#include "app/Settings.h"
#include "print/PdfFileProposal.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

// The printed name made a file name, then in the folder kept from the last PDF, while it is there.
TEST(PdfFileProposal, NameOfWhatIsPrintedInTheFolderUsedLast)
{
    QTemporaryDir dir;
    const std::tuple<const char *, QString, QString> names[] = {
        { "a CD's title", u"Urlaub 2003"_s, u"Urlaub 2003.pdf"_s },
        { "search hits name nothing", u""_s, u"Suchergebnis.pdf"_s },
        { "blanks alone", u"  "_s, u"Suchergebnis.pdf"_s },
        { "a slash is no folder", u"Treiber 1/2"_s, u"Treiber 1-2.pdf"_s },
    };
    for (const auto &[what, printed, expected] : names) {
        SCOPED_TRACE(what);
        Settings fresh(dir.filePath(u"leer.ini"_s));
        EXPECT_EQ(proposedPdfFile(fresh, printed), expected);
    }

    Settings settings(dir.filePath(u"silberbuch.ini"_s));
    QDir(dir.path()).mkdir(u"Ausdrucke"_s);
    rememberPdfFolder(settings, dir.filePath(u"Ausdrucke/liste.pdf"_s));
    EXPECT_EQ(proposedPdfFile(settings, u"Jazz"_s), dir.filePath(u"Ausdrucke/Jazz.pdf"_s));
    QDir(dir.filePath(u"Ausdrucke"_s)).removeRecursively();
    EXPECT_EQ(proposedPdfFile(settings, u"Jazz"_s), u"Jazz.pdf"_s); // the folder has gone
}

} // namespace
