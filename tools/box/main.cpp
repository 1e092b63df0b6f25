// ecg-box: an amplifier box in software. See README.md, or --help.
#include "box/BoxSimulator.h"
#include "wfdb/WholeFile.h"
#include "wfdb/Words.h"

#include <csignal>
#include <cstdio>
#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace ecg {
namespace {

constexpr int exitFailure = 1;
constexpr int exitUsage = 2;

constexpr const char* help =
    R"(ecg-box --link PATH --source FILE [--key N] [--script FILE]

Plays an electrocardiograph's amplifier box on a pseudo-terminal and links that at PATH.

  --link PATH    where the workstation finds the line, e.g. ports/com1 in its program folder
  --source FILE  what is streamed: a WFDB header (.hea), a record (.W, .F), EcgTest.dat or VcgTest.dat
  --key N        scrambling key of the stream, 0 to 255 (90)
  --script FILE  commands with times in seconds from the start, one a line: 12.5 off 3

Commands, in the script and on standard input:

  off N            electrode N comes off: 1 to 4 the limbs, 5 to 10 those of V1 to V6
  on N             and is put back
  drop PERCENT     lose this share of the bytes of the stream, until the next drop
  garbage BYTES    send so many random bytes (1 to 4096)
  silence SECONDS  send nothing for so long (0 to 3600)
  unplug, replug   pull the cable, which also cuts the box's power; put it back
  quit             the end, as are Ctrl-C and SIGTERM

Each packet received and each command obeyed is printed with its time.
)";

struct Arguments {
    BoxOptions Options;
    bool Help = false;
    std::string Error;
};

std::string ReadScript(const std::string& path, std::vector<ScriptStep>& script)
{
    constexpr std::int64_t mostBytes = 1 << 20;
    const auto text = ReadWholeFile(path, mostBytes);
    if (!text)
        return text.Reason();
    auto steps = ParseScript(AsText(*text));
    if (steps)
        script = std::move(*steps);
    return steps.Reason();
}

std::string ReadKey(std::string_view text, std::uint8_t& key)
{
    const auto number = ParseNumber<std::uint8_t>(text);
    key = number.value_or(key);
    return number ? "" : "--key takes a number from 0 to 255";
}

Arguments ParseArguments(std::span<char*> words)
{
    Arguments arguments;
    for (std::size_t i = 0; i < words.size() && arguments.Error.empty(); ++i) {
        const std::string_view option = words[i];
        if (option == "--help" || option == "-h") {
            arguments.Help = true;
            return arguments;
        }
        const bool hasValue = i + 1 < words.size();
        const std::string value = hasValue ? words[i + 1] : "";
        ++i;
        if (option == "--link")
            arguments.Options.Link = value;
        else if (option == "--source")
            arguments.Options.Source = value;
        else if (option == "--key")
            arguments.Error = ReadKey(value, arguments.Options.Key);
        else if (option == "--script")
            arguments.Error = ReadScript(value, arguments.Options.Script);
        else
            arguments.Error = "unknown option " + std::string(option);
        if (!hasValue && arguments.Error.empty())
            arguments.Error = std::string(option) + " needs a value";
    }
    if (arguments.Error.empty() && (arguments.Options.Link.empty() || arguments.Options.Source.empty()))
        arguments.Error = "--link and --source are needed";
    return arguments;
}

// Blocks the ending signals in every thread, to take them by a handle instead.
int TakeEndingSignals()
{
    std::signal(SIGPIPE, SIG_IGN);
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&signals, signal);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_CLOEXEC);
}

// Standard input as lines, read without waiting for a whole one.
class LineInput {
public:
    // Reads what is there and hands each finished line to `take`. False at the end of input.
    template <class Take>
    bool Read(Take take)
    {
        constexpr std::size_t longestLine = 4096;
        std::array<char, 512> bytes{};
        const ssize_t count = read(STDIN_FILENO, bytes.data(), bytes.size());
        if (count <= 0)
            return false;
        for (const char c : std::span(bytes).first(static_cast<std::size_t>(count))) {
            if (c == '\n')
                take(std::exchange(line_, {}));
            else if (line_.size() < longestLine)
                line_ += c;
        }
        return true;
    }

private:
    std::string line_;
};

// Passes typed commands on until the box quits or a signal ends the program.
void Serve(BoxSimulator& box, int signals)
{
    LineInput input;
    std::array<pollfd, 3> events{{{box.DoneHandle(), POLLIN, 0}, {signals, POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}}};
    while (poll(events.data(), events.size(), -1) >= 0 && events[0].revents == 0 && events[1].revents == 0) {
        if (events[2].revents == 0)
            continue;
        const bool more = input.Read([&](const std::string& line) {
            if (line.find_first_not_of(" \t\r") == std::string::npos)
                return;
            if (const std::string reason = box.Command(line); !reason.empty())
                std::fprintf(stderr, "ecg-box: %s\n", reason.c_str());
        });
        if (!more)
            events[2].fd = -1;  // the box goes on without an operator
    }
}

int Main(std::span<char*> words)
{
    Arguments arguments = ParseArguments(words);
    if (arguments.Help) {
        std::fputs(help, stdout);
        return 0;
    }
    if (!arguments.Error.empty()) {
        std::fprintf(stderr, "ecg-box: %s; see ecg-box --help\n", arguments.Error.c_str());
        return exitUsage;
    }
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    const int signals = TakeEndingSignals();
    arguments.Options.Report = [](double seconds, const std::string& text) {
        std::printf("%9.3f %s\n", seconds, text.c_str());
    };
    const std::string link = arguments.Options.Link.string();
    BoxSimulator box(std::move(arguments.Options));
    if (!box.IsOk()) {
        std::fprintf(stderr, "ecg-box: %s\n", box.Reason().c_str());
        return exitFailure;
    }
    std::printf("the box is at %s\n", link.c_str());
    Serve(box, signals);
    return 0;
}

}  // namespace
}  // namespace ecg

int main(int argc, char** argv)
{
    return ecg::Main(std::span(argv, static_cast<std::size_t>(argc)).subspan(1));
}
