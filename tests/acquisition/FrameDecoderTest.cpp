// The byte stream of the box, whole and damaged.
#include "acquisition/FrameDecoder.h"

#include "support/EncodeFrames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <gmock/gmock.h>
#include <random>

namespace ecg {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class Receiver final : public FrameSink {
public:
    explicit Receiver(LeadSystem system = LeadSystem::Wilson, std::uint8_t key = 0)
    {
        decoder_.SetLeadSystem(system);
        decoder_.Restart(key);
    }

    void OnFrame(const Frame& frame) override { Frames.push_back(frame); }
    void OnElectrode(std::size_t electrode, bool off) override { Electrodes.emplace_back(electrode, off); }
    void OnFilterState(wire::Filter filter, int code) override { Filters.emplace_back(filter, code); }
    void OnReconnect() override { ++Reconnects; }

    void Receive(std::span<const std::uint8_t> bytes) { decoder_.Receive(bytes); }

    // What comes of one frame.
    Frame Take(const Frame& frame, unsigned flags = 0, FrameKind kind = FrameKind::LeadOff)
    {
        Receive(EncodeFrame(frame, flags, kind) + Bytes{0x80});
        return Frames.back();
    }

    std::vector<Frame> Frames;
    std::vector<std::pair<std::size_t, bool>> Electrodes;
    std::vector<std::pair<wire::Filter, int>> Filters;
    int Reconnects = 0;

private:
    FrameDecoder decoder_{*this};
};

constexpr unsigned Off(int electrode)
{
    return 1U << (electrode - 1);
}

// The frames of a stream, without the one that its first start byte completes.
std::vector<Frame> DecodeInChunks(const Bytes& stream, std::size_t size, std::uint8_t key = 0)
{
    Receiver receiver(LeadSystem::Wilson, key);
    for (std::size_t at = 0; at < stream.size(); at += size)
        receiver.Receive(std::span(stream).subspan(at, std::min(size, stream.size() - at)));
    receiver.Frames.erase(receiver.Frames.begin());
    return receiver.Frames;
}

TEST(FrameDecoder, DeliversTheSameFramesForEveryChunkSizeAndKey)
{
    const auto frames = SineFrames(50);
    const auto stream = EncodeFrames(frames);
    for (std::size_t size = 1; size <= stream.size(); ++size)
        ASSERT_EQ(DecodeInChunks(stream, size), frames) << "chunks of " << size;
    for (unsigned key = 0; key < 256; ++key) {
        const auto byte = static_cast<std::uint8_t>(key);
        ASSERT_EQ(DecodeInChunks(Scrambled(stream, byte), 33, byte), frames) << "key " << key;
    }
}

TEST(FrameDecoder, IsRightFromTheFirstStartByteOn)
{
    const auto frames = SineFrames(4);
    const auto stream = EncodeFrames(frames);
    for (std::size_t cut = 1; cut <= 16; ++cut) {
        Receiver receiver;
        receiver.Receive(std::span(stream).subspan(cut));
        ASSERT_EQ(receiver.Frames.size(), 4U);
        receiver.Frames.erase(receiver.Frames.begin());
        EXPECT_THAT(receiver.Frames, ElementsAre(frames[1], frames[2], frames[3])) << cut << " bytes missing";
    }
}

TEST(FrameDecoder, AMissingElectrodeBlanksItsChannelsAndNoOthers)
{
    const Frame sent{1, 4095, 700, 0, 2047, 2049, 3000, 64};
    for (const LeadSystem system : {LeadSystem::Wilson, LeadSystem::Frank})
        for (int electrode = 1; electrode <= 10; ++electrode) {
            Frame expected = sent;
            if (system == LeadSystem::Frank)
                std::fill_n(expected.begin(), 6, std::int16_t{2048});
            else if (electrode <= 4)
                expected.fill(2048);
            else
                expected.at(static_cast<std::size_t>(electrode - 3)) = 2048; // 5 to 10 are V1 to V6, channels 2 to 7
            Receiver receiver(system);
            const Frame unknown = receiver.Take(sent, 0, FrameKind::Status);
            EXPECT_EQ(unknown[0], 2048) << "no signal before the box has spoken of its electrodes";
            EXPECT_EQ(unknown[7], system == LeadSystem::Wilson ? 2048 : 64);
            EXPECT_EQ(receiver.Take(sent, Off(electrode)), expected) << "electrode " << electrode;
            EXPECT_EQ(receiver.Take(sent), sent) << "and back on";
        }
    Receiver receiver;
    EXPECT_EQ(receiver.Take(sent, Off(5) | Off(10)), (Frame{1, 4095, 2048, 0, 2047, 2049, 3000, 2048}));
    EXPECT_EQ(receiver.Take(sent, 0x7C00), sent) << "flags 11 to 15 are no electrodes";
}

TEST(FrameDecoder, TellsEachReconnectOnce)
{
    // Electrodes that are off, and the reconnects so far.
    const std::vector<std::pair<unsigned, int>> steps{{0, 0}, // the first lead-off frame finds all on
                                                      {Off(2), 0},
                                                      {Off(2) | Off(7) | Off(10), 0},
                                                      {Off(7) | Off(10), 1}, // others are still off
                                                      {Off(7) | Off(10), 1},
                                                      {Off(7) | Off(1), 2}, // one on, another off, in one frame
                                                      {0, 3}};              // two at once are one reconnect
    Receiver receiver;
    for (const auto& [off, reconnects] : steps) {
        receiver.Take(LevelFrame(2048), off);
        EXPECT_EQ(receiver.Reconnects, reconnects) << std::hex << off;
    }
    receiver.Electrodes.clear();
    receiver.Take(LevelFrame(2048), Off(9));
    receiver.Take(LevelFrame(2048), Off(9));
    EXPECT_THAT(receiver.Electrodes, ElementsAre(Pair(8U, true))) << "a state is told when it changes";
}

TEST(FrameDecoder, KeepsFilterStatesAndElectrodesApart)
{
    const Frame sent = SineFrames(9).back();
    Receiver receiver;
    receiver.Take(sent, Off(1) | Off(6));
    EXPECT_THAT(receiver.Filters, IsEmpty());
    receiver.Take(sent);
    receiver.Electrodes.clear();
    // AC 2, baseline 4 + 1, muscle 4 + 2; the flags behind them mean nothing.
    EXPECT_EQ(receiver.Take(sent, 0b1111'110'101'10, FrameKind::Status), sent);
    EXPECT_THAT(receiver.Filters,
                ElementsAre(Pair(wire::Filter::Ac, 2), Pair(wire::Filter::Baseline, 5), Pair(wire::Filter::Muscle, 6)));
    EXPECT_THAT(receiver.Electrodes, IsEmpty());
}

TEST(FrameDecoder, ALostByteCostsOneFrame)
{
    const auto frames = SineFrames(6);
    const std::size_t hit = 3;
    for (std::size_t lost = 0; lost < 16; ++lost) {
        auto stream = EncodeFrames(frames);
        stream.erase(stream.begin() + static_cast<std::ptrdiff_t>(16 * hit + lost));
        auto expected = frames;
        if (lost == 0) {
            // Two frames run into one: the second goes round to channel 0 again, half a channel late.
            Frame& merged = expected[hit - 1];
            for (std::size_t i = 0; i < merged.size(); ++i)
                merged[i] = static_cast<std::int16_t>(frames[hit][i] % 64 * 64 + (i < 7 ? frames[hit][i + 1] / 64 : 0));
            expected.erase(expected.begin() + hit);
            EXPECT_EQ(DecodeInChunks(stream, 16), expected);
            continue;
        }
        auto delivered = DecodeInChunks(stream, 16);
        ASSERT_EQ(delivered.size(), frames.size());
        delivered[hit] = expected[hit];
        EXPECT_EQ(delivered, expected) << "byte " << lost;
    }
}

TEST(FrameDecoder, GarbageNeverSpoilsTheNextGoodFrame)
{
    const Frame sent = SineFrames(7).back();
    Receiver receiver;
    receiver.Receive(Bytes(100000, 0x3F));
    EXPECT_EQ(receiver.Take(sent), sent) << "after 100,000 bytes without a start byte";
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        Bytes garbage(random() % 100);
        for (auto& byte : garbage)
            byte = static_cast<std::uint8_t>(random());
        receiver.Receive(garbage);
        ASSERT_EQ(receiver.Take(sent), sent) << "round " << round;
    }
    for (const Frame& frame : receiver.Frames)
        ASSERT_TRUE(std::all_of(frame.begin(), frame.end(), [](int value) { return 0 <= value && value <= 4095; }));
}

} // namespace
} // namespace ecg
