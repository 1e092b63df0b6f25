#include "rate/RateTrend.h"

#include "core/EventClock.h"
#include "core/Numbers.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace ecg {
namespace {

constexpr std::int32_t nearSlots = 1250;  // 2.5 seconds
constexpr auto firstSlot = static_cast<std::int32_t>(FirstSampleSlot);

RateView ViewOf(std::span<const Byte> rates)
{
    RateView view{.Rates = rates.first(std::min(rates.size(), RateView::Columns))};
    for (const int rate : view.Rates) {
        if (rate == RateOutOfRange)
            continue;
        ++view.PointsShown;
        view.Highest = std::max(view.Highest, rate);
        view.Lowest = std::min(view.Lowest, rate);
    }
    return view;
}

}  // namespace

RateTrend::RateTrend(const RecordHeader& header, BeatTable beats) : header_(header), beats_(std::move(beats))
{
    Scroll(0);
}

void RateTrend::Scroll(int value)
{
    const double way = static_cast<double>(std::clamp(value, 0, ScrollRange)) / ScrollRange;
    viewOffset_ = HasRates() ? RoundToInt(way * (beats_.BeatTotal() - 2)) : 0;
    view_ = ViewOf(std::span<const Byte>(beats_.BeatRates).subspan(static_cast<std::size_t>(viewOffset_)));
}

int RateTrend::ScrollStep(int beats) const
{
    const int range = std::max(beats_.BeatTotal() - 2, 1);
    return std::clamp(RoundToInt(static_cast<double>(beats) * ScrollRange / range), 1, ScrollRange);
}

void RateTrend::MoveCursor(int pixels)
{
    const int room = CursorLast - CursorFirst;
    cursorLeft_ = std::clamp(cursorLeft_ + std::clamp(pixels, -room, room), CursorFirst, CursorLast);
}

std::optional<std::size_t> RateTrend::CursorBeat() const
{
    const int column = CursorColumn();
    if (view_.PointsShown < column)
        return std::nullopt;
    return static_cast<std::size_t>(viewOffset_ + column - 1);
}

std::optional<std::int32_t> RateTrend::CursorSlot() const
{
    const auto beat = CursorBeat();
    return beat ? std::optional(beats_.BeatSlots[*beat]) : std::nullopt;
}

std::optional<Byte> RateTrend::CursorRate() const
{
    const auto beat = CursorBeat();
    return beat ? std::optional(beats_.BeatRates[*beat]) : std::nullopt;
}

std::string RateTrend::StartTime() const
{
    return LaidOutTime(header_.ExamTime.Text());
}

std::string RateTrend::TimeOf(std::int32_t slot) const
{
    return EventClock(StartTime(), std::max(slot - firstSlot, 1));
}

std::optional<NearEvent> RateTrend::EventNear(std::int32_t slot) const
{
    for (std::size_t i = 0; i < header_.EventPos.size(); ++i) {
        const std::int32_t position = header_.EventPos[i];
        if (position >= 1 && std::abs(position - slot) < nearSlots)
            return NearEvent{EventClock(StartTime(), position - firstSlot), header_.EventText[i].Text()};
    }
    return std::nullopt;
}

std::int32_t RateTrend::BlockStartFor(std::int32_t slot)
{
    return std::max(slot - nearSlots, firstSlot);
}

}  // namespace ecg
