// An amplifier box in software on a pseudo-terminal, for the workstation, the tour and tests.
//
//   BoxSimulator box({.Link = folder / "ports/com1", .Source = "EcgTest.dat"});
//   if (!box.IsOk()) ... box.Reason() ...
//   box.Command("off 3");
//
// The box works on a thread of its own from construction to destruction. It streams by the clock: a late frame is
// caught up, up to 0.2 s; what is older than that is lost.
#pragma once

#include "box/Amplifier.h"
#include "box/BoxCommand.h"
#include "box/LineFaults.h"
#include "box/PseudoTerminal.h"

#include <chrono>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace ecg {

struct BoxOptions {
    std::filesystem::path Link{};    // where the far end of the line is linked
    std::filesystem::path Source{};  // see `LoadFrameSource`
    std::uint8_t Key = 0x5A;         // scrambles the stream
    std::vector<ScriptStep> Script{};

    // So many times as fast as a real box. Above 1 the box also waits for its reader, as no serial line can: each frame
    // of the stream arrives, however slow the reader is.
    int Speed = 1;

    // Told each packet received and each command obeyed: seconds since the start and a line of text. Called on the
    // box's thread.
    std::function<void(double, const std::string&)> Report{};
};

class BoxSimulator {
public:
    explicit BoxSimulator(BoxOptions options);
    BoxSimulator(const BoxSimulator&) = delete;
    BoxSimulator& operator=(const BoxSimulator&) = delete;
    ~BoxSimulator();

    // False when the source or the line could not be made; `Reason` says why and the box does nothing.
    bool IsOk() const { return reason_.empty(); }
    const std::string& Reason() const { return reason_; }

    // Hands a command to the box, which obeys it within about a millisecond; any thread. Returns what is wrong with
    // it, empty when nothing is.
    std::string Command(std::string_view line);

    // Becomes readable, for poll, once the box has stopped by "quit".
    int DoneHandle() const { return done_; }

private:
    using Clock = std::chrono::steady_clock;

    void Run();
    void Post(const BoxCommand& command);
    void ObeyCommands();
    void Obey(const BoxCommand& command);
    void Plug();
    void ServeLine();
    void SendDueFrames();
    bool SendRest();
    void Send(std::span<const std::uint8_t> bytes);
    void Wait();
    void Report(const std::string& text);

    BoxOptions options_;
    std::string reason_;
    int wake_ = -1;
    int done_ = -1;
    std::mutex mutex_;
    std::deque<BoxCommand> commands_;  // guarded by mutex_

    // The rest belongs to the thread.
    std::unique_ptr<Amplifier> amplifier_;
    PseudoTerminal line_;
    LineFaults faults_;
    Clock::time_point start_;
    Clock::time_point silentUntil_;               // in the past: not silent
    std::optional<Clock::time_point> nextFrame_;  // while it streams
    std::vector<std::uint8_t> rest_;              // of the stream, while the box waits for its reader
    std::size_t nextStep_ = 0;
    bool quit_ = false;
    std::thread thread_;
};

}  // namespace ecg
