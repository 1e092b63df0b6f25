#include "wfdb/RecordingFrames.h"

#include "AmplifierScale.h"
#include "wfdb/Resample.h"

#include <algorithm>
#include <array>
#include <functional>
#include <initializer_list>
#include <optional>

namespace ecg {
namespace {

using Lead = std::vector<double>;  // millivolts at the recording's rate; empty = the recording lacks it

Lead FindLead(const Recording& recording, std::initializer_list<std::string_view> names)
{
    for (const std::string_view name : names)
        if (const RecordedSignal* signal = recording.Find(name))
            return signal->Millivolts;
    return {};
}

// a op b, sample by sample; empty when either lead is.
template <class Operation>
Lead Combine(const Lead& a, const Lead& b, Operation operation)
{
    Lead result(std::min(a.size(), b.size()));
    std::transform(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(result.size()), b.begin(), result.begin(),
                   operation);
    return result;
}

// Lengthens `frames` to what a lead at `rate` fills.
void MakeRoom(std::vector<Frame>& frames, std::size_t count, const Frame& empty)
{
    if (frames.size() < count)
        frames.resize(count, empty);
}

Frame ZeroSignal()
{
    Frame frame{};
    frame.fill(ZeroLevel);
    return frame;
}

}  // namespace

std::vector<Frame> WilsonFrames(const Recording& recording)
{
    std::array<Lead, ChannelCount> leads{FindLead(recording, {"ii", "mlii"}), FindLead(recording, {"iii"}),
                                         FindLead(recording, {"v1"}),         FindLead(recording, {"v2"}),
                                         FindLead(recording, {"v3"}),         FindLead(recording, {"v4"}),
                                         FindLead(recording, {"v5"}),         FindLead(recording, {"v6"})};
    Lead& two = leads[0];
    Lead& three = leads[1];
    const Lead one = FindLead(recording, {"i"});
    if (two.empty())
        two = Combine(one, three, std::plus<>());
    else if (three.empty())
        three = Combine(two, one, std::minus<>());

    std::vector<Frame> frames;
    for (std::size_t channel = 0; channel < leads.size(); ++channel) {
        const Lead lead = Resample(leads[channel], recording.Rate, FramesPerSecond);
        MakeRoom(frames, lead.size(), ZeroSignal());
        for (std::size_t i = 0; i < lead.size(); ++i)
            frames[i][channel] = WordOfMillivolts(lead[i]);
    }
    return frames;
}

std::vector<Frame> FrankFrames(const Recording& recording)
{
    constexpr std::size_t axes = 3;
    constexpr int samplesPerFrame = 2;  // a frame holds two moments 1 ms apart
    const std::array<Lead, axes> leads{FindLead(recording, {"vx", "x"}), FindLead(recording, {"vy", "y"}),
                                       FindLead(recording, {"vz", "z"})};
    if (std::ranges::any_of(leads, &Lead::empty))
        return {};
    std::vector<Frame> frames;
    for (std::size_t axis = 0; axis < axes; ++axis) {
        const Lead lead = Resample(leads[axis], recording.Rate, samplesPerFrame * FramesPerSecond);
        MakeRoom(frames, lead.size() / samplesPerFrame, Frame{});
        for (std::size_t i = 0; i < frames.size(); ++i) {
            frames[i][axis] = WordOfMillivolts(lead[samplesPerFrame * i]);
            frames[i][axes + axis] = WordOfMillivolts(lead[samplesPerFrame * i + 1]);
        }
    }
    return frames;
}

}  // namespace ecg
