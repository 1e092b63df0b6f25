#include "survival/Child.h"

#include "survival/FileChanges.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <iterator>
#include <poll.h>
#include <sstream>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace ecg {
namespace {

[[noreturn]] void BecomeChild(Words arguments, const std::filesystem::path& output, int orders, int steps)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    // First out of the way of the numbers they are to get.
    constexpr int aside = 10;
    const int stepsAside = fcntl(steps, F_DUPFD, aside);
    const int file = open(output.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    dup2(orders, STDIN_FILENO);
    dup2(file, STDOUT_FILENO);
    dup2(file, STDERR_FILENO);
    dup2(stepsAside, StepsHandle);
    close(stepsAside);

    arguments.insert(arguments.begin(), "ecg-survival");
    std::vector<char*> words;
    for (std::string& word : arguments)
        words.push_back(word.data());
    words.push_back(nullptr);
    execv("/proc/self/exe", words.data());
    _exit(127);
}

Words SplitWords(const std::string& line)
{
    std::istringstream stream(line);
    return {std::istream_iterator<std::string>(stream), {}};
}

}  // namespace

Child::Child(const Words& arguments, const std::filesystem::path& output)
{
    std::array<int, 2> orders{-1, -1};
    std::array<int, 2> steps{-1, -1};
    if (pipe2(orders.data(), O_CLOEXEC) != 0 || pipe2(steps.data(), O_CLOEXEC) != 0)
        return;
    process_ = fork();
    if (process_ == 0)
        BecomeChild(arguments, output, orders[0], steps[1]);
    close(orders[0]);
    close(steps[1]);
    orders_ = orders[1];
    steps_ = steps[0];
}

Child::~Child()
{
    Kill();
    close(orders_);
    close(steps_);
}

std::optional<Words> Child::NextLine(std::chrono::steady_clock::time_point until)
{
    for (;;) {
        if (const std::size_t end = pending_.find('\n'); end != std::string::npos) {
            const std::string line = pending_.substr(0, end);
            pending_.erase(0, end + 1);
            return SplitWords(line);
        }
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(until - std::chrono::steady_clock::now()).count();
        pollfd input{steps_, POLLIN, 0};
        std::array<char, 4096> bytes{};
        if (poll(&input, 1, static_cast<int>(std::max<std::int64_t>(left, 0))) <= 0)
            return std::nullopt;
        const ssize_t count = read(steps_, bytes.data(), bytes.size());
        ended_ = count <= 0;
        if (ended_)
            return std::nullopt;
        pending_.append(bytes.data(), static_cast<std::size_t>(count));
    }
}

void Child::Tell(const char* word) const
{
    const std::string line = std::string(word) + "\n";
    [[maybe_unused]] const ssize_t written = write(orders_, line.data(), line.size());
}

void Child::KillAtFileChange(int count)
{
    RunToFileChange(process_, count, StepsHandle, [this] { Tell("go"); });
    Kill();
}

void Child::Kill()
{
    if (process_ > 0) {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
        process_ = -1;
    }
}

}  // namespace ecg
