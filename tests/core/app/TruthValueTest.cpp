#include "app/TruthValue.h"

#include <gtest/gtest.h>

namespace {

TEST(TruthValue, ReadsWordsAndNumbers)
{
    const struct
    {
        const char *text;
        std::optional<bool> expected;
    } cases[] = {
        {"True", true},     {"true", true},      {"TRUE", true},    {"False", false},  {"false", false},
        {"Wahr", true},     {"wahr", true},      {"Falsch", false}, {"FALSCH", false}, {" True ", true},
        {"-1", true},       {"0", false},        {"1", true},       {"2", true},       {"0.0", false},
        {"0,5", true},      {"", std::nullopt},  {"ja", std::nullopt}, {"Truee", std::nullopt},
        {"1 0", std::nullopt}, {"nan", std::nullopt}, {"inf", std::nullopt},
    };
    for (const auto &c : cases)
        EXPECT_EQ(parseTruthValue(QString::fromUtf8(c.text)), c.expected) << '"' << c.text << '"';
}

TEST(TruthValue, WrittenTextReadsBack)
{
    for (const bool value : {true, false})
        EXPECT_EQ(parseTruthValue(truthText(value)), value);
}

} // namespace
