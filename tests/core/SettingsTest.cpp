// The settings byte by byte: factory groups, files that are missing, short or long, and the colours derived from them.
#include "core/SettingsBytes.h"
#include "support/TemporaryDataFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <vector>

namespace ecg {
namespace {

constexpr int unset = 0xAA;  // no factory value has this byte

constexpr std::size_t factoryStart = 3916;
constexpr std::array<Byte, 94> factoryBytes{
    // sampling: indices, switches and leads; the nine times of 7500, 150000 and 90000 frames; prompt and end
    0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1, 1, 1, 0, 2, 2, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 2,        //
    0x4C, 0x1D, 0, 0, 0x4C, 0x1D, 0, 0, 0x4C, 0x1D, 0, 0, 0xF0, 0x49, 0x02, 0, 0x4C, 0x1D, 0, 0,  //
    0x4C, 0x1D, 0, 0, 0x4C, 0x1D, 0, 0, 0x4C, 0x1D, 0, 0, 0x90, 0x5F, 0x01, 0, 1, 1,              //
    // report
    0, 0, 1, 0, 1, 1, 3, 2, 0,
    // colours
    255, 255, 0, 0, 255, 0, 80, 80, 0, 0, 0, 0, 30, 30, 30, 15, 15, 15};

TEST(Settings, FactoryGroupsSetTheseBytesAndNoOthers)
{
    constexpr std::tuple<FactoryGroup, std::size_t, std::size_t> groups[]{{FactoryGroup::Sampling, 3916, 3983},
                                                                          {FactoryGroup::Report, 3983, 3992},
                                                                          {FactoryGroup::Colours, 3992, 4010},
                                                                          {FactoryGroup::All, 3916, 4010}};
    for (const auto& [group, first, end] : groups) {
        SysInfo settings = FilledWith(unset);
        SysInfo expected = settings;
        std::memcpy(reinterpret_cast<Byte*>(&expected) + first, &factoryBytes[first - factoryStart], end - first);
        LoadFactorySettings(settings, group, false);
        EXPECT_EQ(FirstDifference(settings, expected), NoDifference) << first << " to " << end;
    }
}

TEST(Settings, AShortFileIsReadAsFarAsItGoesAndALongOneToTheEndOfTheRecord)
{
    const TemporaryDataFolder folder;
    const auto file = folder.File("Sysinfo.par");
    SysInfo settings = FilledWith(unset);
    EXPECT_FALSE(ReadSettings(file, settings));
    EXPECT_EQ(FirstDifference(settings, FilledWith(unset)), NoDifference);
    for (const std::size_t length : {0U, 1U, 24U, 3917U, 4204U, 4205U, 9000U}) {
        std::ofstream(file, std::ios::binary) << std::string(length, 'x');
        settings = FilledWith(unset);
        ASSERT_TRUE(ReadSettings(file, settings));
        SysInfo expected = FilledWith(unset);
        std::memset(static_cast<void*>(&expected), 'x', std::min(length, sizeof expected));
        EXPECT_EQ(FirstDifference(settings, expected), NoDifference) << length;
    }
    ASSERT_TRUE(WriteSettings(file, FilledWith(7)));
    EXPECT_EQ(std::filesystem::file_size(file), 4205U);
    ASSERT_TRUE(ReadSettings(file, settings));
    EXPECT_EQ(FirstDifference(settings, FilledWith(7)), NoDifference);
}

TEST(Settings, PrintColoursFollowModeHueAndDepths)
{
    using Pair = std::pair<Byte, Byte>;  // of the hue's own component and of the two others
    constexpr std::array<Pair, 4> strong{{{210, 80}, {180, 50}, {150, 40}, {120, 30}}};
    constexpr std::array<Pair, 4> fine{{{255, 180}, {255, 160}, {210, 140}, {180, 120}}};
    SysInfo settings;
    const auto inHue = [&](Pair pair) {
        const auto component = [&](Byte i) { return i == settings.GridHue ? pair.first : pair.second; };
        return Colour{component(0), component(1), component(2)};
    };
    for (settings.GridHue = 0; settings.GridHue < 3; ++settings.GridHue)
        for (Byte depth = 0; depth < 4; ++depth) {
            settings.Depth5mmColour = depth;
            settings.Depth1mmColour = static_cast<Byte>(3 - depth);
            EXPECT_EQ(DerivePrintColours(settings).Grid5mm, inHue(strong[depth]));
            EXPECT_EQ(DerivePrintColours(settings).Grid1mm, inHue(fine[3U - depth]));
        }
    settings.PrintMono = 1;
    for (Byte depth = 0; depth < 8; ++depth) {
        settings.Depth5mmMono = depth;
        settings.Depth1mmMono = static_cast<Byte>(7 - depth);
        const auto grey = static_cast<Byte>(175 - 25 * depth);
        const auto fineGrey = static_cast<Byte>(50 + 25 * depth);
        EXPECT_EQ(DerivePrintColours(settings).Grid5mm, (Colour{grey, grey, grey}));
        EXPECT_EQ(DerivePrintColours(settings).Grid1mm, (Colour{fineGrey, fineGrey, fineGrey}));
    }
    settings = FilledWith(0xFF);  // damaged: the factory's
    EXPECT_EQ(DerivePrintColours(settings).Grid5mm, (Colour{180, 50, 50}));
    settings.PrintMono = 1;
    EXPECT_EQ(DerivePrintColours(settings).Grid5mm, (Colour{100, 100, 100}));
    EXPECT_EQ(DerivePrintColours(settings).Grid1mm, (Colour{175, 175, 175}));
}

}  // namespace
}  // namespace ecg
