// What can be typed as a sampling time, and what a draft makes of settings that no window ever wrote.
#include "core/SettingsDraft.h"

#include "core/SettingsBytes.h"

#include <gtest/gtest.h>

namespace ecg {
namespace {

TEST(SettingsDraft, TheFirstRefusedTimeIsNamedWithItsFaultAndKeepsItsOldValue)
{
    const std::vector<std::pair<SecondsFault, std::vector<std::string>>> refused{
        {SecondsFault::NotANumber,
         {"", "  ", "ten", "15s", "15 20", "1.5.0", ".", "15,5", "1e3", "0x20", "inf", "nan", std::string(5000, '9')}},
        {SecondsFault::TooShort, {"9", "9.999", "0", "-15"}},
        {SecondsFault::TooLong, {"4294968", std::string(60, '9')}}};
    for (const auto& [fault, texts] : refused)
        for (const std::string& typed : texts)
            for (const std::size_t box : {0U, 7U}) {
                SettingsDraft draft(FactorySettings());
                draft.Seconds[box] = typed;
                draft.Seconds[8] = fault == SecondsFault::TooShort ? "x" : "9";
                const auto refusal = draft.Check();
                ASSERT_TRUE(refusal.has_value()) << typed;
                EXPECT_EQ(refusal->Fault, fault) << typed;
                EXPECT_EQ(refusal->Box, box) << typed;
                EXPECT_EQ(draft.Accepted().SampleTime[box], FactorySettings().SampleTime[box]) << typed;
            }
}

TEST(SettingsDraft, AcceptedSecondsBecomeFramesRoundedTiesToEvenAndComeBack)
{
    const std::vector<std::pair<std::string, std::int32_t>> accepted{
        {"10", 5000},     {" 15 ", 7500},   {"10.001", 5000},  // 5000.5 frames
        {"10.003", 5002},                                      // 5001.5 frames
        {"12.5", 6250},   {"0015.0", 7500}, {"15.", 7500},    {"4294967", 2147483500}};
    for (const auto& [typed, frames] : accepted) {
        SettingsDraft draft(FactorySettings());
        draft.Seconds[8] = typed;
        EXPECT_FALSE(draft.Check().has_value()) << typed;
        EXPECT_EQ(draft.Accepted().SampleTime[8], frames) << typed;
    }
    for (const std::int32_t frames : {5000, 5001, 7499, 7500, 123457, 2147483500}) {
        SysInfo settings = FactorySettings();
        settings.SampleTime[3] = frames;
        EXPECT_EQ(SettingsDraft(settings).Accepted().SampleTime[3], frames);
    }
}

TEST(SettingsDraft, ADamagedRecordShowsAsAValidOne)
{
    for (int byte = 0; byte < 256; ++byte) {
        const SettingsDraft draft(FilledWith(byte));
        EXPECT_FALSE(draft.Check().has_value()) << byte;
        const SysInfo& values = draft.Values;
        for (std::size_t i = 0; i < values.FilterIndex.size(); ++i)
            EXPECT_LT(values.FilterIndex[i], FilterChoiceCounts[i]);
        for (const Byte flag : values.LeadShow)
            EXPECT_LE(flag, 1);
        EXPECT_TRUE(values.PrintMono <= 1 && values.PrintPortrait <= 1 && values.GridHue < 3) << byte;
        EXPECT_TRUE(values.Depth1mmColour < 4 && values.Depth5mmColour < 4) << byte;
        EXPECT_TRUE(values.Depth1mmMono < 8 && values.Depth5mmMono < 8) << byte;
    }
}

}  // namespace
}  // namespace ecg
