#include "record/MeasureCommand.h"

#include "record/CommandOptions.h"

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

}  // namespace

Outcome<MeasureOptions> ParseMeasure(std::span<const std::string> words)
{
    using Result = Outcome<MeasureOptions>;
    MeasureOptions options;
    const auto takeStart = [&](const std::string& value) {
        options.Start = WholeNumber(value);
        return options.Start.value_or(0) >= FirstSampleSlot;
    };
    const auto takeBeat = [&](const std::string& value) {
        options.Beat = WholeNumber(value);
        const int beat = options.Beat.value_or(-1);
        return beat >= 0 && beat < static_cast<int>(AboutFile::LongestFlagList);
    };
    const auto takeAll = [&](const std::string&) { return options.All = true; };
    const CommandOption known[]{{"--start", "a slot, 300 or more", takeStart},
                                {"--beat", "a number from 0 to 49", takeBeat},
                                {"--all", nullptr, takeAll}};
    const auto records = TakeOptions(words, known);
    if (!records)
        return Result::Failure(records.Reason());
    if (records->size() != 1)
        return Result::Failure("measure takes a record");
    if (options.All && (options.Start || options.Beat))
        return Result::Failure("--all takes every beat of the record, neither --start nor --beat");
    options.Record = records->front();
    return options;
}

}  // namespace ecg
