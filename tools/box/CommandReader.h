// Finds the workstation's command packets in the bytes it sends, however they are chunked.
//
//   0-3 "RUVO"   4 command   5-7 parameters   8-18 0   19 sum of bytes 0 to 18, low 8 bits
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace ecg {

inline constexpr std::size_t CommandPacketSize = 20;

struct CommandPacket {
    std::uint8_t Code = 0;
    std::array<std::uint8_t, 3> Parameters{};
};

// What came in: a packet, or the reason why bytes were refused.
struct ReceivedCommand {
    std::optional<CommandPacket> Packet;
    std::string Refusal;
};

class CommandReader {
public:
    // Takes received bytes; returns what they complete, in order. Bytes that begin no packet, and a packet with a
    // wrong checksum, are refused, and reading goes on at the next "RUVO". Never holds more than 19 bytes back.
    std::vector<ReceivedCommand> Receive(std::span<const std::uint8_t> bytes);

    // Forgets a packet that has begun.
    void Reset() { pending_.clear(); }

private:
    std::vector<std::uint8_t> pending_;
};

// Sum of all bytes, low 8 bits: the check byte of both directions.
std::uint8_t SumOfBytes(std::span<const std::uint8_t> bytes);

}  // namespace ecg
