// Command packets are found in whatever comes down the line.
#include "box/CommandReader.h"

#include "CommandBytes.h"

#include <gtest/gtest.h>

#include <numeric>

namespace ecg {
namespace {

using Bytes = std::vector<std::uint8_t>;

// What came in as text: "69", "21(2,0,0)", or the refusal.
std::vector<std::string> Read(const Bytes& bytes, std::size_t chunk = 1000)
{
    CommandReader reader;
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < bytes.size(); at += chunk)
        for (const auto& received : reader.Receive(std::span(bytes).subspan(at, std::min(chunk, bytes.size() - at)))) {
            if (!received.Packet) {
                lines.push_back(received.Refusal);
                continue;
            }
            std::string line = std::to_string(received.Packet->Code);
            for (const int parameter : received.Packet->Parameters)
                line += "," + std::to_string(parameter);
            lines.push_back(line);
        }
    return lines;
}

using Lines = std::vector<std::string>;

TEST(CommandReader, FindsPacketsForEveryChunkSize)
{
    const Bytes bytes = CommandBytes(69) + CommandBytes(37, {12, 6, 255}) + CommandBytes(21, {2, 6, 255});
    for (std::size_t chunk = 1; chunk <= bytes.size(); ++chunk)
        EXPECT_EQ(Read(bytes, chunk), (Lines{"69,0,0,0", "37,12,6,255", "21,2,6,255"})) << "chunks of " << chunk;
}

TEST(CommandReader, RefusesAWrongChecksumAndGoesOn)
{
    for (std::size_t damaged = 4; damaged < CommandPacketSize; ++damaged) {
        Bytes bytes = CommandBytes(21, {1, 0, 0});
        bytes[damaged] ^= 0x10;
        EXPECT_EQ(Read(bytes + CommandBytes(69)), (Lines{"a command packet with a wrong checksum", "69,0,0,0"}))
            << "byte " << damaged;
    }
}

TEST(CommandReader, LosesOnlyThePacketThatLostAByte)
{
    for (std::size_t lost = 0; lost < CommandPacketSize; ++lost) {
        Bytes bytes = CommandBytes(37, {12, 6, 15});
        bytes.erase(bytes.begin() + static_cast<std::ptrdiff_t>(lost));
        const Lines lines = Read(bytes + CommandBytes(69));
        ASSERT_EQ(lines.size(), 2U) << "byte " << lost;
        EXPECT_EQ(lines[1], "69,0,0,0") << "byte " << lost;
    }
}

TEST(CommandReader, PassesOverBytesThatBeginNoPacket)
{
    const Bytes noise{'R', 'U', 'V', 'R', 'R', 'U', 0, 255};
    EXPECT_EQ(Read(noise + CommandBytes(53, {30, 0, 0})), (Lines{"8 bytes that begin no command packet", "53,30,0,0"}));
    EXPECT_EQ(Read({'R', 'U', 'V'}), Lines()); // may yet become one
}

} // namespace
} // namespace ecg
