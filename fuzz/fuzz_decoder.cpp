// Any bytes at the port: what comes out of the decoder is always a frame of the right kind.
//
//   byte 0: key of the stream   byte 1: bit 0 lead system   byte 2: bytes a chunk, less 1   rest: the stream
#include "acquisition/FrameDecoder.h"
#include "acquisition/FramePath.h"
#include "fuzz/Require.h"

#include <algorithm>
#include <vector>

namespace ecg::fuzz {
namespace {

constexpr std::size_t limbs = 4;
constexpr std::size_t frankChannels = 6;

enum class Contact { Unknown, On, Off };

class RequiringPathSink final : public FramePathSink {
public:
    void OnBeat(int rrCount) override { Require(rrCount >= 125 && rrCount <= 1000, "beats keep their distance"); }
    void OnSilence() override {}
    void OnSampledTime(LeadSystem, std::int32_t) override { Require(false, "no time is told while nothing samples"); }
    void OnColumn(LeadSystem, const RecordSample& sample, bool) override
    {
        const unsigned word = static_cast<std::uint16_t>(sample.Words[0]);
        Require((word & ~unsigned{SampleMask | BeatMark}) == 0, "only the beat mark is added to channel 0");
    }
};

// Keeps its own account of the electrodes, and holds every frame against it.
class RequiringSink final : public FrameSink {
public:
    explicit RequiringSink(LeadSystem system) : system_(system), path_(state_, pathSink_)
    {
        LoadFactorySettings(state_.SysInfo, FactoryGroup::All, true);
    }

    const std::vector<Frame>& Frames() const { return frames_; }

    void OnFrame(const Frame& frame) override
    {
        const auto isSignal = [](int value) { return value >= 0 && value <= SampleMask; };
        Require(std::all_of(frame.begin(), frame.end(), isSignal), "values have 12 bits");
        Require(reconnected_ == IsReconnected(), "a recovery begins when an electrode comes back, and only then");
        RequireBlanks(frame);
        atLastFrame_ = contacts_;
        reconnected_ = false;
        frames_.push_back(frame);
        if (system_ == LeadSystem::Wilson)
            path_.ProcessWilsonFrame(frame);
        else
            path_.ProcessFrankFrame(frame);
    }
    void OnElectrode(std::size_t electrode, bool off) override
    {
        Require(electrode < contacts_.size(), "there are ten electrodes");
        const Contact now = off ? Contact::Off : Contact::On;
        Require(contacts_[electrode] != now, "an electrode is told when it changes");
        contacts_[electrode] = now;
    }
    void OnFilterState(wire::Filter filter, int code) override
    {
        Require(code >= 0 && code < (filter == wire::Filter::Ac ? 4 : 8), "filter codes have 2 or 3 bits");
        wire::FilterStateLabel(filter, code);
    }
    void OnReconnect() override { reconnected_ = true; }

private:
    bool IsReconnected() const
    {
        for (std::size_t i = 0; i < contacts_.size(); ++i)
            if (atLastFrame_[i] == Contact::Off && contacts_[i] == Contact::On)
                return true;
        return false;
    }

    // Which channels a missing electrode leaves without a signal. Before the first word of a chest electrode its
    // channel may hold anything.
    void RequireBlanks(const Frame& frame) const
    {
        const auto isMissing = [](Contact contact) { return contact != Contact::On; };
        const bool frank = system_ == LeadSystem::Frank;
        const auto common = std::span(contacts_).first(frank ? contacts_.size() : limbs);
        const bool allBlank = std::ranges::any_of(common, isMissing);
        for (std::size_t channel = 0; channel < (frank ? frankChannels : frame.size()); ++channel) {
            const bool chestOff = channel + 2 >= limbs && contacts_[channel + 2] == Contact::Off;
            Require(frame[channel] == ZeroLevel || !(allBlank || chestOff), "a missing electrode blanks its channels");
        }
    }

    LeadSystem system_;
    std::array<Contact, ElectrodeCount> contacts_{};
    std::array<Contact, ElectrodeCount> atLastFrame_{};
    bool reconnected_ = false;
    std::vector<Frame> frames_;
    SharedState state_;
    RequiringPathSink pathSink_;
    FramePath path_;
};

std::vector<Frame> Decode(std::span<const std::uint8_t> bytes, std::uint8_t key, LeadSystem system, std::size_t chunk)
{
    RequiringSink sink(system);
    FrameDecoder decoder(sink);
    decoder.Restart(key);
    decoder.SetLeadSystem(system);
    for (std::size_t at = 0; at < bytes.size(); at += chunk)
        decoder.Receive(bytes.subspan(at, std::min(chunk, bytes.size() - at)));
    return sink.Frames();
}

void TestDecoder(std::span<const std::uint8_t> input)
{
    constexpr std::size_t headSize = 3;
    if (input.size() < headSize)
        return;
    const std::uint8_t key = input[0];
    const LeadSystem system = input[1] % 2 == 1 ? LeadSystem::Frank : LeadSystem::Wilson;
    const std::size_t chunk = std::size_t{input[2]} + 1;
    const auto bytes = input.subspan(headSize);

    const auto frames = Decode(bytes, key, system, chunk);
    const auto starts =
        std::count_if(bytes.begin(), bytes.end(), [key](std::uint8_t byte) { return (byte ^ key) > 127; });
    Require(frames.size() == static_cast<std::size_t>(starts), "every start byte delivers one frame");
    Require(frames == Decode(bytes, key, system, bytes.size() + 1), "chunks make no difference");
}

}  // namespace
}  // namespace ecg::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ecg::fuzz::TestDecoder({data, size});
    return 0;
}
