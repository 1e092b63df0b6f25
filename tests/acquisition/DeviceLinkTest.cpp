// The scan for the box and every packet that goes out to it, bit for bit.
#include "acquisition/DeviceLink.h"

#include "acquisition/MonitorFixture.h"

namespace ecg {
namespace {

using namespace testing;

class DeviceLinkTest : public AcquisitionFixture {
protected:
    // Answers an identification on port 5: the byte strings, each so many milliseconds later.
    void AnswerWith(const std::map<int, Bytes>& pieces)
    {
        Port.Existing = {5};
        Port.OnWrite = [this](int, const Bytes& packet) {
            asked_ = packet.at(4) == 'E' ? Clock.Milliseconds() : asked_;
        };
        Port.OnWait = [this, pieces](int milliseconds) {
            const auto before = Clock.Milliseconds() - asked_;
            Clock.Advance(milliseconds);
            for (const auto& [at, bytes] : pieces)
                if (before < at && at <= before + milliseconds)
                    Port.Send(bytes);
        };
    }

    DeviceLink Link{State, Port, Clock};

private:
    std::int64_t asked_ = 0;
};

TEST_F(DeviceLinkTest, ScansAllPortsInOrderAndOnlyAsks)
{
    Port.Existing = {3, 9, 16};
    Link.FindDevice();
    EXPECT_THAT(Port.Opened, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16));
    EXPECT_EQ(State.DevicePort, 0);
    EXPECT_FALSE(Port.IsOpen());
    Port.Open(3);
    Link.SendFilters();  // to whom?
    Link.StartStream(LeadSystem::Wilson);
    Link.StopStream();
    Link.ReturnBaseline();
    EXPECT_EQ(Port.Written, std::vector(3, CommandBytes(69, {})));
}

TEST_F(DeviceLinkTest, TakesOnlyAWholeAnswerInTime)
{
    const Bytes reply = Identification(0x5A);
    const auto part = [&reply](std::ptrdiff_t from, std::ptrdiff_t to) {
        return Bytes(reply.begin() + from, reply.begin() + to);
    };
    Bytes wrong = reply;
    ++wrong.back();
    // What comes when, the port that is taken, and the last port that is tried.
    const std::map<std::string, std::tuple<std::map<int, Bytes>, int, int>> cases{
        {"in two pieces", {{{2, part(0, 6)}, {7, part(6, 15)}}, 5, 5}},
        {"at the last moment", {{{9, reply}}, 5, 5}},
        {"behind bytes of a stream", {{{1, Bytes(15, 0x81)}, {3, reply}}, 5, 5}},
        {"14 bytes", {{{1, part(0, 14)}}, 0, 16}},
        {"too late", {{{12, reply}}, 0, 16}},
        {"wrong checksum ends the scan", {{{1, wrong}}, 0, 5}}};
    for (const auto& [name, one] : cases) {
        SCOPED_TRACE(name);
        const auto& [pieces, port, lastTried] = one;
        AnswerWith(pieces);
        Link.FindDevice();
        EXPECT_EQ(State.DevicePort, port);
        EXPECT_EQ(Port.Opened.back(), lastTried);
        if (port == 0)
            continue;
        EXPECT_THAT(std::tuple(Port.OpenPort(), Port.Threshold, Link.StreamKey()), FieldsAre(port, 16U, 0x5A));
    }
}

TEST_F(DeviceLinkTest, TranslatesTheFilterSettingsAndSendsThemWithEveryPacket)
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
            expected[filter] = codes[filter][std::min(index, codes[filter].size() - 1)];  // outside, the last stays
            EXPECT_EQ(Port.Written.back(), CommandBytes(37, expected)) << filter << " " << index;
        }
    }
    Port.Written.clear();
    Link.StartStream(LeadSystem::Frank);  // the first parameter goes, the muscle filter's stays behind it
    State.SysInfo.BaselineReturn = 255;
    Link.ReturnBaseline();
    EXPECT_THAT(Port.Written, ElementsAre(CommandBytes(21, {2, 0, 7}), CommandBytes(53, {0, 0, 7})))
        << "2560 leaves its low byte";
}

}  // namespace
}  // namespace ecg
