#include "record/MeasureCommand.h"

#include <charconv>

namespace ecg {
namespace {

std::optional<std::int32_t> WholeNumber(const std::string& word)
{
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc{} || end != word.data() + word.size())
        return std::nullopt;
    return value;
}

// Takes one option with its value; returns what is wrong with it.
std::string TakeOption(const std::string& option, const std::string& word, MeasureOptions& options)
{
    const auto value = WholeNumber(word);
    if (option == "--start") {
        options.Start = value.value_or(0);
        return options.Start >= FirstSampleSlot ? "" : "--start takes a slot, 300 or more";
    }
    if (option == "--beat") {
        options.Beat = value.value_or(-1);
        const bool valid = options.Beat >= 0 && options.Beat < static_cast<int>(AboutFile::LongestFlagList);
        return valid ? "" : "--beat takes a number from 0 to 49";
    }
    return "unknown option " + option;
}

}  // namespace

Outcome<MeasureOptions> ParseMeasure(std::span<const std::string> words)
{
    using Result = Outcome<MeasureOptions>;
    MeasureOptions options;
    std::vector<std::string> records;  // the words that are no options
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (!words[i].starts_with("--")) {
            records.push_back(words[i]);
        } else if (words[i] == "--all") {
            options.All = true;
        } else {
            const std::string value = i + 1 < words.size() ? words[i + 1] : "";
            if (const std::string reason = TakeOption(words[i], value, options); !reason.empty())
                return Result::Failure(reason);
            ++i;
        }
    }
    if (records.size() != 1)
        return Result::Failure("measure takes a record");
    if (options.All && (options.Start || options.Beat))
        return Result::Failure("--all takes every beat of the record, neither --start nor --beat");
    options.Record = records[0];
    return options;
}

}  // namespace ecg
