#include "core/Settings.h"

#include "core/formats/FixedRecordFile.h"
#include "core/formats/RecordSample.h"

#include <array>

namespace ecg {
namespace {

constexpr int factoryGain = 0;
constexpr int factorySpeed = 1;
constexpr int factoryDepth5mmColour = 1;
constexpr int factoryDepth1mmColour = 1;
constexpr int factoryDepth5mmMono = 3;
constexpr int factoryDepth1mmMono = 2;

constexpr std::array<int, ExaminationCount> factorySeconds{15, 15, 15, 300, 15, 15, 15, 15, 180};

void LoadSampling(SysInfo& settings)
{
    settings.LeadSystem = 0;
    settings.GainIndex = factoryGain;
    settings.SpeedIndex = factorySpeed;
    settings.SampleLimit = 0;
    settings.FilterOn = {1, 1, 1};
    settings.FilterIndex = {0, 2, 2};
    settings.LeadShow.fill(1);
    settings.BaselineReturn = 2;
    for (std::size_t i = 0; i < ExaminationCount; ++i)
        settings.SampleTime[i] = factorySeconds[i] * FramesPerSecond;
    settings.LeadPrompt = 1;
    settings.SystemControlTime = 1;
}

void LoadReport(SysInfo& settings, bool printerHasColour)
{
    settings.PrintQuality = 0;
    settings.PrintReserved = 0;
    settings.PrintMono = printerHasColour ? 0 : 1;
    settings.GridHue = 0;
    settings.Depth5mmColour = factoryDepth5mmColour;
    settings.Depth1mmColour = factoryDepth1mmColour;
    settings.Depth5mmMono = factoryDepth5mmMono;
    settings.Depth1mmMono = factoryDepth1mmMono;
    settings.PrintPortrait = 0;
}

void LoadColours(SysInfo& settings)
{
    settings.TraceWatch = {255, 255, 0};
    settings.TraceSave = {0, 255, 0};
    settings.TraceReset = {80, 80, 0};
    settings.PaperBack = {0, 0, 0};
    settings.Grid5mm = {30, 30, 30};
    settings.Grid1mm = {15, 15, 15};
}

std::size_t InRange(int index, int count, int fallback)
{
    return static_cast<std::size_t>(index >= 0 && index < count ? index : fallback);
}

struct HuePair {
    Byte Strong;
    Byte Weak;
};

Colour InHue(int hue, HuePair pair)
{
    Colour colour{pair.Weak, pair.Weak, pair.Weak};
    switch (hue) {
    case 1:
        colour.G = pair.Strong;
        break;
    case 2:
        colour.B = pair.Strong;
        break;
    default:
        colour.R = pair.Strong;
    }
    return colour;
}

Colour Grey(Byte level)
{
    return {level, level, level};
}

}  // namespace

void LoadFactorySettings(SysInfo& settings, FactoryGroup group, bool printerHasColour)
{
    if (group == FactoryGroup::Sampling || group == FactoryGroup::All)
        LoadSampling(settings);
    if (group == FactoryGroup::Report || group == FactoryGroup::All)
        LoadReport(settings, printerHasColour);
    if (group == FactoryGroup::Colours || group == FactoryGroup::All)
        LoadColours(settings);
}

bool ReadSettings(const std::filesystem::path& file, SysInfo& settings)
{
    const auto bytes = OpenFile(file, OpenMode::Read);
    if (!bytes)
        return false;
    FixedRecordFile<SysInfo>(*bytes).ReadInto(1, settings);
    return true;
}

bool WriteSettings(const std::filesystem::path& file, const SysInfo& settings)
{
    return ReplaceFile(file, std::as_bytes(std::span(&settings, 1)));
}

Colour MonoGrid5mm(int depth)
{
    constexpr std::array<Byte, MonoDepthCount> levels{175, 150, 125, 100, 75, 50, 25, 0};
    return Grey(levels[InRange(depth, MonoDepthCount, factoryDepth5mmMono)]);
}

Colour MonoGrid1mm(int depth)
{
    constexpr std::array<Byte, MonoDepthCount> levels{225, 200, 175, 150, 125, 100, 75, 50};
    return Grey(levels[InRange(depth, MonoDepthCount, factoryDepth1mmMono)]);
}

Colour HueGrid5mm(int hue, int depth)
{
    constexpr std::array<HuePair, ColourDepthCount> pairs{{{210, 80}, {180, 50}, {150, 40}, {120, 30}}};
    return InHue(hue, pairs[InRange(depth, ColourDepthCount, factoryDepth5mmColour)]);
}

Colour HueGrid1mm(int hue, int depth)
{
    constexpr std::array<HuePair, ColourDepthCount> pairs{{{255, 180}, {255, 160}, {210, 140}, {180, 120}}};
    return InHue(hue, pairs[InRange(depth, ColourDepthCount, factoryDepth1mmColour)]);
}

PrintColours DerivePrintColours(const SysInfo& settings)
{
    if (settings.PrintMono == 1)
        return {MonoGrid5mm(settings.Depth5mmMono), MonoGrid1mm(settings.Depth1mmMono)};
    return {HueGrid5mm(settings.GridHue, settings.Depth5mmColour),
            HueGrid1mm(settings.GridHue, settings.Depth1mmColour)};
}

std::size_t LiveGainIndex(const SysInfo& settings)
{
    return InRange(settings.GainIndex, LiveGainCount, factoryGain);
}

std::size_t LiveSpeedIndex(const SysInfo& settings)
{
    return InRange(settings.SpeedIndex, LiveSpeedCount, factorySpeed);
}

}  // namespace ecg
