// A serial line made of a pseudo-terminal: the box holds one end, whoever opens the link holds the other.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

namespace ecg {

class PseudoTerminal {
public:
    PseudoTerminal() = default;
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;
    ~PseudoTerminal() { Unplug(); }

    // Makes the line and a link to its far end at `link`, and the folder of the link where it is missing. A link
    // that stands there is replaced, anything else is not touched. Returns why it failed; empty = it did not.
    std::string Plug(const std::filesystem::path& link);

    // The line is gone, the far end notices; the link is removed. Nothing happens when no line is plugged.
    void Unplug();

    bool IsPlugged() const { return handle_ >= 0; }

    // For waiting with poll; -1 while unplugged.
    int Handle() const { return handle_; }

    // Whether somebody has the far end open. When the last one leaves, bytes nobody took are thrown away.
    bool HasReader();

    // Takes waiting bytes without waiting; returns how many.
    std::size_t Read(std::span<std::uint8_t> bytes);

    // Sends without waiting. Returns how many of the last bytes the line had no room for. While nobody has the far end
    // open, all is lost.
    std::size_t Write(std::span<const std::uint8_t> bytes);

private:
    int handle_ = -1;
    bool hadReader_ = false;
    std::filesystem::path link_;
    std::filesystem::path farEnd_;
};

}  // namespace ecg
