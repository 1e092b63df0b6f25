// The settings file byte by byte: factory values, groups, files that are too short, too long or cannot be written.
#include "core/Settings.h"

#include "support/TemporaryDataFolder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>

namespace ecg {
namespace {

using Bytes = std::vector<int>;

constexpr int unset = 0xAA; // no factory value has this byte

SysInfo FilledWith(int byte)
{
    SysInfo settings;
    std::memset(static_cast<void*>(&settings), byte, sizeof settings);
    return settings;
}

Bytes BytesOf(const SysInfo& settings, std::size_t first, std::size_t end)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(&settings);
    return {bytes + first, bytes + end};
}

void WriteFile(const std::filesystem::path& file, const std::string& bytes)
{
    std::ofstream(file, std::ios::binary) << bytes;
}

TEST(Settings, FactoryValuesAreTheseBytes)
{
    SysInfo settings = FilledWith(unset);
    LoadFactorySettings(settings, FactoryGroup::All, false);
    EXPECT_EQ(BytesOf(settings, 3916, 3945),
              (Bytes{0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1, 1, 1, 0, 2, 2, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 2}));
    const Bytes s15{0x4C, 0x1D, 0, 0};     // 7500 frames
    const Bytes s300{0xF0, 0x49, 0x02, 0}; // 150000 frames
    const Bytes s180{0x90, 0x5F, 0x01, 0}; // 90000 frames
    Bytes times;
    for (const Bytes& time : {s15, s15, s15, s300, s15, s15, s15, s15, s180})
        times.insert(times.end(), time.begin(), time.end());
    EXPECT_EQ(BytesOf(settings, 3945, 3981), times);
    EXPECT_EQ(BytesOf(settings, 3981, 3992), (Bytes{1, 1, 0, 0, 1, 0, 1, 1, 3, 2, 0}));
    EXPECT_EQ(BytesOf(settings, 3992, 4010),
              (Bytes{255, 255, 0, 0, 255, 0, 80, 80, 0, 0, 0, 0, 30, 30, 30, 15, 15, 15}));
}

TEST(Settings, OnAColourPrinterTheFactoryGridIsColoured)
{
    SysInfo settings;
    LoadFactorySettings(settings, FactoryGroup::Report, true);
    EXPECT_EQ(settings.PrintMono, 0);
}

struct GroupRange {
    const char* name;
    FactoryGroup group;
    std::size_t first;
    std::size_t end;
};

class FactoryGroups : public testing::TestWithParam<GroupRange> {};

TEST_P(FactoryGroups, SetAllOfTheirBytesAndNoOthers)
{
    SysInfo settings = FilledWith(unset);
    LoadFactorySettings(settings, GetParam().group, false);
    const Bytes bytes = BytesOf(settings, 0, sizeof settings);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        EXPECT_EQ(bytes[i] != unset, i >= GetParam().first && i < GetParam().end) << "byte " << i;
}

INSTANTIATE_TEST_SUITE_P(Groups, FactoryGroups,
                         testing::Values(GroupRange{"sampling", FactoryGroup::Sampling, 3916, 3983},
                                         GroupRange{"report", FactoryGroup::Report, 3983, 3992},
                                         GroupRange{"colours", FactoryGroup::Colours, 3992, 4010},
                                         GroupRange{"all", FactoryGroup::All, 3916, 4010}),
                         [](const auto& tested) { return tested.param.name; });

TEST(Settings, AShortFileIsReadAsFarAsItGoesAndALongOneToTheEndOfTheRecord)
{
    const TemporaryDataFolder folder;
    for (const std::size_t length : {0U, 1U, 24U, 3917U, 4204U, 4205U, 9000U}) {
        WriteFile(folder.File("Sysinfo.par"), std::string(length, 'x'));
        SysInfo settings = FilledWith(unset);
        ASSERT_TRUE(ReadSettings(folder.File("Sysinfo.par"), settings));
        const std::size_t read = std::min(length, sizeof settings);
        EXPECT_EQ(BytesOf(settings, 0, read), Bytes(read, 'x')) << length;
        EXPECT_EQ(BytesOf(settings, read, sizeof settings), Bytes(sizeof settings - read, unset)) << length;
    }
}

TEST(Settings, AMissingFileChangesNothing)
{
    const TemporaryDataFolder folder;
    SysInfo settings = FilledWith(unset);
    EXPECT_FALSE(ReadSettings(folder.File("Sysinfo.par"), settings));
    EXPECT_EQ(BytesOf(settings, 0, sizeof settings), Bytes(sizeof settings, unset));
}

TEST(Settings, WhatIsWrittenIsTheWholeFile)
{
    const TemporaryDataFolder folder;
    WriteFile(folder.File("Sysinfo.par"), std::string(9000, 'x'));
    ASSERT_TRUE(WriteSettings(folder.File("Sysinfo.par"), FilledWith(7)));
    EXPECT_EQ(std::filesystem::file_size(folder.File("Sysinfo.par")), 4205U);
    SysInfo settings;
    ASSERT_TRUE(ReadSettings(folder.File("Sysinfo.par"), settings));
    EXPECT_EQ(BytesOf(settings, 0, sizeof settings), Bytes(sizeof settings, 7));
}

TEST(Settings, AFailedWriteLeavesTheOldFile)
{
    const TemporaryDataFolder folder;
    ASSERT_TRUE(WriteSettings(folder.File("Sysinfo.par"), FilledWith(7)));
    std::filesystem::create_directory(folder.File("Sysinfo.par.new")); // where the new file would be written aside
    EXPECT_FALSE(WriteSettings(folder.File("Sysinfo.par"), FilledWith(8)));
    SysInfo settings;
    ASSERT_TRUE(ReadSettings(folder.File("Sysinfo.par"), settings));
    EXPECT_EQ(BytesOf(settings, 0, sizeof settings), Bytes(sizeof settings, 7));
}

TEST(Settings, MonoPrintColoursFollowTheDepths)
{
    constexpr std::array<std::uint8_t, 8> strong{175, 150, 125, 100, 75, 50, 25, 0};
    constexpr std::array<std::uint8_t, 8> fine{225, 200, 175, 150, 125, 100, 75, 50};
    SysInfo settings;
    settings.PrintMono = 1;
    for (Byte depth = 0; depth < 8; ++depth) {
        settings.Depth5mmMono = depth;
        settings.Depth1mmMono = static_cast<Byte>(7 - depth);
        const PrintColours colours = DerivePrintColours(settings);
        const std::uint8_t level = strong[depth];
        const std::uint8_t fineLevel = fine[7U - depth];
        EXPECT_EQ(colours.Grid5mm, (Colour{level, level, level}));
        EXPECT_EQ(colours.Grid1mm, (Colour{fineLevel, fineLevel, fineLevel}));
    }
}

TEST(Settings, ColourPrintColoursFollowHueAndDepths)
{
    SysInfo settings;
    settings.PrintMono = 0;
    settings.Depth5mmColour = 2; // 150 and 40
    settings.Depth1mmColour = 3; // 180 and 120
    const std::array<PrintColours, 3> expected{
        {{{150, 40, 40}, {180, 120, 120}}, {{40, 150, 40}, {120, 180, 120}}, {{40, 40, 150}, {120, 120, 180}}}};
    for (Byte hue = 0; hue < 3; ++hue) {
        settings.GridHue = hue;
        EXPECT_EQ(DerivePrintColours(settings).Grid5mm, expected[hue].Grid5mm);
        EXPECT_EQ(DerivePrintColours(settings).Grid1mm, expected[hue].Grid1mm);
    }
    constexpr std::array<Colour, 4> strong{{{210, 80, 80}, {180, 50, 50}, {150, 40, 40}, {120, 30, 30}}};
    constexpr std::array<Colour, 4> fine{{{255, 180, 180}, {255, 160, 160}, {210, 140, 140}, {180, 120, 120}}};
    for (int depth = 0; depth < 4; ++depth) {
        EXPECT_EQ(HueGrid5mm(0, depth), strong[static_cast<std::size_t>(depth)]);
        EXPECT_EQ(HueGrid1mm(0, depth), fine[static_cast<std::size_t>(depth)]);
    }
}

TEST(Settings, DamagedPrintFieldsGiveTheFactoryColours)
{
    SysInfo settings = FilledWith(0xFF);
    EXPECT_EQ(DerivePrintColours(settings).Grid5mm, (Colour{180, 50, 50}));
    settings.PrintMono = 1;
    EXPECT_EQ(DerivePrintColours(settings).Grid5mm, (Colour{100, 100, 100}));
    EXPECT_EQ(DerivePrintColours(settings).Grid1mm, (Colour{175, 175, 175}));
}

} // namespace
} // namespace ecg
