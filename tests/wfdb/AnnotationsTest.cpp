// Beat annotations out of words made by hand.
#include "wfdb/Annotations.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace ecg {
namespace {

std::vector<std::byte> Words(std::initializer_list<int> words)
{
    std::vector<std::byte> bytes;
    for (const int word : words)
        bytes.insert(bytes.end(), {static_cast<std::byte>(word & 0xFF), static_cast<std::byte>(word >> 8)});
    return bytes;
}

constexpr int Word(int code, int interval)
{
    return code << 10 | interval;
}

TEST(Annotations, AddUpTheirIntervalsAsFarAsTheyGo)
{
    const auto whole = Words({Word(28, 18), Word(63, 3), 0x4E28, 0x0000,  // a rhythm change with the text "(N"
                              Word(1, 59), Word(60, 1), Word(59, 0), 0x0001, 0x0002, Word(5, 1023), 0, Word(1, 1)});
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        const auto annotations = ParseAnnotations(std::span(whole).first(size));
        ASSERT_EQ(annotations.size(), size < 2 ? 0U : size < 10 ? 1U : size < 20 ? 2U : 3U) << size << " bytes";
    }
    const auto annotations = ParseAnnotations(whole);
    const std::pair<int, int> expected[] = {{28, 18}, {1, 77}, {5, 77 + 0x10002 + 1023}};  // code, sample
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(annotations[i].Code, expected[i].first);
        EXPECT_EQ(annotations[i].Sample, expected[i].second);
    }
}

}  // namespace
}  // namespace ecg
