#include "box/PseudoTerminal.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace ecg {
namespace {

constexpr int openFlags = O_RDWR | O_NOCTTY | O_CLOEXEC;

// Bytes pass as they are: no echo, no line editing, no flow control.
bool MakeRaw(int handle)
{
    termios settings{};
    if (tcgetattr(handle, &settings) != 0)
        return false;
    cfmakeraw(&settings);
    cfsetspeed(&settings, B115200);
    return tcsetattr(handle, TCSANOW, &settings) == 0;
}

// Sets up the far end and leaves it closed, which is the state in which `HasReader` can tell.
bool PrepareFarEnd(const char* name)
{
    const int handle = open(name, openFlags);
    if (handle < 0)
        return false;
    const bool raw = MakeRaw(handle);
    close(handle);
    return raw;
}

// What has arrived at the far end can only be thrown away there.
void DiscardUnread(const std::filesystem::path& farEnd)
{
    const int handle = open(farEnd.c_str(), openFlags);
    if (handle < 0)
        return;
    tcflush(handle, TCIFLUSH);
    close(handle);
}

std::string PlaceLink(const std::filesystem::path& link, const std::filesystem::path& target)
{
    namespace fs = std::filesystem;
    std::error_code error;
    if (link.has_parent_path())
        fs::create_directories(link.parent_path(), error);
    if (fs::exists(fs::symlink_status(link, error)) && !fs::is_symlink(fs::symlink_status(link, error)))
        return link.string() + " exists and is no link";
    fs::path aside = link;
    aside += ".new";
    fs::remove(aside, error);
    fs::create_symlink(target, aside, error);
    if (!error)
        fs::rename(aside, link, error);
    return error ? "cannot make the link " + link.string() + ": " + error.message() : std::string();
}

}  // namespace

std::string PseudoTerminal::Plug(const std::filesystem::path& link)
{
    Unplug();
    handle_ = posix_openpt(openFlags | O_NONBLOCK);
    std::array<char, 128> name{};
    if (handle_ < 0 || grantpt(handle_) != 0 || unlockpt(handle_) != 0 ||
        ptsname_r(handle_, name.data(), name.size()) != 0 || !PrepareFarEnd(name.data())) {
        std::string reason = std::string("cannot make a pseudo-terminal: ") + std::strerror(errno);
        Unplug();
        return reason;
    }
    std::string reason = PlaceLink(link, name.data());
    if (!reason.empty()) {
        Unplug();
        return reason;
    }
    link_ = link;
    farEnd_ = name.data();
    return {};
}

void PseudoTerminal::Unplug()
{
    if (handle_ < 0)
        return;
    std::error_code error;
    if (!link_.empty() && std::filesystem::read_symlink(link_, error) == farEnd_)  // not one that replaced ours
        std::filesystem::remove(link_, error);
    close(handle_);
    handle_ = -1;
    hadReader_ = false;
    link_.clear();
}

bool PseudoTerminal::HasReader()
{
    pollfd line{handle_, 0, 0};
    const bool hasReader = handle_ >= 0 && poll(&line, 1, 0) >= 0 && (line.revents & POLLHUP) == 0;
    if (hadReader_ && !hasReader)
        DiscardUnread(farEnd_);
    hadReader_ = hasReader;
    return hasReader;
}

std::size_t PseudoTerminal::Read(std::span<std::uint8_t> bytes)
{
    if (handle_ < 0)
        return 0;
    const ssize_t got = read(handle_, bytes.data(), bytes.size());
    return got > 0 ? static_cast<std::size_t>(got) : 0;
}

std::size_t PseudoTerminal::Write(std::span<const std::uint8_t> bytes)
{
    if (bytes.empty() || !HasReader())
        return 0;
    const ssize_t taken = write(handle_, bytes.data(), bytes.size());
    if (taken >= 0 || errno == EAGAIN)
        return bytes.size() - static_cast<std::size_t>(std::max<ssize_t>(taken, 0));
    hadReader_ = false;
    return 0;
}

}  // namespace ecg
