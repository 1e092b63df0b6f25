#include "record/CommandOptions.h"

#include <algorithm>

namespace ecg {

Outcome<std::vector<std::string>> TakeOptions(std::span<const std::string> words,
                                              std::span<const CommandOption> options)
{
    using Result = Outcome<std::vector<std::string>>;
    std::vector<std::string> others;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (!words[i].starts_with("--")) {
            others.push_back(words[i]);
            continue;
        }
        const auto option = std::ranges::find(options, words[i], &CommandOption::Name);
        if (option == options.end())
            return Result::Failure("unknown option " + words[i]);
        const bool hasValue = option->Refusal != nullptr;
        if (hasValue)
            ++i;
        if (!option->Take(hasValue && i < words.size() ? words[i] : ""))
            return Result::Failure(std::string(option->Name) + " takes " + option->Refusal);
    }
    return others;
}

}  // namespace ecg
