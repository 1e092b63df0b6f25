// Finds the heart beats in the stream, frame by frame.
//
// A beat is a rise over 20 ms (10 frames) that is above half the largest such rise of the last two seconds, not
// earlier than 250 ms and not later than two seconds behind the beat before it. The mark falls on the rising edge, not
// on the peak of R.
//
// The largest rise is taken over the positions of the ring in plain order, not along time: the step across the place
// of writing counts as a rise although it is none. That is meant, as stored records carry marks made this way.
#pragma once

#include "core/formats/RecordSample.h"

#include <array>
#include <cstdint>
#include <vector>

namespace ecg {

// The largest of a row of numbers of which single ones change: a binary tree of maxima.
class RunningMaximum {
public:
    // `count` numbers, all of them `lowest`.
    explicit RunningMaximum(std::size_t count, std::int32_t lowest = 0);

    void Set(std::size_t position, std::int32_t value);  // position below `count`
    std::int32_t Largest() const { return tree_[1]; }

private:
    std::size_t leaves_;
    std::vector<std::int32_t> tree_;  // node n is above nodes 2n and 2n + 1
};

class BeatDetector {
public:
    struct Result {
        RecordSample Marked;  // the frame, with `BeatMark` in channel 0 when a beat was found here
        bool Beat = false;
        bool Silent = false;  // two seconds without a beat are over: the rate is not known any more
        int RrCount = 0;      // with a beat: the count behind the beat before it, 125 to 1000
    };

    BeatDetector();

    // Takes the next frame; watches channel `heartChannel` (0 to 7; any other watches channel 0).
    Result DetectBeat(const Frame& frame, int heartChannel);

private:
    static constexpr std::size_t RingSize = 1000;  // frames: two seconds
    static constexpr std::size_t RiseSpan = 10;    // frames: 20 ms

    void Watch(std::size_t channel);
    void UpdateRise(std::size_t position);

    std::array<Frame, RingSize> ring_{};
    std::size_t index_ = 0;
    std::size_t channel_ = 0;
    int rrCount_ = 0;  // frames since the last beat
    RunningMaximum rises_;
};

}  // namespace ecg
