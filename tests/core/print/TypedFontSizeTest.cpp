#include "QStringPrinting.h"

#include "print/TypedFontSize.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

TEST(TypedFontSize, NumbersFromOneToSeventyTwoAlone)
{
    const std::optional<QString> refused = u"Bitte geben Sie als Schriftgröße eine Zahl von 1 bis 72 ein."_s;
    const std::tuple<const char *, QString, std::optional<QString>> cases[] = {
        { "the preset", u"10"_s, std::nullopt },
        { "the smallest", u"1"_s, std::nullopt },
        { "the largest", u"72"_s, std::nullopt },
        { "a decimal comma", u"10,5"_s, std::nullopt },
        { "blanks around it", u" 12 "_s, std::nullopt },
        { "empty", u""_s, refused },
        { "blanks alone", u"   "_s, refused },
        { "letters", u"zehn"_s, refused },
        { "a number with letters", u"10pt"_s, refused },
        { "zero", u"0"_s, refused },
        { "below one", u"0,5"_s, refused },
        { "negative", u"-10"_s, refused },
        { "one past the largest", u"73"_s, refused },
        { "beyond any font", u"99999"_s, refused },
    };
    for (const auto &[what, text, expected] : cases) {
        SCOPED_TRACE(what);
        EXPECT_EQ(typedFontSizeRefusal(text), expected);
    }
}

} // namespace
