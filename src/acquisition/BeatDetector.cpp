#include "acquisition/BeatDetector.h"

#include <algorithm>
#include <bit>

namespace ecg {
namespace {

constexpr std::int32_t smallestMaximum = 30;  // counts; below it a signal is flat
constexpr int refractoryFrames = 125;
constexpr int silenceFrames = 1000;

}  // namespace

RunningMaximum::RunningMaximum(std::size_t count, std::int32_t lowest)
    : leaves_(std::bit_ceil(std::max<std::size_t>(count, 2))), tree_(2 * leaves_, lowest)
{}

void RunningMaximum::Set(std::size_t position, std::int32_t value)
{
    std::size_t node = leaves_ + position;
    tree_[node] = value;
    while (node > 1) {
        const std::int32_t larger = std::max(tree_[node], tree_[node ^ 1]);
        node /= 2;
        if (tree_[node] == larger)
            return;
        tree_[node] = larger;
    }
}

// Only rises count, so the numbers are kept from 0 upwards.
BeatDetector::BeatDetector() : rises_(RingSize) {}

void BeatDetector::Watch(std::size_t channel)
{
    channel_ = channel;
    for (std::size_t i = RiseSpan; i < RingSize; ++i)
        UpdateRise(i);
}

// Positions before the first whole span have no rise of their own: the scan does not wrap around.
void BeatDetector::UpdateRise(std::size_t position)
{
    if (position >= RiseSpan && position < RingSize)
        rises_.Set(position, std::max(0, ring_[position][channel_] - ring_[position - RiseSpan][channel_]));
}

BeatDetector::Result BeatDetector::DetectBeat(const Frame& frame, int heartChannel)
{
    const std::size_t channel =
        heartChannel >= 0 && heartChannel < ChannelCount ? static_cast<std::size_t>(heartChannel) : 0;
    if (channel != channel_)
        Watch(channel);
    const std::int32_t maxSlope = std::max(rises_.Largest(), smallestMaximum);

    index_ = (index_ + 1) % RingSize;
    ring_[index_] = frame;
    UpdateRise(index_);
    UpdateRise(index_ + RiseSpan);

    const std::size_t before = (index_ + RingSize - RiseSpan) % RingSize;
    const std::int32_t rise = ring_[index_][channel] - ring_[before][channel];

    Result result;
    result.Marked = ToSample(frame);
    // The count is tested before this frame is counted, so beats 126 to 1001 frames apart are accepted.
    result.Beat = 2 * rise > maxSlope && rrCount_ >= refractoryFrames && rrCount_ <= silenceFrames;
    if (result.Beat) {
        result.RrCount = rrCount_;
        rrCount_ = 0;
        result.Marked.Words[0] = static_cast<std::int16_t>(frame[0] | BeatMark);
    } else if (++rrCount_ > silenceFrames) {
        rrCount_ = 0;
        result.Silent = true;
    }
    return result;
}

}  // namespace ecg
