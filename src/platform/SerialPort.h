// A serial port by number, as the device link needs it: 115200 baud, 8 data bits, no parity, 1 stop bit.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace ecg {

class SerialPort {
public:
    virtual ~SerialPort() = default;

    // Opens port 1 to 16, closing the one open before. False when the port does not exist or cannot be opened.
    virtual bool Open(int port) = 0;
    virtual void Close() = 0;
    virtual bool IsOpen() const = 0;

    // How many waiting bytes raise the receive event; 0 turns the event off.
    virtual void SetReceiveThreshold(std::size_t bytes) = 0;

    virtual std::size_t BytesWaiting() = 0;

    // Waits up to `milliseconds` for more bytes, without letting other events run.
    virtual void WaitForBytes(int milliseconds) = 0;

    // Takes all waiting bytes. The view holds until the next call on this port.
    virtual std::span<const std::uint8_t> Read() = 0;

    // False when the bytes could not be handed to the line.
    virtual bool Write(std::span<const std::uint8_t> bytes) = 0;

    // Throws away what waits in both directions.
    virtual void ClearBuffers() = 0;

    // `received` is called while at least the threshold of bytes waits; `lost` once when the open port fails (the
    // device was unplugged). The port is closed before `lost` is called.
    virtual void SetHandlers(std::function<void()> received, std::function<void()> lost) = 0;
};

}  // namespace ecg
