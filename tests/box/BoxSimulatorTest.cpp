// The whole box on a real pseudo-terminal, spoken to with plain system calls.
#include "box/BoxSimulator.h"

#include "support/FakeBox.h"
#include "support/TemporaryDataFolder.h"
#include "support/WriteDemoFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace ecg {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 10s;  // for what comes within milliseconds unless something is wrong
constexpr std::uint8_t key = 0xB4;

// Waits for `condition`; false when it does not come true in time.
template <class Condition>
bool Eventually(Condition condition)
{
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(1ms);
    }
    return true;
}

// The workstation's end of the line.
class FarEnd {
public:
    explicit FarEnd(const std::filesystem::path& link) : handle_(open(link.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)) {}
    FarEnd(const FarEnd&) = delete;
    FarEnd& operator=(const FarEnd&) = delete;
    ~FarEnd() { close(handle_); }

    void Send(const Bytes& bytes)
    {
        ASSERT_EQ(write(handle_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }

    // The next `count` bytes, fewer when they do not come in time or the line is gone.
    Bytes Receive(std::size_t count)
    {
        Bytes bytes(count);
        std::size_t got = 0;
        Eventually([&] {
            const ssize_t more = read(handle_, bytes.data() + got, count - got);
            got += more > 0 ? static_cast<std::size_t>(more) : 0;
            return got == count || IsHungUp();
        });
        bytes.resize(got);
        return bytes;
    }

    std::size_t Waiting() const
    {
        int count = 0;
        return ioctl(handle_, FIONREAD, &count) == 0 ? static_cast<std::size_t>(count) : 0;
    }

    bool IsHungUp() const
    {
        pollfd line{handle_, 0, 0};
        return poll(&line, 1, 0) > 0 && (line.revents & POLLHUP) != 0;
    }

    void Clear() { tcflush(handle_, TCIOFLUSH); }

private:
    int handle_;
};

class BoxOnALine : public testing::Test {
protected:
    BoxOnALine()
    {
        // Every start byte that there is within 100 frames, so that any the line swallows or changes is missed.
        for (std::int16_t i = 0; i < 2000; ++i)
            Signal.push_back({static_cast<std::int16_t>(i * 41 % 4096), 2048, 1, 2, 3, 4, 5, i});
        WriteDemoFile(Folder.File("signal.W"), Signal);
    }

    BoxOptions Options(std::vector<ScriptStep> script = {})
    {
        return {.Link = Link,
                .Source = Folder.File("signal.W"),
                .Key = key,
                .Script = std::move(script),
                .Report = [this](double, const std::string& line) {
                    const std::lock_guard lock(mutex_);
                    lines_.push_back(line);
                }};
    }

    bool WasTold(const std::string& line)
    {
        return Eventually([&] {
            const std::lock_guard lock(mutex_);
            return std::ranges::count(lines_, line) > 0;
        });
    }

    // Whether the reply to an identification is the next that comes, though there is time for 15 frames before it.
    static bool Identifies(FarEnd& port)
    {
        std::this_thread::sleep_for(30ms);
        port.Send(CommandBytes(69, {}));
        // 'T' + 'O' + 'L' + 'M' = 84 + 79 + 76 + 77 = 316; with the key 180 that is 496, low 8 bits 240
        return port.Receive(15) == Bytes{'T', 'O', 'L', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 0, key, 240};
    }

    const Bytes StartWilson = CommandBytes(21, {1, 0, 0});
    TemporaryDataFolder Folder;
    const std::filesystem::path Link = Folder.Paths().Program / "ports" / "com1";
    std::vector<Frame> Signal;

private:
    std::mutex mutex_;
    std::vector<std::string> lines_;
};

TEST_F(BoxOnALine, IdentifiesStreamsAndStops)
{
    const BoxSimulator box(Options());
    ASSERT_TRUE(box.IsOk()) << box.Reason();
    FarEnd port(Link);
    EXPECT_TRUE(Identifies(port));

    constexpr std::size_t count = 100;  // fits into the line's buffer, however late this end reads
    Bytes expected;
    for (std::size_t i = 0; i < count; ++i)
        expected = expected + EncodeFrame(Signal[i], 0, i % 16 == 15 ? FrameKind::Status : FrameKind::LeadOff);
    port.Send(StartWilson);
    EXPECT_EQ(Scrambled(port.Receive(expected.size()), key), expected);

    port.Send(CommandBytes(37, {10, 10, 10}) + CommandBytes(21, {0, 0, 0}));  // 10 is a line feed
    EXPECT_TRUE(WasTold("received 37 filters: AC 60 Hz, baseline 1.6 s, muscle 54 Hz"));
    ASSERT_TRUE(WasTold("received 21 stop"));
    port.Clear();
    EXPECT_TRUE(Identifies(port)) << "something came after the stop";
}

TEST_F(BoxOnALine, ComesBackOnANewLineAfterAnUnplugAndQuits)
{
    BoxSimulator box(Options({{0.01, {BoxAction::ElectrodeOff, 3}}}));
    FarEnd port(Link);
    port.Send(StartWilson);
    EXPECT_EQ(port.Receive(160).size(), 160U);
    EXPECT_TRUE(WasTold("electrode 3 off")) << "its script";

    EXPECT_EQ(box.Command("unplug"), "");
    EXPECT_TRUE(Eventually([&] { return port.IsHungUp(); }));
    EXPECT_FALSE(std::filesystem::is_symlink(Link));

    EXPECT_EQ(box.Command("replug"), "");
    ASSERT_TRUE(WasTold("replugged"));
    FarEnd again(Link);
    EXPECT_TRUE(Identifies(again)) << "a box that had no power does not stream";

    EXPECT_EQ(box.Command("quit"), "");
    pollfd done{box.DoneHandle(), POLLIN, 0};
    EXPECT_EQ(poll(&done, 1, 10000), 1);
    EXPECT_FALSE(std::filesystem::is_symlink(Link));
}

TEST_F(BoxOnALine, KeepsNothingForAReaderThatIsAway)
{
    BoxSimulator box(Options());
    {
        FarEnd port(Link);
        port.Send(StartWilson);
        ASSERT_TRUE(Eventually([&] { return port.Waiting() >= 20 * 16; })) << "leaves with frames unread";
    }
    std::this_thread::sleep_for(300ms);  // 150 frames of streaming to nobody
    FarEnd port(Link);
    const Bytes stream = Scrambled(port.Receive(20 * 16), key);
    const auto frame = std::ranges::find_if(stream, [](int byte) { return byte > 127; });
    ASSERT_GE(stream.end() - frame, 16);
    EXPECT_GT((frame[14] & 63) * 64 + (frame[15] & 63), 60) << "old frames were kept";
}

TEST_F(BoxOnALine, ShowsItsFaultsInTheStream)
{
    BoxSimulator box(Options());
    FarEnd port(Link);
    EXPECT_EQ(box.Command("garbage 50"), "");
    EXPECT_EQ(port.Receive(50).size(), 50U);

    EXPECT_EQ(box.Command("drop 100"), "");
    ASSERT_TRUE(WasTold("dropping 100 % of the bytes"));
    port.Send(StartWilson);
    EXPECT_TRUE(Identifies(port)) << "only the stream loses bytes";

    port.Send(CommandBytes(21, {0, 0, 0}));
    ASSERT_TRUE(WasTold("received 21 stop"));
    for (const char* command : {"silence 3600", "garbage 50", "silence 0", "drop 0"})
        EXPECT_EQ(box.Command(command), "");
    ASSERT_TRUE(WasTold("dropping 0 % of the bytes"));
    EXPECT_TRUE(Identifies(port)) << "something came in the silence";
    port.Send(StartWilson);
    EXPECT_EQ(port.Receive(160).size(), 160U);
    EXPECT_NE(box.Command("silence"), "");
}

TEST_F(BoxOnALine, ReplacesAnOldLinkAndTouchesNothingElse)
{
    std::filesystem::create_directories(Link.parent_path());
    std::filesystem::create_symlink("/dev/null/gone", Link);
    {
        const BoxSimulator box(Options());
        FarEnd port(Link);
        EXPECT_TRUE(Identifies(port)) << box.Reason();
    }
    EXPECT_FALSE(std::filesystem::is_symlink(Link));

    std::ofstream(Link) << "a file of somebody else";
    EXPECT_EQ(BoxSimulator(Options()).Reason(), Link.string() + " exists and is no link");
    EXPECT_TRUE(std::filesystem::is_regular_file(Link));
}

}  // namespace
}  // namespace ecg
