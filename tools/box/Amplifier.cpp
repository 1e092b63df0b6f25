#include "box/Amplifier.h"

#include "core/Numbers.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace ecg {
namespace {

constexpr int identifyCommand = 69;
constexpr int streamCommand = 21;
constexpr int filterCommand = 37;
constexpr int baselineCommand = 53;

constexpr unsigned statusInterval = 16;  // frames
constexpr int millisecondsPerFrame = 1000 / FramesPerSecond;
constexpr int baselineUnit = 10;  // milliseconds in one of the parameter of a baseline return
constexpr int limbElectrodes = 4;
constexpr FrameFlags limbFlags = FrameFlag(1) | FrameFlag(2) | FrameFlag(3) | FrameFlag(4);
constexpr std::size_t frankChannels = 6;
constexpr double railOffset = SampleMask - ZeroLevel;  // counts above zero signal with an electrode off
constexpr double settlePerFrame = 0.996;               // what is left of an offset a frame later: 0.5 s time constant

struct FilterSetting {
    std::uint8_t Code;  // in the command; the place in the list is what a status frame reports
    std::string_view Label;
};

constexpr std::array<FilterSetting, 3> acSettings{{{0, "off"}, {12, "50 Hz"}, {10, "60 Hz"}}};
constexpr std::array<FilterSetting, 5> baselineSettings{
    {{0, "3.3 s"}, {10, "1.6 s"}, {6, "0.8 s"}, {4, "0.5 s"}, {2, "0.3 s"}}};
constexpr std::array<FilterSetting, 7> muscleSettings{
    {{0, "off"}, {21, "26 Hz"}, {15, "36 Hz"}, {12, "45 Hz"}, {10, "54 Hz"}, {9, "60 Hz"}, {7, "77 Hz"}}};

// Sets `status` by a command's code and says how. A code the box does not know leaves the filter as it is.
std::string SetFilter(std::span<const FilterSetting> settings, int code, std::uint8_t& status)
{
    const auto found = std::ranges::find(settings, code, &FilterSetting::Code);
    if (found == settings.end())
        return "code " + std::to_string(code) + " unknown, kept " + std::string(settings[status].Label);
    status = static_cast<std::uint8_t>(found - settings.begin());
    return std::string(found->Label);
}

// "TOLM", nothing of meaning, and at the end the key and the check byte.
std::vector<std::uint8_t> IdentificationReply(std::uint8_t key)
{
    constexpr std::size_t keyPosition = 13;
    std::vector<std::uint8_t> reply{'T', 'O', 'L', 'M'};
    reply.resize(keyPosition);
    reply.push_back(key);
    reply.push_back(SumOfBytes(reply));
    return reply;
}

}  // namespace

Amplifier::Amplifier(FrameSource source, std::uint8_t key, Report report)
    : source_(std::move(source)), key_(key), report_(std::move(report))
{}

std::vector<std::uint8_t> Amplifier::Receive(std::span<const std::uint8_t> bytes)
{
    std::vector<std::uint8_t> reply;
    for (const ReceivedCommand& received : reader_.Receive(bytes)) {
        if (received.Packet)
            Obey(*received.Packet, reply);
        else
            report_("refused " + received.Refusal);
    }
    return reply;
}

void Amplifier::Obey(const CommandPacket& packet, std::vector<std::uint8_t>& reply)
{
    switch (packet.Code) {
    case identifyCommand: {
        report_("received 69 identify");
        const auto answer = IdentificationReply(key_);
        reply.insert(reply.end(), answer.begin(), answer.end());
        break;
    }
    case streamCommand:
        ObeyStream(packet.Parameters[0]);
        break;
    case filterCommand:
        ObeyFilters(packet);
        break;
    case baselineCommand:
        ObeyBaselineReturn(packet.Parameters[0]);
        break;
    default:
        report_("refused command " + std::to_string(packet.Code) + ", unknown");
    }
}

