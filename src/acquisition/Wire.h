// The command side of the protocol with the amplifier box: 20-byte packets out, a 15-byte identification back.
//
//   command:        0-3 "RUVO"   4 code   5-7 parameters   8-18 zero             19 sum of bytes 0 to 18
//   identification: 0-3 "TOLM"   4-12 not interpreted      13 key of the stream  14 sum of bytes 0 to 13
//
// Neither is scrambled. `FrameDecoder.h` tells the stream that the box sends afterwards.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace ecg::wire {

enum class Command : std::uint8_t {
    Stream = 21,          // 0 stop, 1 start Wilson, 2 start Frank
    Filters = 37,         // codes of the AC, baseline and muscle filter
    BaselineReturn = 53,  // pulls the baseline to zero; (step + 1) x 10
    Identify = 69,
};

inline constexpr std::size_t CommandSize = 20;
inline constexpr std::size_t IdentificationSize = 15;

// The low 8 bits of the sum of `bytes`.
std::uint8_t Checksum(std::span<const std::uint8_t> bytes);

// The packet buffer. Parameter bytes keep their last value from one command to the next, so a command without
// parameters carries those of the command before it: boxes see it that way on the wire, and it is meant.
class CommandPacket {
public:
    CommandPacket();

    void SetParameter(std::size_t index, std::uint8_t value);  // index 0 to 2: bytes 5 to 7

    // The 20 bytes of `command` with the parameters as they stand.
    std::array<std::uint8_t, CommandSize> Finish(Command command);

private:
    std::array<std::uint8_t, CommandSize> bytes_{};
};

// True when `bytes` begin as an identification does.
bool HasIdentificationMagic(std::span<const std::uint8_t> bytes);

// The key of the stream, or nothing when the reply is too short or its checksum is wrong.
std::optional<std::uint8_t> IdentifiedKey(std::span<const std::uint8_t> reply);

// The hardware filters of the box, in the order of `SysInfo::FilterOn`.
enum class Filter { Ac = 0, Baseline = 1, Muscle = 2 };
inline constexpr std::size_t FilterCount = 3;

// What command 37 sends for setting `index` of a filter that is on; nothing for an index outside its table.
std::optional<std::uint8_t> FilterCode(Filter filter, std::size_t index);

// The label of a filter state that the box reports, or null for a code outside the table.
const char* FilterStateLabel(Filter filter, int code);

}  // namespace ecg::wire
