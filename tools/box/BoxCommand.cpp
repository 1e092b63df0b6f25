#include "box/BoxCommand.h"

#include "wfdb/Words.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace ecg {
namespace {

constexpr double longestScript = 7 * 24 * 3600.0;  // seconds

struct CommandForm {
    std::string_view Word;
    BoxAction Action;
    bool TakesValue;
    bool IsWhole;  // the value has no fraction
    double Least;
    double Most;
};

constexpr std::array<CommandForm, 8> forms{{{"off", BoxAction::ElectrodeOff, true, true, 1, 10},
                                            {"on", BoxAction::ElectrodeOn, true, true, 1, 10},
                                            {"drop", BoxAction::Drop, true, false, 0, 100},
                                            {"garbage", BoxAction::Garbage, true, true, 1, 4096},
                                            {"silence", BoxAction::Silence, true, false, 0, 3600},
                                            {"unplug", BoxAction::Unplug, false, false, 0, 0},
                                            {"replug", BoxAction::Replug, false, false, 0, 0},
                                            {"quit", BoxAction::Quit, false, false, 0, 0}}};

}  // namespace

Outcome<BoxCommand> ParseBoxCommand(std::string_view line)
{
    using Result = Outcome<BoxCommand>;
    const std::string_view word = TakeWord(line);
    const auto form = std::ranges::find(forms, word, &CommandForm::Word);
    if (form == forms.end())
        return Result::Failure("unknown command \"" + std::string(word) + "\"");
    BoxCommand command{form->Action, 0};
    if (form->TakesValue) {
        const auto value = ParseNumber<double>(TakeWord(line));
        if (!value || !(*value >= form->Least && *value <= form->Most) ||
            (form->IsWhole && *value != std::floor(*value)))
            return Result::Failure("\"" + std::string(word) + "\" takes a number from " +
                                   std::to_string(static_cast<int>(form->Least)) + " to " +
                                   std::to_string(static_cast<int>(form->Most)));
        command.Value = *value;
    }
    if (!TakeWord(line).empty())
        return Result::Failure("too many words behind \"" + std::string(word) + "\"");
    return command;
}

Outcome<std::vector<ScriptStep>> ParseScript(std::string_view text)
{
    using Result = Outcome<std::vector<ScriptStep>>;
    std::vector<ScriptStep> steps;
    for (int number = 1; !text.empty(); ++number) {
        std::string_view line = TakeUntil(text, '\n');
        line = line.substr(0, line.find('#'));
        const std::string_view time = TakeWord(line);
        if (time.empty())
            continue;
        const std::string place = "script line " + std::to_string(number) + ": ";
        const auto seconds = ParseNumber<double>(time);
        if (!seconds || !(*seconds >= 0 && *seconds <= longestScript))
            return Result::Failure(place + "\"" + std::string(time) + "\" is no time in seconds");
        const auto command = ParseBoxCommand(line);
        if (!command)
            return Result::Failure(place + command.Reason());
        steps.push_back({*seconds, *command});
    }
    std::ranges::stable_sort(steps, {}, &ScriptStep::Seconds);
    return steps;
}

}  // namespace ecg
