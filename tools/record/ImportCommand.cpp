#include "record/ImportCommand.h"

namespace ecg {
namespace {

// Takes one option; returns what is wrong with it.
std::string TakeOption(const std::string& option, const std::string& value, ImportOptions& options)
{
    if (option == "--patient") {
        options.Patient = value;
        return value.empty() ? "--patient takes a medical number" : "";
    }
    if (option == "--system") {
        options.System = value == "F" ? LeadSystem::Frank : LeadSystem::Wilson;
        return value == "W" || value == "F" ? "" : "--system takes W or F";
    }
    return "unknown option " + option;
}

}  // namespace

Outcome<ImportOptions> ParseImport(std::span<const std::string> words)
{
    using Result = Outcome<ImportOptions>;
    ImportOptions options;
    std::vector<std::string> places;  // the words that are no options
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (!words[i].starts_with("--")) {
            places.push_back(words[i]);
            continue;
        }
        const std::string value = i + 1 < words.size() ? words[i + 1] : "";
        if (const std::string reason = TakeOption(words[i], value, options); !reason.empty())
            return Result::Failure(reason);
        ++i;
    }
    if (places.size() != 2)
        return Result::Failure("import takes a header and a data folder");
    options.Header = places[0];
    options.DataFolder = places[1];
    return options;
}

}  // namespace ecg
