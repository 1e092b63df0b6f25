// Texts cross the edge of the files as GBK and live inside as UTF-8.
#include "core/formats/FixedText.h"

#include <gtest/gtest.h>

namespace ecg {
namespace {

TEST(CodePage, ConvertsChineseBothWays)
{
    const std::string gbk = "\xD0\xC4\xB5\xE7 ECG"; // 心电 ECG
    EXPECT_EQ(Utf8FromGbk(gbk), "心电 ECG");
    EXPECT_EQ(GbkFromUtf8("心电 ECG"), gbk);
}

TEST(CodePage, EveryPairOfTheCodePageComesBackAsItWas)
{
    int characters = 0;
    for (int lead = 0x81; lead <= 0xFE; ++lead)
        for (int trail = 0x40; trail <= 0xFE; ++trail) {
            const std::string pair{static_cast<char>(lead), static_cast<char>(trail)};
            const std::string utf8 = Utf8FromGbk(pair);
            if (utf8.find('?') != std::string::npos)
                continue;
            EXPECT_EQ(GbkFromUtf8(utf8), pair);
            ++characters;
        }
    EXPECT_GT(characters, 21000);
}

struct Damage {
    const char* name;
    std::string gbk;
    std::string utf8;
};

class DamagedGbk : public testing::TestWithParam<Damage> {};

TEST_P(DamagedGbk, ReadsAsQuestionMarksAndKeepsItsNeighbours)
{
    EXPECT_EQ(Utf8FromGbk(GetParam().gbk), GetParam().utf8);
}

INSTANTIATE_TEST_SUITE_P(Bytes, DamagedGbk,
                         testing::Values(Damage{"lone_lead_at_the_end", "a\xD0", "a?"},
                                         Damage{"byte_80", "a\x80z", "a?z"}, Damage{"byte_ff", "\xFFz", "?z"},
                                         Damage{"lead_before_a_digit",
                                                "\xD0"
                                                "1",
                                                "?1"},
                                         Damage{"undefined_pair",
                                                "\xFE\xFE"
                                                "b",
                                                "?b"}),
                         [](const auto& test) { return test.param.name; });

TEST(CodePage, WhatItLacksBecomesAQuestionMark)
{
    EXPECT_EQ(GbkFromUtf8("a\U0001F600b"), "a?b"); // an emoji is outside the code page
    EXPECT_EQ(GbkFromUtf8("a\xC3"), "a?");         // malformed
    EXPECT_EQ(GbkFromUtf8("\xE5\xBF z"), "?? z");
    EXPECT_EQ(GbkFromUtf8("\xED\xA0\x80"), "?"); // half a surrogate pair is no character
}

TEST(FixedText, NeverEndsInHalfACharacter)
{
    FixedText<5> text;
    text.Set("心电图");
    EXPECT_EQ(text.Bytes(), "\xD0\xC4\xB5\xE7 ");
    EXPECT_EQ(text.Text(), "心电");
    text.Set("a心电图");
    EXPECT_EQ(text.Text(), "a心电");
}

TEST(FixedText, TrimsBlanksAndNulsAtItsEndOnly)
{
    EXPECT_EQ(TrimField(std::string_view(" a b \0 \0", 8)), " a b");
    EXPECT_EQ(TrimField(std::string_view("\0\0 ", 3)), "");
    EXPECT_TRUE(FixedText<9>().IsBlank());
}

} // namespace
} // namespace ecg
