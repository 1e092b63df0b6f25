#include "box/BoxSimulator.h"

#include "core/Numbers.h"

#include <algorithm>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace ecg {
namespace {

using namespace std::chrono_literals;

constexpr auto framePeriod = std::chrono::microseconds(1'000'000 / FramesPerSecond);
constexpr auto mostCatchUp = 200ms;
constexpr auto readerCheckPeriod = 1ms;
constexpr auto openCheckPeriod = 1ms;  // nothing wakes a pseudo-terminal's owner when the far end is opened

std::chrono::steady_clock::duration Seconds(double seconds)
{
    return std::chrono::duration_cast<std::chrono::steady_clock::duration>(std::chrono::duration<double>(seconds));
}

void Signal(int eventHandle)
{
    eventfd_write(eventHandle, 1);
}

}  // namespace

BoxSimulator::BoxSimulator(BoxOptions options)
    : options_(std::move(options)),
      wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      done_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    auto source = LoadFrameSource(options_.Source);
    reason_ = source ? line_.Plug(options_.Link) : source.Reason();
    if (!IsOk())
        return;
    amplifier_ = std::make_unique<Amplifier>(std::move(*source), options_.Key,
                                             [this](const std::string& text) { Report(text); });
    start_ = Clock::now();
    thread_ = std::thread([this] { Run(); });
}

BoxSimulator::~BoxSimulator()
{
    if (thread_.joinable()) {
        Post({BoxAction::Quit});
        thread_.join();
    }
    close(wake_);
    close(done_);
}

std::string BoxSimulator::Command(std::string_view line)
{
    const auto command = ParseBoxCommand(line);
    if (command)
        Post(*command);
    return command.Reason();
}

void BoxSimulator::Post(const BoxCommand& command)
{
    {
        const std::lock_guard lock(mutex_);
        commands_.push_back(command);
    }
    Signal(wake_);
}

void BoxSimulator::Run()
{
    // Without a wait behind the last command: on a line that is open and silent nothing would end it.
    for (ObeyCommands(); !quit_; ObeyCommands()) {
        ServeLine();
        SendDueFrames();
        Wait();
    }
    line_.Unplug();
    Signal(done_);
}

void BoxSimulator::ObeyCommands()
{
    for (; nextStep_ < options_.Script.size(); ++nextStep_) {
        const ScriptStep& step = options_.Script[nextStep_];
        if (start_ + Seconds(step.Seconds) > Clock::now())
            break;
        Obey(step.Command);
    }
    std::deque<BoxCommand> commands;
    {
        const std::lock_guard lock(mutex_);
        commands.swap(commands_);
    }
    for (const BoxCommand& command : commands)
        Obey(command);
}

void BoxSimulator::Obey(const BoxCommand& command)
{
    const std::string number = FormatDecimal(command.Value, command.Value == RoundHalfEven(command.Value) ? 0 : 3);
    switch (command.Action) {
    case BoxAction::ElectrodeOff:
    case BoxAction::ElectrodeOn: {
        const bool off = command.Action == BoxAction::ElectrodeOff;
        amplifier_->SetElectrode(RoundToInt(command.Value), off);
        return Report("electrode " + number + (off ? " off" : " on"));
    }
    case BoxAction::Drop:
        faults_.SetDropPercent(command.Value);
        return Report("dropping " + number + " % of the bytes");
    case BoxAction::Garbage:
        Send(faults_.Garbage(static_cast<std::size_t>(command.Value)));
        return Report("sent " + number + " bytes of garbage");
    case BoxAction::Silence:
        silentUntil_ = Clock::now() + Seconds(command.Value);
        return Report("silent for " + number + " s");
    case BoxAction::Unplug:
        line_.Unplug();
        amplifier_->PowerCycle();
        return Report("unplugged");
    case BoxAction::Replug:
        return Plug();
    case BoxAction::Quit:
        quit_ = true;
        return Report("quit");
    }
}

void BoxSimulator::Plug()
{
    if (line_.IsPlugged())
        return Report("is plugged");
    const std::string reason = line_.Plug(options_.Link);
    Report(reason.empty() ? "replugged" : reason);
}

void BoxSimulator::ServeLine()
{
    std::array<std::uint8_t, 512> bytes{};
    while (const std::size_t count = line_.Read(bytes)) {
        Send(amplifier_->Receive(std::span(bytes).first(count)));
        if (count < bytes.size())
            break;
    }
}

void BoxSimulator::SendDueFrames()
{
    if (amplifier_->Stream() == StreamKind::Off) {
        nextFrame_.reset();
        rest_.clear();
        return;
    }
    const auto now = Clock::now();
    if (!SendRest()) {
        nextFrame_ = now + readerCheckPeriod;
        return;
    }
    const auto period = framePeriod / options_.Speed;
    nextFrame_ = std::max(nextFrame_.value_or(now + period), now - mostCatchUp);
    std::vector<std::uint8_t> bytes;
    for (; *nextFrame_ <= now; *nextFrame_ += period)
        faults_.Pass(amplifier_->NextFrame(), bytes);
    if (options_.Speed == 1) {
        Send(bytes);
        return;
    }
    rest_ = std::move(bytes);
    SendRest();
}

// True when nothing is left over.
bool BoxSimulator::SendRest()
{
    if (Clock::now() < silentUntil_)
        rest_.clear();
    const std::size_t refused = line_.Write(rest_);
    rest_.erase(rest_.begin(), rest_.end() - static_cast<std::ptrdiff_t>(refused));
    return rest_.empty();
}

void BoxSimulator::Send(std::span<const std::uint8_t> bytes)
{
    if (Clock::now() >= silentUntil_)
        line_.Write(bytes);
}

void BoxSimulator::Wait()
{
    auto until = Clock::time_point::max();
    if (nextFrame_)
        until = *nextFrame_;
    if (nextStep_ < options_.Script.size())
        until = std::min(until, start_ + Seconds(options_.Script[nextStep_].Seconds));
    const bool hasReader = line_.HasReader();
    if (line_.IsPlugged() && !hasReader)
        until = std::min(until, Clock::now() + openCheckPeriod);

    timespec timeout{};
    if (until != Clock::time_point::max()) {
        const auto left = std::max(until - Clock::now(), Clock::duration::zero());
        const auto seconds = std::chrono::floor<std::chrono::seconds>(left);
        timeout.tv_sec = seconds.count();
        timeout.tv_nsec = std::chrono::nanoseconds(left - seconds).count();
    }
    // Without a reader the line would report "hung up" at once, over and over.
    std::array<pollfd, 2> events{{{wake_, POLLIN, 0}, {hasReader ? line_.Handle() : -1, POLLIN, 0}}};
    ppoll(events.data(), events.size(), until == Clock::time_point::max() ? nullptr : &timeout, nullptr);
    eventfd_t count = 0;
    eventfd_read(wake_, &count);
}

void BoxSimulator::Report(const std::string& text)
{
    if (options_.Report)
        options_.Report(std::chrono::duration<double>(Clock::now() - start_).count(), text);
}

}  // namespace ecg
