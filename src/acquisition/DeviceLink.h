// The command side of the link to the amplifier box: finds it, asks it for streams and filters, and takes it up again
// when it was unplugged. What it sends is `FrameDecoder`'s.
#pragma once

#include "acquisition/Wire.h"
#include "core/SharedState.h"
#include "platform/Clock.h"
#include "platform/SerialPort.h"

#include <cstdint>
#include <optional>

namespace ecg {

class DeviceLink {
public:
    DeviceLink(SharedState& state, SerialPort& port, Clock& clock) : state_(state), port_(port), clock_(clock) {}

    // Scans ports 1 to 16 and fills `DevicePort` (0: no box). The port of a box that answers stays open. A box that
    // answers with a wrong checksum ends the scan without a box.
    void FindDevice();

    // Does nothing without a box. Only the low byte of `parameter` goes out.
    void SendDeviceCommand(wire::Command command, int parameter);

    // Command 37 with the codes of the filter settings; a filter that is off sends 0.
    void SendFilters();

    // Stops the stream and throws away what is still on the line.
    void StopStream();
    void StartStream(LeadSystem system);

    // Opens the port of the box again and asks who is there. False while the box is not back.
    bool Reconnect();

    // The key of the stream, from the box's identification; 0 until a box has answered.
    std::uint8_t StreamKey() const { return streamKey_; }

    // Asks the box to pull the baseline to zero, for as long as the `BaselineReturn` setting says.
    void ReturnBaseline();

private:
    void Send(wire::Command command);
    bool AskPort(int port, std::optional<std::uint8_t>& key);
    bool AwaitIdentification(std::optional<std::uint8_t>& key);
    void Adopt(int port, std::uint8_t key);

    SharedState& state_;
    SerialPort& port_;
    Clock& clock_;
    wire::CommandPacket packet_;
    std::uint8_t streamKey_ = 0;
};

}  // namespace ecg
