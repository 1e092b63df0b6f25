// Texts cross the edge of the files as GBK and live inside as UTF-8.
#include "core/formats/FixedText.h"

#include <gtest/gtest.h>

#include <vector>

namespace ecg {
namespace {

TEST(CodePage, EveryCharacterComesBackAsItWas)
{
    EXPECT_EQ(Utf8FromGbk("\xD0\xC4\xB5\xE7 ECG"), "心电 ECG");
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

TEST(CodePage, WhatTheOtherSideLacksBecomesAQuestionMarkAndItsNeighboursStay)
{
    using Cases = std::vector<std::pair<std::string, std::string>>;
    const std::string leadBeforeADigit{'\xD0', '1'};
    const std::string undefinedPair{'\xFE', '\xFE', 'b'};
    for (const auto& [gbk, utf8] :
         Cases{{"a\xD0", "a?"}, {"a\x80z", "a?z"}, {"\xFFz", "?z"}, {leadBeforeADigit, "?1"}, {undefinedPair, "?b"}})
        EXPECT_EQ(Utf8FromGbk(gbk), utf8);
    const std::string emoji = "a\U0001F600b";
    const std::string halfASurrogatePair = "\xED\xA0\x80";
    for (const auto& [utf8, gbk] :
         Cases{{emoji, "a?b"}, {"a\xC3", "a?"}, {"\xE5\xBF z", "?? z"}, {halfASurrogatePair, "?"}})
        EXPECT_EQ(GbkFromUtf8(utf8), gbk);
}

TEST(FixedText, IsCutAtACharacterAndTrimmedAtItsEndOnly)
{
    FixedText<5> text;
    EXPECT_TRUE(text.IsBlank());
    text.Set("心电图");
    EXPECT_EQ(text.Bytes(), "\xD0\xC4\xB5\xE7 ");
    EXPECT_EQ(text.Text(), "心电");
    text.Set("a心电图");
    EXPECT_EQ(text.Text(), "a心电");
    EXPECT_EQ(TrimField(std::string_view(" a b \0 \0", 8)), " a b");
    EXPECT_EQ(TrimField(std::string_view("\0\0 ", 3)), "");
}

}  // namespace
}  // namespace ecg
