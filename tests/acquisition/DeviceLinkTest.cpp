// The scan for the box and every packet that goes out to it, bit for bit.
#include "acquisition/DeviceLink.h"

#include "support/FakeBox.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

namespace ecg {
namespace {

using testing::ElementsAre;

class DeviceLinkTest : public testing::Test {
protected:
    DeviceLinkTest() { LoadFactorySettings(State.SysInfo, FactoryGroup::All, false); }

    // Answers an identification on port 5: the byte strings, each after a wait of so many milliseconds.
    void AnswerWith(std::vector<std::pair<int, Bytes>> pieces)
    {
        Port.Existing[5] = true;
        Port.OnWrite = [this](int, const Bytes& packet) {
            asked_ = packet.at(4) == 'E' ? Clock.Milliseconds() : asked_;
        };
        Port.OnWait = [this, pieces](int milliseconds) mutable {
            Clock.Advance(milliseconds);
            while (!pieces.empty() && Clock.Milliseconds() - asked_ >= pieces.front().first) {
                Port.Send(pieces.front().second);
                pieces.erase(pieces.begin());
            }
        };
    }

    SharedState State;
    FakeSerialPort Port;
    FakeClock Clock;
    FakeBox Box{Port, Clock};
    DeviceLink Link{State, Port, Clock};

private:
    std::int64_t asked_ = 0;
};

TEST_F(DeviceLinkTest, ScansAllPortsInOrderAndOnlyAsks)
{
    Port.Existing = {{3, true}, {9, true}, {16, true}};
    Link.FindDevice();
    std::vector<int> all(16);
    std::iota(all.begin(), all.end(), 1);
    EXPECT_EQ(Port.Opened, all);
    EXPECT_EQ(State.DevicePort, 0);
    EXPECT_FALSE(Port.IsOpen());
    Port.Open(3);
    Link.SendFilters(); // to whom?
    Link.StartStream(LeadSystem::Wilson);
    Link.StopStream();
    Link.ReturnBaseline();
    EXPECT_THAT(Port.Written, ElementsAre(CommandBytes(69, {}), CommandBytes(69, {}), CommandBytes(69, {})));
}

TEST_F(DeviceLinkTest, TakesOnlyAWholeAnswerInTime)
{
    const Bytes reply = Identification(0x5A);
    const Bytes head(reply.begin(), reply.begin() + 6);
    const Bytes tail(reply.begin() + 6, reply.end());
    const Bytes stale(15, 0x81);
    Bytes wrong = reply;
    ++wrong.back();
    struct Case {
        const char* Name;
        std::vector<std::pair<int, Bytes>> Pieces;
        int Port;
        int LastTried;
    };
    const std::vector<Case> cases{{"in two pieces", {{2, head}, {7, tail}}, 5, 5},
                                  {"at the last moment", {{9, reply}}, 5, 5},
                                  {"behind bytes of a stream", {{1, stale}, {3, reply}}, 5, 5},
                                  {"14 bytes", {{1, Bytes(reply.begin(), reply.end() - 1)}}, 0, 16},
                                  {"too late", {{12, reply}}, 0, 16},
                                  {"wrong checksum ends the scan", {{1, wrong}}, 0, 5}};
    for (const Case& one : cases) {
        SCOPED_TRACE(one.Name);
        AnswerWith(one.Pieces);
        Link.FindDevice();
        EXPECT_EQ(State.DevicePort, one.Port);
        EXPECT_EQ(Port.Opened.back(), one.LastTried);
        if (one.Port != 0) {
            EXPECT_EQ(Port.OpenPort(), one.Port);
            EXPECT_EQ(Port.Threshold, 16U);
            EXPECT_EQ(Link.StreamKey(), 0x5A);
        }
    }
}

TEST_F(DeviceLinkTest, SendsEachPacketWithTheParametersThatStandBehind)
{
    Box.Plug(1);
    Link.FindDevice();
    Port.Written.clear();
    Link.SendFilters(); // AC 50 Hz, baseline setting 2, muscle setting 2
    Link.StartStream(LeadSystem::Wilson);
    Link.StartStream(LeadSystem::Frank);
    Link.ReturnBaseline();
    Link.StopStream();
    State.SysInfo.BaselineReturn = 255;
    Link.ReturnBaseline();
    EXPECT_THAT(Port.Written,
                ElementsAre(CommandBytes(37, {12, 4, 12}), CommandBytes(21, {1, 4, 12}), CommandBytes(21, {2, 4, 12}),
                            CommandBytes(53, {30, 4, 12}), CommandBytes(21, {0, 4, 12}), CommandBytes(53, {0, 4, 12})))
        << "2560 leaves its low byte";
}

TEST_F(DeviceLinkTest, TranslatesTheFilterSettings)
{
    const std::array<Bytes, 3> codes{Bytes{12, 10}, Bytes{10, 6, 4, 2}, Bytes{21, 15, 12, 10, 9, 7}};
    Box.Plug(1);
    Link.FindDevice();
    for (std::size_t filter = 0; filter < codes.size(); ++filter) {
        State.SysInfo.FilterOn = {0, 0, 0};
        State.SysInfo.FilterOn[filter] = 1;
        for (std::size_t index = 0; index < codes[filter].size() + 2; ++index) {
            State.SysInfo.FilterIndex[filter] = static_cast<Byte>(index);
            Link.SendFilters();
            std::array<std::uint8_t, 3> expected{};
            expected[filter] = codes[filter][std::min(index, codes[filter].size() - 1)]; // outside, the last stays
            EXPECT_EQ(Port.Written.back(), CommandBytes(37, expected)) << filter << " " << index;
        }
    }
}

TEST(Wire, NamesTheFilterStatesThatTheBoxReports)
{
    const std::map<wire::Filter, std::string> expected{{wire::Filter::Ac, "- 关 50Hz 60Hz - - - - - "},
                                                       {wire::Filter::Baseline, "- 3.3s 1.6s 0.8s 0.5s 0.3s - - - "},
                                                       {wire::Filter::Muscle, "- 关 26Hz 36Hz 45Hz 54Hz 60Hz 77Hz - "}};
    for (const auto& [filter, labels] : expected) {
        std::string said;
        for (int code = -1; code <= 7; ++code) {
            const char* label = wire::FilterStateLabel(filter, code);
            said += std::string(label == nullptr ? "-" : label) + " ";
        }
        EXPECT_EQ(said, labels);
    }
}

} // namespace
} // namespace ecg
