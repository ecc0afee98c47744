#include "app/TruthValue.h"

#include <gtest/gtest.h>

namespace {

TEST(TruthValue, ReadsWordsAndNumbersAndItsOwnTexts)
{
    const std::pair<const char *, std::optional<bool>> cases[]
        = { { "True", true }, { "TRUE", true }, { "false", false }, { "Wahr", true }, { "FALSCH", false },
              { " True ", true }, { "-1", true }, { "0", false }, { "2", true }, { "0.0", false },
              { "0,5", true }, { "", std::nullopt }, { "ja", std::nullopt }, { "Truee", std::nullopt },
              { "1 0", std::nullopt }, { "nan", std::nullopt }, { "inf", std::nullopt } };
    for (const auto &[text, expected] : cases)
        EXPECT_EQ(parseTruthValue(QString::fromUtf8(text)), expected) << '"' << text << '"';
    for (const bool value : { true, false })
        EXPECT_EQ(parseTruthValue(truthText(value)), value);
}

} // namespace
