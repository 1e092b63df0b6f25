#include "record/ImportCommand.h"

#include "record/CommandOptions.h"

namespace ecg {

Outcome<ImportOptions> ParseImport(std::span<const std::string> words)
{
    using Result = Outcome<ImportOptions>;
    ImportOptions options;
    const auto takePatient = [&](const std::string& value) {
        options.Patient = value;
        return !value.empty();
    };
    const auto takeSystem = [&](const std::string& value) {
        options.System = value == "F" ? LeadSystem::Frank : LeadSystem::Wilson;
        return value == "W" || value == "F";
    };
    const CommandOption known[]{{"--patient", "a medical number", takePatient}, {"--system", "W or F", takeSystem}};
    const auto places = TakeOptions(words, known);
    if (!places)
        return Result::Failure(places.Reason());
    if (places->size() != 2)
        return Result::Failure("import takes a header and a data folder");
    options.Header = places->at(0);
    options.DataFolder = places->at(1);
    return options;
}

}  // namespace ecg
