// Beat annotations out of words made by hand.
#include "wfdb/Annotations.h"

#include "wfdb/WholeFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>

namespace ecg {
namespace {

std::vector<std::byte> Words(std::initializer_list<int> words)
{
    std::vector<std::byte> bytes;
    for (const int word : words) {
        bytes.push_back(static_cast<std::byte>(word & 0xFF));
        bytes.push_back(static_cast<std::byte>(word >> 8));
    }
    return bytes;
}

constexpr int Word(int code, int interval)
{
    return code << 10 | interval;
}

constexpr int normalBeat = 1;
constexpr int ventricularBeat = 5;
constexpr int rhythmChange = 28;

TEST(Annotations, AddUpTheirIntervals)
{
    const auto annotations = ParseAnnotations(Words({Word(rhythmChange, 18), Word(63, 3), 0x4E28, 0x0000, // "(N"
                                                     Word(normalBeat, 59), Word(60, 1), Word(59, 0), 0x0001, 0x0002,
                                                     Word(ventricularBeat, 1023), 0, Word(normalBeat, 1)}));
    ASSERT_EQ(annotations.size(), 3U);
    EXPECT_EQ(annotations[0].Code, rhythmChange);
    EXPECT_EQ(annotations[0].Sample, 18);
    EXPECT_EQ(annotations[1].Sample, 77);
    EXPECT_EQ(annotations[2].Code, ventricularBeat);
    EXPECT_EQ(annotations[2].Sample, 77 + 0x10002 + 1023);
    EXPECT_TRUE(IsBeat(normalBeat) && IsBeat(ventricularBeat) && !IsBeat(rhythmChange));
}

TEST(Annotations, EndWhereTheFileIsCut)
{
    const auto whole = Words({Word(normalBeat, 5), Word(59, 0), 1, 1, Word(63, 9), Word(normalBeat, 7)});
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        const auto annotations = ParseAnnotations(std::span(whole).first(size));
        ASSERT_EQ(annotations.size(), size < 2 ? 0U : 1U) << size << " bytes";
    }
}

TEST(AmbulatoryRecording, HasItsBeats)
{
    const std::filesystem::path path = std::filesystem::path(ECG_SHARED_DATA) / "100.atr";
    if (!std::filesystem::exists(path))
        GTEST_SKIP() << "the public recordings are not at hand";
    const auto bytes = ReadWholeFile(path, 1 << 20);
    ASSERT_TRUE(bytes) << bytes.Reason();
    const auto annotations = ParseAnnotations(*bytes);
    EXPECT_EQ(std::ranges::count_if(annotations, IsBeat, &Annotation::Code), 2273);
    EXPECT_LT(annotations.back().Sample, 650000);
    EXPECT_GT(annotations.back().Sample, 649000);
}

} // namespace
} // namespace ecg
