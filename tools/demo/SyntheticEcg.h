// Frames of a heart whose every wave is known: the source of the demonstration files and of tests.
//
//   SyntheticEcg ecg({.Seconds = 20, .BeatsPerMinute = 60, .NoiseMicrovolts = 0});
//   ecg.WilsonFrames();  // 10000 frames
//   ecg.Heart().Beats(); // the true onsets
//
// Frame i is taken at i / 500 seconds.
#pragma once

#include "core/formats/RecordSample.h"
#include "demo/HeartModel.h"

#include <vector>

namespace ecg {

class SyntheticEcg {
public:
    explicit SyntheticEcg(const EcgOptions& options) : options_(Limited(options)), heart_(options) {}

    // One period of II, III, V1 to V6, as the box sends them and a record holds them.
    std::vector<Frame> WilsonFrames() const;

    // One period of X, Y, Z and the same one millisecond later; channels 6 and 7 are 0.
    std::vector<Frame> FrankFrames() const;

    const HeartModel& Heart() const& { return heart_; }
    const HeartModel& Heart() && = delete;  // it would be gone before its beats are read

private:
    std::size_t FrameCount() const;
    std::vector<std::vector<double>> ChannelNoise(std::size_t channels) const;

    EcgOptions options_;
    HeartModel heart_;
};

}  // namespace ecg
