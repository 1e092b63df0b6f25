#include "review/ReviewState.h"

#include "analysis/AboutFile.h"
#include "core/Numbers.h"

#include <algorithm>

namespace ecg {
namespace {

constexpr std::size_t usualIndex = 1;  // 10 mm/mV, 25 mm/s

constexpr std::array<double, EcgFormCount> formWidths{220, 110, 74, 440, 220, 880, 110};  // mm
constexpr double qtWidth = 180;                                                           // mm
constexpr double usualWidth = 220;                                                        // mm

std::size_t InTable(Byte index, std::size_t size)
{
    return index < size ? index : usualIndex;
}

}  // namespace

std::size_t ReviewGainIndex(const RecordHeader& header)
{
    return InTable(header.GainIndex, ReviewGains.size());
}

std::size_t ReviewSpeedIndex(const RecordHeader& header)
{
    return InTable(header.SpeedIndex, ReviewSpeeds.size());
}

ViewScale ScaleOf(const RecordHeader& header)
{
    return {ReviewGains[ReviewGainIndex(header)], ReviewSpeeds[ReviewSpeedIndex(header)]};
}

bool HasTraces(ReviewMode mode)
{
    return mode == ReviewMode::Ecg || mode == ReviewMode::QtDispersion || mode == ReviewMode::Pacing;
}

double ViewWidth(const ReviewState& state)
{
    switch (state.Mode) {
    case ReviewMode::Ecg:
        return formWidths[static_cast<std::size_t>(state.Form)];
    case ReviewMode::QtDispersion:
        return qtWidth;
    default:
        return usualWidth;
    }
}

std::int32_t SamplesInView(double width, double speed)
{
    return std::min(RoundToInt(width * FramesPerSecond / speed), static_cast<std::int32_t>(AboutFile::ViewColumns));
}

std::int32_t StartOfScroll(int value, std::int32_t slotCount, std::int32_t samplesInView)
{
    constexpr auto first = static_cast<std::int32_t>(FirstSampleSlot);
    const std::int32_t spare = std::max(slotCount - first - samplesInView, 0);
    return first + RoundToInt(static_cast<double>(std::clamp(value, 0, ScrollRange)) * spare / ScrollRange);
}

int ScrollOfStart(std::int32_t blockStart, std::int32_t slotCount)
{
    constexpr auto first = static_cast<std::int32_t>(FirstSampleSlot);
    if (slotCount <= first)
        return -1;
    const double value =
        static_cast<double>(ScrollRange) * (static_cast<double>(blockStart) - first) / (slotCount - first);
    return value < 0 || value > ScrollRange ? -1 : RoundToInt(value);
}

}  // namespace ecg
