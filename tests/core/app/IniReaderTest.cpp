#include "AppTestFolder.h"

#include "app/IniReader.h"

namespace {

using IniReaderTest = AppTestFolder;
using Lines = std::vector<QString>;

Lines texts(std::initializer_list<const char *> items)
{
    Lines result;
    for (const char *item : items)
        result.push_back(QString::fromUtf8(item));
    return result;
}

// Only untrimmed "[...]" lines are headers; lines end at CR LF, CR or LF.
TEST_F(IniReaderTest, SectionNamesEndWithOneEmptyElement)
{
    const QString file = path(QStringLiteral("names.ini"));
    writeFile(file, "[CD1]\r\na=1\r\n [no]\r\n[no] \r\n[\r\n[]\r\n[a]b]\n[M\xfcller]\r[Last]");
    EXPECT_EQ(inireader::readIniSectionNames(file), texts({ "CD1", "", "a]b", "Müller", "Last", "" }));
    EXPECT_EQ(inireader::readIniSectionNames(path(QStringLiteral("missing.ini"))), texts({ "" }));
}

TEST_F(IniReaderTest, SectionLinesIncludeTheStopLine)
{
    const std::tuple<const char *, QByteArray, const char *, std::optional<Lines>> cases[]
        = { { "stopsAtBlankLine", "[CD1]\r\na=1\r\nb=2\r\n\r\n[CD2]\r\nc=3\r\n", "CD1",
                texts({ "a=1", "b=2", "" }) },
              { "blankMeansOnlyBlanks", "[CD1]\r\na=1\r\n   \r\nb=2\r\n", "CD1", texts({ "a=1", "   " }) },
              { "tabIsNotBlank", "[CD1]\r\na=1\r\n\t\r\n[CD2]\r\n", "CD1", texts({ "a=1", "\t", "[CD2]" }) },
              { "stopsAtLastLine", "[CD1]\r\na=1\r\nb=2\r\n", "CD1", texts({ "a=1", "b=2" }) },
              { "umlautCaseFolded", "[\xc4RGER]\r\na=1\r\n\r\n", "\xc3\xa4rger", texts({ "a=1", "" }) },
              { "headerNotTrimmed", "[CD1] \r\na=1\r\n\r\n", "CD1", texts({ "" }) },
              { "noLinesBeforeNextHeader", "[CD1]\r\n[CD2]\r\nc=3\r\n", "CD1", texts({ "" }) },
              { "blankRightAfterHeader", "[CD1]\r\n\r\na=1\r\n", "CD1", texts({ "" }) },
              { "oneLastDataLine", "[CD1]\r\na=1\r\n", "CD1", texts({ "" }) },
              { "missingSection", "[CD1]\r\na=1\r\n", "CD9", texts({ "" }) },
              { "firstHeaderWins", "[CD1]\r\na=1\r\n\r\n[CD1]\r\nb=2\r\n\r\n", "CD1", texts({ "a=1", "" }) },
              { "loneLineFeeds", "[CD1]\na=1\nb=2\n\n", "CD1", texts({ "a=1", "b=2", "" }) },
              { "headerIsLastLine", "a=1\r\n[CD1]\r\n", "CD1", std::nullopt } };
    const QString file = path(QStringLiteral("lines.ini"));
    for (const auto &[name, content, section, expected] : cases) {
        writeFile(file, content);
        EXPECT_EQ(inireader::readIniSectionLines(file, QString::fromUtf8(section)), expected) << name;
    }
    EXPECT_EQ(inireader::readIniSectionLines(path(QStringLiteral("missing.ini")), QStringLiteral("CD1")),
        std::nullopt);
}

} // namespace
