#include "box/CommandReader.h"

#include <algorithm>
#include <numeric>
#include <string_view>

namespace ecg {
namespace {

constexpr std::string_view magic = "RUVO";

using Bytes = std::span<const std::uint8_t>;

// Where, from `from` on, a packet begins or may begin once more bytes come; the end when nowhere.
std::size_t FindMagic(Bytes bytes, std::size_t from)
{
    for (std::size_t i = from; i < bytes.size(); ++i) {
        const Bytes candidate = bytes.subspan(i, std::min(magic.size(), bytes.size() - i));
        if (std::equal(candidate.begin(), candidate.end(), magic.begin()))
            return i;
    }
    return bytes.size();
}

}  // namespace

std::vector<ReceivedCommand> CommandReader::Receive(Bytes bytes)
{
    std::vector<ReceivedCommand> received;
    pending_.insert(pending_.end(), bytes.begin(), bytes.end());
    Bytes rest(pending_);
    for (;;) {
        const std::size_t start = FindMagic(rest, 0);
        if (start > 0)
            received.push_back({std::nullopt, std::to_string(start) + " bytes that begin no command packet"});
        rest = rest.subspan(start);
        if (rest.size() < CommandPacketSize)
            break;
        const Bytes packet = rest.first(CommandPacketSize);
        std::size_t used = CommandPacketSize;
        if (SumOfBytes(packet.first(CommandPacketSize - 1)) == packet.back()) {
            received.push_back({CommandPacket{packet[4], {packet[5], packet[6], packet[7]}}, {}});
        } else {
            received.push_back({std::nullopt, "a command packet with a wrong checksum"});
            used = std::min(FindMagic(rest, magic.size()), CommandPacketSize);  // it may have lost bytes
        }
        rest = rest.subspan(used);
    }
    pending_.assign(rest.begin(), rest.end());
    return received;
}

std::uint8_t SumOfBytes(Bytes bytes)
{
    return static_cast<std::uint8_t>(std::accumulate(bytes.begin(), bytes.end(), 0U));
}

}  // namespace ecg
