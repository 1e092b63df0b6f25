#include "acquisition/FrameDecoder.h"

#include <algorithm>
#include <utility>

namespace ecg {
namespace {

constexpr std::uint8_t startBit = 0x80;
constexpr std::uint8_t flagBit = 0x40;
constexpr std::uint8_t dataBits = 0x3F;
constexpr int highScale = 64;

constexpr std::uint8_t electrodeOff = 64;
constexpr std::uint8_t electrodeUnknown = 255;
constexpr std::size_t limbElectrodes = 4;
constexpr std::size_t frankChannels = 6;

// Bytes 16 to 31 repeat the channels of 0 to 15 and carry no flags, and so would all that follow without a start
// byte; going round among them keeps the position from growing for ever.
constexpr int roundPos = 16;
constexpr int endPos = 32;

constexpr int notReported = -1;

// Which flags of a status frame are the state of a filter, lowest bit first.
struct FilterFlags {
    wire::Filter Filter;
    int First;
    int Last;
};
constexpr std::array<FilterFlags, wire::FilterCount> filterFlags{
    {{wire::Filter::Ac, 1, 2}, {wire::Filter::Baseline, 3, 5}, {wire::Filter::Muscle, 6, 8}}};

}  // namespace

FrameDecoder::FrameDecoder(FrameSink& sink) : sink_(sink)
{
    Restart(0);
}

void FrameDecoder::Restart(std::uint8_t streamKey)
{
    streamKey_ = streamKey;
    framePos_ = 0;
    frameIsStatus_ = false;
    frameDropped_ = false;
    curFrame_ = {};
    leadOff_.fill(electrodeUnknown);
    lastLeadOff_ = {};
    filterState_ = {};
    reportedState_.fill(notReported);
}

void FrameDecoder::Receive(std::span<const std::uint8_t> bytes)
{
    for (const std::uint8_t scrambled : bytes) {
        const auto byte = static_cast<std::uint8_t>(scrambled ^ streamKey_);
        if ((byte & startBit) != 0) {
            StartFrame(byte);
        } else {
            if (++framePos_ == endPos)
                framePos_ = roundPos;
            TakeFlag((byte & flagBit) != 0);
        }
        auto& word = curFrame_[static_cast<std::size_t>(framePos_ / 2 % ChannelCount)];
        const int data = byte & dataBits;
        // A low half always follows the high half of the same frame, so the sum stays within 12 bits. Only the very
        // first byte of a stream can be a lone low half; it meets a word that is 0.
        word = static_cast<std::int16_t>(framePos_ % 2 == 1 ? word + data : data * highScale);
    }
}

void FrameDecoder::StartFrame(std::uint8_t byte)
{
    framePos_ = 0;
    frameIsStatus_ = (byte & flagBit) != 0;
    FindReconnect();
    if (std::exchange(frameDropped_, false))
        return;
    if (leadSystem_ == LeadSystem::Wilson)
        BlankMissingWilsonLeads();
    else
        BlankMissingFrankLeads();
    sink_.OnFrame(curFrame_);
}

void FrameDecoder::FindReconnect()
{
    bool reconnected = false;
    for (std::size_t i = 0; i < ElectrodeCount; ++i)
        reconnected |= lastLeadOff_[i] == electrodeOff && leadOff_[i] == 0;
    lastLeadOff_ = leadOff_;
    if (reconnected)
        sink_.OnReconnect();
}

void FrameDecoder::BlankMissingWilsonLeads()
{
    const auto limbs = std::span(leadOff_).first(limbElectrodes);
    if (std::any_of(limbs.begin(), limbs.end(), [](auto state) { return state != 0; })) {
        curFrame_.fill(ZeroLevel);
        return;
    }
    // Electrodes 5 to 10 are those of V1 to V6, which are channels 2 to 7.
    for (std::size_t i = limbElectrodes; i < ElectrodeCount; ++i)
        if (leadOff_[i] == electrodeOff)
            curFrame_[i - 2] = ZeroLevel;
}

void FrameDecoder::BlankMissingFrankLeads()
{
    if (std::any_of(leadOff_.begin(), leadOff_.end(), [](auto state) { return state != 0; }))
        std::fill_n(curFrame_.begin(), frankChannels, static_cast<std::int16_t>(ZeroLevel));
}

void FrameDecoder::TakeFlag(bool flag)
{
    if (frameIsStatus_)
        TakeStatusFlag(flag);
    else
        TakeElectrodeFlag(flag);
}

void FrameDecoder::TakeStatusFlag(bool flag)
{
    for (const auto& [filter, first, last] : filterFlags) {
        if (framePos_ < first || framePos_ > last)
            continue;
        int& code = filterState_[static_cast<std::size_t>(filter)];
        const int bit = flag ? 1 << (framePos_ - first) : 0;
        code = framePos_ == first ? bit : code + bit;
        if (framePos_ == last)
            Report(filter, code);
    }
}

void FrameDecoder::Report(wire::Filter filter, int code)
{
    int& reported = reportedState_[static_cast<std::size_t>(filter)];
    if (reported != code) {
        reported = code;
        sink_.OnFilterState(filter, code);
    }
}

void FrameDecoder::TakeElectrodeFlag(bool off)
{
    const auto electrode = static_cast<std::size_t>(framePos_ - 1);
    if (electrode >= ElectrodeCount)
        return;
    const std::uint8_t state = off ? electrodeOff : std::uint8_t{0};
    if (leadOff_[electrode] != state) {
        leadOff_[electrode] = state;
        sink_.OnElectrode(electrode, off);
    }
}

}  // namespace ecg
