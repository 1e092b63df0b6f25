// The byte stream of the box, whole and damaged.
#include "acquisition/FrameDecoder.h"

#include "support/EncodeFrames.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <random>

namespace ecg {
namespace {

using namespace testing;

class Receiver final : public FrameSink {
public:
    explicit Receiver(LeadSystem system = LeadSystem::Wilson, std::uint8_t key = 0)
    {
        Decoder.SetLeadSystem(system);
        Decoder.Restart(key);
    }

    void OnFrame(const Frame& frame) override { Frames.push_back(frame); }
    void OnElectrode(std::size_t electrode, bool off) override { Electrodes.emplace_back(electrode, off); }
    void OnFilterState(wire::Filter filter, int code) override { Filters.emplace_back(filter, code); }
    void OnReconnect() override { ++Reconnects; }

    // What comes of one frame.
    Frame Take(const Frame& frame, unsigned flags = 0, FrameKind kind = FrameKind::LeadOff)
    {
        Decoder.Receive(EncodeFrame(frame, flags, kind) + Bytes{0x80});
        return Frames.back();
    }

    FrameDecoder Decoder{*this};
    std::vector<Frame> Frames;
    std::vector<std::pair<std::size_t, bool>> Electrodes;
    std::vector<std::pair<wire::Filter, int>> Filters;
    int Reconnects = 0;
};

constexpr auto Off = [](int electrode) { return 1U << (electrode - 1); };

// The frames of a stream, without the one that its first start byte completes.
std::vector<Frame> DecodeInChunks(std::span<const std::uint8_t> stream, std::size_t size, std::uint8_t key = 0)
{
    Receiver receiver(LeadSystem::Wilson, key);
    for (std::size_t at = 0; at < stream.size(); at += size)
        receiver.Decoder.Receive(stream.subspan(at, std::min(size, stream.size() - at)));
    receiver.Frames.erase(receiver.Frames.begin());
    return receiver.Frames;
}

TEST(FrameDecoder, DeliversTheSameFramesForEveryChunkSizeAndKeyFromTheFirstStartByteOn)
{
    const auto frames = SineFrames(50);
    const auto stream = EncodeFrames(frames);
    for (std::size_t size = 1; size <= stream.size(); ++size)
        ASSERT_EQ(DecodeInChunks(stream, size), frames) << "chunks of " << size;
    for (unsigned key = 0; key < 256; ++key) {
        const auto byte = static_cast<std::uint8_t>(key);
        ASSERT_EQ(DecodeInChunks(Scrambled(stream, byte), 33, byte), frames) << "key " << key;
    }
    for (std::size_t cut = 1; cut <= 16; ++cut)
        EXPECT_EQ(DecodeInChunks(std::span(stream).subspan(cut), 16), std::vector(frames.begin() + 1, frames.end()))
            << cut << " bytes missing";
}

TEST(FrameDecoder, AFrameThatWasDroppedIsNotTheFirstOfTheNextStream)
{
    const auto frames = SineFrames(4);
    Receiver receiver(LeadSystem::Wilson);
    receiver.Take(frames[0]);
    const Bytes cutOff = EncodeFrame(frames[1]);
    receiver.Decoder.Receive(std::span(cutOff).first(7));
    receiver.Frames.clear();
    receiver.Decoder.DropFrame();
    receiver.Decoder.Receive(EncodeFrames(std::span(frames).last(2)));
    EXPECT_EQ(receiver.Frames, std::vector(frames.begin() + 2, frames.end()));
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
                expected.at(static_cast<std::size_t>(electrode - 3)) = 2048;  // 5 to 10 are V1 to V6, channels 2 to 7
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

TEST(FrameDecoder, TellsEachReconnectOnceAndAStateWhenItChanges)
{
    // The first frame finds all on. Others may still be off, one may come off as another comes on, two may come on.
    const std::vector<unsigned> off{
        0, Off(2), Off(2) | Off(7) | Off(10), Off(7) | Off(10), Off(7) | Off(10), Off(7) | Off(1), 0};
    std::vector<int> reconnects;
    Receiver receiver;
    for (const unsigned flags : off) {
        receiver.Take(LevelFrame(2048), flags);
        reconnects.push_back(receiver.Reconnects);
    }
    EXPECT_THAT(reconnects, ElementsAre(0, 0, 0, 1, 1, 2, 3));
    receiver.Electrodes.clear();
    receiver.Take(LevelFrame(2048), Off(9));
    receiver.Take(LevelFrame(2048), Off(9));
    EXPECT_THAT(receiver.Electrodes, ElementsAre(Pair(8U, true)));
}

TEST(FrameDecoder, KeepsFilterStatesAndElectrodesApart)
{
    Receiver receiver;
    receiver.Take(LevelFrame(700));
    EXPECT_THAT(receiver.Filters, IsEmpty());
    receiver.Electrodes.clear();
    // AC 2, baseline 4 + 1, muscle 4 + 2; the flags behind them mean nothing.
    EXPECT_EQ(receiver.Take(LevelFrame(700), 0b1111'110'101'10, FrameKind::Status), LevelFrame(700));
    EXPECT_THAT(receiver.Filters,
                ElementsAre(Pair(wire::Filter::Ac, 2), Pair(wire::Filter::Baseline, 5), Pair(wire::Filter::Muscle, 6)));
    EXPECT_THAT(receiver.Electrodes, IsEmpty());
}

TEST(FrameDecoder, ALostByteCostsOneFrame)
{
    const std::size_t hit = 3;
    for (std::size_t lost = 0; lost < 16; ++lost) {
        auto frames = SineFrames(6);
        auto stream = EncodeFrames(frames);
        stream.erase(stream.begin() + static_cast<std::ptrdiff_t>(16 * hit + lost));
        auto delivered = DecodeInChunks(stream, 16);
        if (lost == 0)  // without its start byte it runs into the one before
            frames.erase(frames.begin() + hit);
        const std::size_t spoilt = lost == 0 ? hit - 1 : hit;
        ASSERT_EQ(delivered.size(), frames.size());
        EXPECT_NE(std::exchange(delivered[spoilt], frames[spoilt]), frames[spoilt]);
        EXPECT_EQ(delivered, frames) << "byte " << lost;
    }
}

TEST(FrameDecoder, GarbageNeverSpoilsTheNextGoodFrame)
{
    const Frame sent = SineFrames(7).back();
    Receiver receiver;
    receiver.Decoder.Receive(Bytes(15, 0x3F));
    receiver.Electrodes.clear();
    receiver.Decoder.Receive(Bytes(100000, 0x7F));
    EXPECT_THAT(receiver.Electrodes, IsEmpty()) << "flags behind the end of a frame mean nothing";
    EXPECT_EQ(receiver.Take(sent), sent) << "after 100,000 bytes without a start byte";
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        Bytes garbage(random() % 100);
        std::generate(garbage.begin(), garbage.end(), [&random] { return static_cast<std::uint8_t>(random()); });
        receiver.Decoder.Receive(garbage);
        ASSERT_EQ(receiver.Take(sent), sent) << "round " << round;
    }
    EXPECT_THAT(receiver.Frames, Each(Each(AllOf(Ge(0), Le(4095)))));
}

}  // namespace
}  // namespace ecg
