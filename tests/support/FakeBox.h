// An amplifier box at the far end of a fake port: it answers its identification and keeps the commands it hears.
#pragma once

#include "support/EncodeFrames.h"
#include "support/FakeClock.h"
#include "support/FakeSerialPort.h"

#include <numeric>

namespace ecg {

// With the low 8 bits of their sum behind them.
inline Bytes WithSum(Bytes bytes)
{
    bytes.push_back(static_cast<std::uint8_t>(std::accumulate(bytes.begin(), bytes.end(), 0)));
    return bytes;
}

// The 15 bytes with which a box answers.
inline Bytes Identification(std::uint8_t key)
{
    return WithSum({'T', 'O', 'L', 'M', 9, 8, 7, 6, 5, 4, 3, 2, 1, key});
}

// The 20 bytes of a command.
inline Bytes CommandBytes(std::uint8_t code, std::array<std::uint8_t, 3> parameters)
{
    return WithSum(Bytes{'R', 'U', 'V', 'O', code, parameters[0], parameters[1], parameters[2]} + Bytes(11));
}

// Plugs a box into `port`. Waiting on the port lets the clock run.
class FakeBox {
public:
    FakeBox(FakeSerialPort& port, FakeClock& clock) : port_(port)
    {
        port.OnWait = [&clock](int milliseconds) { clock.Advance(milliseconds); };
        port.OnWrite = [this](int number, const Bytes& packet) {
            if (number == number_ && packet.at(4) == 'E')
                port_.Send(Identification(Key));
        };
    }

    void Plug(int number)
    {
        number_ = number;
        port_.Existing.insert(number);
    }

    // Sends frames scrambled, as the box does, and completes the last.
    void Stream(std::span<const Frame> frames) { port_.Send(Scrambled(EncodeFrames(frames), Key)); }
    void Stream(const Frame& frame, unsigned flags = 0, FrameKind kind = FrameKind::LeadOff)
    {
        port_.Send(Scrambled(EncodeFrame(frame, flags, kind) + Bytes{0x80}, Key));
    }

    std::uint8_t Key = 0xA5;

private:
    FakeSerialPort& port_;
    int number_ = 0;
};

}  // namespace ecg
