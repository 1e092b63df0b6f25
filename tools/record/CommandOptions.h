// The options among the words of a command.
#pragma once

#include "wfdb/Outcome.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace ecg {

struct CommandOption {
    const char* Name;                                    // with its "--"
    const char* Refusal;                                 // why a value is refused; null: the option has no value
    std::function<bool(const std::string& value)> Take;  // false: refused
};

// Gives each word that begins with "--" to the option of that name, with the next word ("" behind the last) when it has
// a value. Returns the other words, or what is wrong with an option.
Outcome<std::vector<std::string>> TakeOptions(std::span<const std::string> words,
                                              std::span<const CommandOption> options);

}  // namespace ecg
