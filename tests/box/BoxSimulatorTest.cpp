// The whole box on a real pseudo-terminal, spoken to with plain system calls.
#include "box/BoxSimulator.h"

#include "CommandBytes.h"
#include "SampleFile.h"
#include "support/TemporaryDataFolder.h"

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

constexpr auto patience = 10s; // for what comes within milliseconds unless something is wrong
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
    ~FarEnd()
    {
        if (handle_ >= 0)
            close(handle_);
    }

    bool IsOpen() const { return handle_ >= 0; }

    void Send(const std::vector<std::uint8_t>& bytes)
    {
        ASSERT_EQ(write(handle_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }

    // The next `count` bytes, fewer when they do not come in time or the line is gone.
    std::vector<std::uint8_t> Receive(std::size_t count)
    {
        std::vector<std::uint8_t> bytes;
        Eventually([&] {
            std::array<std::uint8_t, 256> chunk{};
            const ssize_t got = read(handle_, chunk.data(), std::min(chunk.size(), count - bytes.size()));
            if (got > 0)
                bytes.insert(bytes.end(), chunk.begin(), chunk.begin() + got);
            return bytes.size() == count || IsHungUp();
        });
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

// A frame per start byte, its channels put together by the format's own words: 6 bits a byte, high half first.
std::vector<Frame> Decode(const std::vector<std::uint8_t>& stream)
{
    std::vector<Frame> frames;
    std::size_t position = 0;
    for (const std::uint8_t scrambled : stream) {
        const int byte = scrambled ^ key;
        if (byte > 127) {
            frames.emplace_back();
            position = 0;
        }
        if (!frames.empty() && position < 16) {
            std::int16_t& channel = frames.back()[position / 2];
            channel = static_cast<std::int16_t>(channel * 64 + (byte & 63));
            ++position;
        }
    }
    return frames;
}

class BoxOnALine : public testing::Test {
protected:
    BoxOnALine()
    {
        for (std::int16_t i = 0; i < 2000; ++i)
            signal_.push_back({i, 2048, static_cast<std::int16_t>(4095 - i), 1, 2, 3, 4, 5});
        WriteSampleFile(folder_.File("signal.W"), signal_);
    }

    BoxOptions Options(std::vector<ScriptStep> script = {})
    {
        return {.Link = Link(),
                .Source = folder_.File("signal.W"),
                .Key = key,
                .Script = std::move(script),
                .Report = [this](double, const std::string& line) { Note(line); }};
    }

    std::filesystem::path Link() const { return folder_.Paths().Program / "ports" / "com1"; }
    std::filesystem::path File(const char* name) const { return folder_.File(name); }
    const std::vector<Frame>& Signal() const { return signal_; }

    bool WasTold(const std::string& line)
    {
        return Eventually([&] {
            const std::lock_guard lock(mutex_);
            return std::ranges::count(lines_, line) > 0;
        });
    }

    static bool Identify(FarEnd& port)
    {
        port.Send(CommandBytes(69));
        const auto reply = port.Receive(15);
        return reply.size() == 15 && std::string(reply.begin(), reply.begin() + 4) == "TOLM" && reply[13] == key;
    }

private:
    void Note(const std::string& line)
    {
        const std::lock_guard lock(mutex_);
        lines_.push_back(line);
    }

    TemporaryDataFolder folder_;
    std::vector<Frame> signal_;
    std::mutex mutex_;
    std::vector<std::string> lines_;
};

TEST_F(BoxOnALine, IdentifiesStreamsAndStops)
{
    const BoxSimulator box(Options());
    ASSERT_TRUE(box.IsOk()) << box.Reason();
    FarEnd port(Link());
    ASSERT_TRUE(port.IsOpen());
    EXPECT_TRUE(Identify(port));

    port.Send(CommandBytes(21, {1, 0, 0}));
    constexpr std::size_t count = 100; // fits into the line's buffer, however late this end reads
    const auto frames = Decode(port.Receive(count * 16));
    ASSERT_EQ(frames.size(), count);
    for (std::size_t i = 0; i < count; ++i)
        ASSERT_EQ(frames[i], Signal()[i]) << "frame " << i;

    port.Send(CommandBytes(21, {0, 0, 0}));
    ASSERT_TRUE(WasTold("received 21 stop"));
    port.Clear();
    EXPECT_TRUE(Identify(port)) << "something came after the stop";
    EXPECT_EQ(port.Waiting(), 0U);
}

TEST_F(BoxOnALine, RefusesDamagedPacketsAndHearsTheNext)
{
    const BoxSimulator box(Options());
    FarEnd port(Link());
    auto damaged = CommandBytes(21, {1, 0, 0});
    damaged.back() ^= 1;
    port.Send(std::vector<std::uint8_t>{'x', 'R', 0x11, 0x13, 0x03, 0x0A, 0x0D} + damaged);
    EXPECT_TRUE(Identify(port));
    EXPECT_TRUE(WasTold("refused 7 bytes that begin no command packet"));
    EXPECT_TRUE(WasTold("refused a command packet with a wrong checksum"));
}

TEST_F(BoxOnALine, ComesBackOnANewLineAfterAnUnplug)
{
    BoxSimulator box(Options());
    FarEnd port(Link());
    port.Send(CommandBytes(21, {1, 0, 0}));
    EXPECT_EQ(port.Receive(160).size(), 160U);

    EXPECT_EQ(box.Command("unplug"), "");
    EXPECT_TRUE(Eventually([&] { return port.IsHungUp(); }));
    EXPECT_FALSE(std::filesystem::is_symlink(Link()));

    EXPECT_EQ(box.Command("replug"), "");
    ASSERT_TRUE(WasTold("replugged"));
    FarEnd again(Link());
    EXPECT_TRUE(Identify(again)) << "a box that had no power does not stream";
}

TEST_F(BoxOnALine, KeepsNothingForAReaderThatIsAway)
{
    BoxSimulator box(Options());
    {
        FarEnd port(Link());
        port.Send(CommandBytes(21, {1, 0, 0}));
        ASSERT_TRUE(Eventually([&] { return port.Waiting() >= 20 * 16; })) << "leaves with frames unread";
    }
    std::this_thread::sleep_for(300ms); // 150 frames of streaming to nobody
    FarEnd port(Link());
    const auto frames = Decode(port.Receive(20 * 16));
    ASSERT_GE(frames.size(), 3U);
    EXPECT_GT(frames[1][0], 60) << "old frames were kept";
}

TEST_F(BoxOnALine, ObeysItsScriptAndQuits)
{
    BoxSimulator box(Options({{0.01, {BoxAction::ElectrodeOff, 3}}, {0.02, {BoxAction::Quit, 0}}}));
    pollfd done{box.DoneHandle(), POLLIN, 0};
    EXPECT_EQ(poll(&done, 1, 10000), 1);
    EXPECT_TRUE(WasTold("electrode 3 off"));
    EXPECT_FALSE(std::filesystem::is_symlink(Link()));
}

TEST_F(BoxOnALine, ShowsItsFaultsInTheStream)
{
    BoxSimulator box(Options());
    FarEnd port(Link());
    EXPECT_EQ(box.Command("garbage 50"), "");
    EXPECT_EQ(port.Receive(50).size(), 50U);
    EXPECT_EQ(port.Waiting(), 0U);

    EXPECT_EQ(box.Command("drop 100"), "");
    ASSERT_TRUE(WasTold("dropping 100 % of the bytes"));
    port.Send(CommandBytes(21, {1, 0, 0}));
    EXPECT_TRUE(Identify(port)) << "only the stream loses bytes";
    EXPECT_EQ(port.Waiting(), 0U);

    EXPECT_EQ(box.Command("silence 3600"), "");
    EXPECT_EQ(box.Command("drop 0"), "");
    EXPECT_EQ(box.Command("garbage 50"), "");
    ASSERT_TRUE(WasTold("sent 50 bytes of garbage"));
    EXPECT_EQ(port.Waiting(), 0U);
    EXPECT_EQ(box.Command("silence 0"), "");
    EXPECT_EQ(port.Receive(160).size(), 160U);
    EXPECT_NE(box.Command("silence"), "");
}

TEST_F(BoxOnALine, ReplacesAnOldLinkAndTouchesNothingElse)
{
    std::filesystem::create_directories(Link().parent_path());
    std::filesystem::create_symlink("/dev/null/gone", Link());
    {
        const BoxSimulator box(Options());
        EXPECT_TRUE(box.IsOk()) << box.Reason();
        EXPECT_TRUE(FarEnd(Link()).IsOpen());
    }
    EXPECT_FALSE(std::filesystem::is_symlink(Link()));

    std::ofstream(Link()) << "a file of somebody else";
    const BoxSimulator box(Options());
    EXPECT_NE(box.Reason().find("exists and is no link"), std::string::npos) << box.Reason();
    EXPECT_TRUE(std::filesystem::is_regular_file(Link()));
}

TEST_F(BoxOnALine, SaysWhyItCannotPlay)
{
    BoxOptions options = Options();
    options.Source = File("missing.W");
    const BoxSimulator box(options);
    EXPECT_FALSE(box.IsOk());
    EXPECT_NE(box.Reason().find("missing.W"), std::string::npos);
    EXPECT_FALSE(std::filesystem::is_symlink(Link()));
}

} // namespace
} // namespace ecg
