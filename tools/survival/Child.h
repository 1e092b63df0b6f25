// The process that is to be killed: this program again, as the workstation. It tells its steps line by line.
#pragma once

#include "survival/DataState.h"

#include <chrono>
#include <optional>
#include <sys/types.h>

namespace ecg {

inline constexpr int StepsHandle = 3;  // where the child writes its lines

class Child {
public:
    // Starts the program with these words behind its name; what it prints goes to the file `output`.
    Child(const Words& arguments, const std::filesystem::path& output);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    // The next line, as words; nothing when the child has ended or is silent until `until`.
    std::optional<Words> NextLine(std::chrono::steady_clock::time_point until);

    // Whether it has ended by itself, or was killed; known when `NextLine` has come to the end.
    bool Ended() const { return ended_; }

    // Lets it go on: it waits for a word when it has started and before each step.
    void Tell(const char* word) const;

    // SIGKILL. Lines that it had written before can still be read.
    void Kill();

    // Lets it go on to its `count`th change of the disk, or until it is about to tell its next line; kills it there.
    void KillAtFileChange(int count);

private:
    pid_t process_ = -1;
    int steps_ = -1;
    int orders_ = -1;
    std::string pending_;
    bool ended_ = false;
};

}  // namespace ecg