void Amplifier::ObeyStream(int parameter)
{
    switch (parameter) {
    case 0:
        stream_ = StreamKind::Off;
        return report_("received 21 stop");
    case 1:
        return Start(StreamKind::Wilson, "Wilson");
    case 2:
        return Start(StreamKind::Frank, "Frank");
    default:
        report_("refused command 21, parameter " + std::to_string(parameter) + " unknown");
    }
}

void Amplifier::Start(StreamKind stream, const std::string& name)
{
    stream_ = stream;
    frameNumber_ = 0;
    offsets_.fill(0);
    const char* lack = Source().empty() ? "; the source has no such leads, sending zero signal" : "";
    report_("received 21 start " + name + lack);
}

void Amplifier::ObeyFilters(const CommandPacket& packet)
{
    const std::string ac = SetFilter(acSettings, packet.Parameters[0], filters_.Ac);
    const std::string baseline = SetFilter(baselineSettings, packet.Parameters[1], filters_.Baseline);
    const std::string muscle = SetFilter(muscleSettings, packet.Parameters[2], filters_.Muscle);
    report_("received 37 filters: AC " + ac + ", baseline " + baseline + ", muscle " + muscle);
}

void Amplifier::ObeyBaselineReturn(int parameter)
{
    const int milliseconds = parameter * baselineUnit;
    baselineReturnFrames_ = milliseconds / millisecondsPerFrame;
    report_("received 53 baseline return: " + std::to_string(milliseconds) + " ms");
}

WireFrame Amplifier::NextFrame()
{
    Frame frame = NextSignal();
    Disturb(frame);
    const bool isStatus = frameNumber_ % statusInterval == statusInterval - 1;
    ++frameNumber_;
    WireFrame wire = isStatus ? EncodeFrame(frame, FrameType::Status, StatusFlags(filters_))
                              : EncodeFrame(frame, FrameType::LeadOff, electrodesOff_);
    for (std::uint8_t& byte : wire)
        byte ^= key_;
    return wire;
}

const std::vector<Frame>& Amplifier::Source() const
{
    return stream_ == StreamKind::Wilson ? source_.Wilson : source_.Frank;
}

Frame Amplifier::NextSignal()
{
    const std::vector<Frame>& frames = Source();
    if (frames.empty()) {
        Frame zero{};
        zero.fill(ZeroLevel);
        return zero;
    }
    position_ %= frames.size();
    return frames[position_++];
}

void Amplifier::Disturb(Frame& frame)
{
    const bool returning = baselineReturnFrames_ > 0;
    if (returning)
        --baselineReturnFrames_;
    const std::size_t channels = stream_ == StreamKind::Wilson ? frame.size() : frankChannels;
    for (std::size_t i = 0; i < channels; ++i) {
        if (IsOff(i)) {
            frame[i] = SampleMask;
            offsets_[i] = railOffset;
        } else if (returning) {
            frame[i] = ZeroLevel;
            offsets_[i] = 0;
        } else {
            frame[i] = static_cast<std::int16_t>(std::min(frame[i] + RoundToInt(offsets_[i]), SampleMask));
            offsets_[i] *= settlePerFrame;
        }
    }
}

// In Wilson a limb electrode carries every channel, a chest electrode its own; in Frank all carry all.
bool Amplifier::IsOff(std::size_t channel) const
{
    constexpr std::size_t firstChest = 2;
    if (stream_ == StreamKind::Frank)
        return electrodesOff_ != 0;
    const int chestElectrode = static_cast<int>(channel - firstChest) + limbElectrodes + 1;
    return (electrodesOff_ & limbFlags) != 0 ||
           (channel >= firstChest && (electrodesOff_ & FrameFlag(chestElectrode)) != 0);
}

void Amplifier::SetElectrode(int electrode, bool off)
{
    if (electrode < 1 || electrode > BoxElectrodeCount)
        return;
    const FrameFlags flag = FrameFlag(electrode);
    electrodesOff_ = static_cast<FrameFlags>(off ? electrodesOff_ | flag : electrodesOff_ & ~flag);
}

void Amplifier::PowerCycle()
{
    stream_ = StreamKind::Off;
    filters_ = {};
    baselineReturnFrames_ = 0;
    offsets_.fill(0);
    reader_.Reset();
}

}  // namespace ecg
