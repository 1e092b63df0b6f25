// What can be typed as a sampling time, and what a draft makes of settings that no window ever wrote.
#include "core/SettingsDraft.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

namespace ecg {
namespace {

SysInfo FactorySettings()
{
    SysInfo settings;
    LoadFactorySettings(settings, FactoryGroup::All, false);
    return settings;
}

struct Refused {
    const char* name;
    std::string typed;
    SecondsFault fault;
};

class RefusedTimes : public testing::TestWithParam<Refused> {};

TEST_P(RefusedTimes, AreNamedWithTheirBox)
{
    for (const std::size_t box : {0U, 8U}) {
        SettingsDraft draft(FactorySettings());
        draft.Seconds[box] = GetParam().typed;
        const auto refusal = draft.Check();
        ASSERT_TRUE(refusal.has_value());
        EXPECT_EQ(refusal->Fault, GetParam().fault);
        EXPECT_EQ(refusal->Box, box);
        EXPECT_EQ(draft.Accepted().SampleTime[box], FactorySettings().SampleTime[box]);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Typed, RefusedTimes,
    testing::Values(
        Refused{"nothing", "", SecondsFault::NotANumber}, Refused{"blanks", "  ", SecondsFault::NotANumber},
        Refused{"a_word", "ten", SecondsFault::NotANumber}, Refused{"a_unit", "15s", SecondsFault::NotANumber},
        Refused{"two_numbers", "15 20", SecondsFault::NotANumber},
        Refused{"two_points", "1.5.0", SecondsFault::NotANumber},
        Refused{"a_point_alone", ".", SecondsFault::NotANumber}, Refused{"a_comma", "15,5", SecondsFault::NotANumber},
        Refused{"an_exponent", "1e3", SecondsFault::NotANumber},
        Refused{"hexadecimal", "0x20", SecondsFault::NotANumber}, Refused{"infinity", "inf", SecondsFault::NotANumber},
        Refused{"nan", "nan", SecondsFault::NotANumber},
        Refused{"endless", std::string(5000, '9'), SecondsFault::NotANumber},
        Refused{"nine", "9", SecondsFault::TooShort}, Refused{"just_below", "9.999", SecondsFault::TooShort},
        Refused{"zero", "0", SecondsFault::TooShort}, Refused{"negative", "-15", SecondsFault::TooShort},
        Refused{"one_too_long", "4294968", SecondsFault::TooLong},
        Refused{"far_too_long", std::string(60, '9'), SecondsFault::TooLong}),
    [](const auto& tested) { return tested.param.name; });

TEST(SettingsDraft, AcceptedSecondsBecomeFramesRoundedTiesToEven)
{
    const std::vector<std::pair<std::string, std::int32_t>> accepted{
        {"10", 5000},     {" 15 ", 7500},   {"10.001", 5000}, // 5000.5 frames
        {"10.003", 5002},                                     // 5001.5 frames
        {"12.5", 6250},   {"0015.0", 7500}, {"15.", 7500},    {"4294967", 2147483500}};
    for (const auto& [typed, frames] : accepted) {
        SettingsDraft draft(FactorySettings());
        draft.Seconds[4] = typed;
        EXPECT_FALSE(draft.Check().has_value()) << typed;
        EXPECT_EQ(draft.Accepted().SampleTime[4], frames) << typed;
    }
}

TEST(SettingsDraft, TheFirstRefusedBoxIsNamedWhateverTheFault)
{
    SettingsDraft draft(FactorySettings());
    draft.Seconds[6] = "x";
    draft.Seconds[2] = "9";
    EXPECT_EQ(draft.Check()->Box, 2U);
    EXPECT_EQ(draft.Check()->Fault, SecondsFault::TooShort);
}

TEST(SettingsDraft, EveryStoredTimeComesBackAsItWas)
{
    for (const std::int32_t frames : {5000, 5001, 7499, 7500, 123457, 2147483500}) {
        SysInfo settings = FactorySettings();
        settings.SampleTime[3] = frames;
        EXPECT_EQ(SettingsDraft(settings).Accepted().SampleTime[3], frames);
    }
}

TEST(SettingsDraft, ADamagedRecordShowsAsAValidOne)
{
    for (int byte = 0; byte < 256; ++byte) {
        SysInfo settings;
        std::memset(static_cast<void*>(&settings), byte, sizeof settings);
        const SettingsDraft draft(settings);
        EXPECT_FALSE(draft.Check().has_value()) << byte;
        const SysInfo& values = draft.Values;
        for (std::size_t i = 0; i < values.FilterIndex.size(); ++i)
            EXPECT_LT(values.FilterIndex[i], FilterChoiceCounts[i]);
        for (const Byte show : values.LeadShow)
            EXPECT_LE(show, 1);
        EXPECT_LE(values.PrintMono, 1);
        EXPECT_LE(values.PrintPortrait, 1);
        EXPECT_LT(values.GridHue, 3);
        EXPECT_LT(values.Depth1mmColour, 4);
        EXPECT_LT(values.Depth5mmColour, 4);
        EXPECT_LT(values.Depth1mmMono, 8);
        EXPECT_LT(values.Depth5mmMono, 8);
    }
}

TEST(SettingsDraft, FactoryTimesReplaceWhatWasTyped)
{
    SettingsDraft draft(FactorySettings());
    draft.Seconds[0] = "rubbish";
    draft.LoadFactory(FactoryGroup::Colours, false);
    EXPECT_EQ(draft.Seconds[0], "rubbish");
    draft.LoadFactory(FactoryGroup::Sampling, false);
    EXPECT_EQ(draft.Seconds[0], "15");
    EXPECT_EQ(draft.Seconds[8], "180");
}

} // namespace
} // namespace ecg
