#include "AppTestFolder.h"

#include "app/IniReader.h"

namespace {

using namespace Qt::StringLiterals;
using IniReaderTest = AppTestFolder;
using Lines = std::vector<QString>;

// Only untrimmed "[...]" lines are headers; lines end at CR LF, CR or LF.
TEST_F(IniReaderTest, SectionNamesEndWithOneEmptyElement)
{
    const QString file = path(QStringLiteral("names.ini"));
    writeFile(file, "[CD1]\r\na=1\r\n [no]\r\n[no] \r\n[\r\n[]\r\n[a]b]\n[M\xfcller]\r[Last]");
    EXPECT_EQ(inireader::readIniSectionNames(file),
        (Lines { u"CD1"_s, u""_s, u"a]b"_s, u"Müller"_s, u"Last"_s, u""_s }));
    EXPECT_EQ(inireader::readIniSectionNames(path(QStringLiteral("missing.ini"))), Lines { u""_s });
}

TEST_F(IniReaderTest, SectionLinesIncludeTheStopLine)
{
    const std::tuple<const char *, QByteArray, const char *, std::optional<Lines>> cases[] = {
        { "stopsAtBlankLine", "[CD1]\r\na=1\r\nb=2\r\n\r\n[CD2]\r\nc=3\r\n", "CD1",
            Lines { u"a=1"_s, u"b=2"_s, u""_s } },
        { "blankMeansOnlyBlanks", "[CD1]\r\na=1\r\n   \r\nb=2\r\n", "CD1", Lines { u"a=1"_s, u"   "_s } },
        { "tabIsNotBlank", "[CD1]\r\na=1\r\n\t\r\n[CD2]\r\n", "CD1",
            Lines { u"a=1"_s, u"\t"_s, u"[CD2]"_s } },
        { "stopsAtLastLine", "[CD1]\r\na=1\r\nb=2\r\n", "CD1", Lines { u"a=1"_s, u"b=2"_s } },
        { "umlautCaseFolded", "[\xc4RGER]\r\na=1\r\n\r\n", "\xc3\xa4rger", Lines { u"a=1"_s, u""_s } },
        { "headerNotTrimmed", "[CD1] \r\na=1\r\n\r\n", "CD1", Lines { u""_s } },
        { "noLinesBeforeNextHeader", "[CD1]\r\n[CD2]\r\nc=3\r\n", "CD1", Lines { u""_s } },
        { "blankRightAfterHeader", "[CD1]\r\n\r\na=1\r\n", "CD1", Lines { u""_s } },
        { "oneLastDataLine", "[CD1]\r\na=1\r\n", "CD1", Lines { u""_s } },
        { "missingSection", "[CD1]\r\na=1\r\n", "CD9", Lines { u""_s } },
        { "firstHeaderWins", "[CD1]\r\na=1\r\n\r\n[CD1]\r\nb=2\r\n\r\n", "CD1", Lines { u"a=1"_s, u""_s } },
        { "loneLineFeeds", "[CD1]\na=1\nb=2\n\n", "CD1", Lines { u"a=1"_s, u"b=2"_s, u""_s } },
        { "headerIsLastLine", "a=1\r\n[CD1]\r\n", "CD1", std::nullopt }
    };
    const QString file = path(QStringLiteral("lines.ini"));
    for (const auto &[name, content, section, expected] : cases) {
        writeFile(file, content);
        EXPECT_EQ(inireader::readIniSectionLines(file, QString::fromUtf8(section)), expected) << name;
    }
    EXPECT_EQ(inireader::readIniSectionLines(path(QStringLiteral("missing.ini")), QStringLiteral("CD1")),
        std::nullopt);
}

} // namespace
