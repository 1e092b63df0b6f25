// The amplifier inside the simulated box: what it answers, and the frames it streams. Knows no clock and no line.
#pragma once

#include "box/CommandReader.h"
#include "box/FrameSource.h"
#include "box/WireFrame.h"

#include <array>
#include <functional>
#include <string>

namespace ecg {

inline constexpr int BoxElectrodeCount = 10;

enum class StreamKind { Off, Wilson, Frank };

class Amplifier {
public:
    using Report = std::function<void(const std::string&)>;

    // `key` scrambles the stream; `report` is told each packet that came in, as a line of text.
    Amplifier(FrameSource source, std::uint8_t key, Report report);

    // Obeys the command packets in `bytes`; returns what goes back at once, as it stands on the wire.
    std::vector<std::uint8_t> Receive(std::span<const std::uint8_t> bytes);

    StreamKind Stream() const { return stream_; }

    // The next frame of the stream, scrambled; only while it streams. Every 16th is a status frame, the others,
    // from the first on, are lead-off frames.
    WireFrame NextFrame();

    // Takes electrode 1 to 10 off, or puts it back; other numbers do nothing. The channels of an electrode that is
    // off go to the top of their range; when it is back they return slowly, or at once with a baseline return.
    void SetElectrode(int electrode, bool off);

    // Power off and on: not streaming, filters off. Electrodes stay where they are.
    void PowerCycle();

private:
    void Obey(const CommandPacket& packet, std::vector<std::uint8_t>& reply);
    void ObeyStream(int parameter);
    void Start(StreamKind stream, const std::string& name);
    void ObeyFilters(const CommandPacket& packet);
    void ObeyBaselineReturn(int parameter);
    bool IsOff(std::size_t channel) const;
    const std::vector<Frame>& Source() const;
    Frame NextSignal();
    void Disturb(Frame& frame);

    FrameSource source_;
    std::uint8_t key_;
    Report report_;
    CommandReader reader_;
    StreamKind stream_ = StreamKind::Off;
    FilterStatus filters_;
    FrameFlags electrodesOff_ = 0;
    std::size_t position_ = 0;                    // in the source's frames
    unsigned frameNumber_ = 0;                    // since the stream started
    int baselineReturnFrames_ = 0;                // still to be held at zero signal
    std::array<double, ChannelCount> offsets_{};  // counts left over from an electrode that was off
};

}  // namespace ecg
