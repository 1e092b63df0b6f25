// What the operator of the simulator asks for, typed or from a script.
//
//   off N            electrode N (1 to 10) comes off        on N             and back
//   drop PERCENT     lose this share of the stream's bytes  garbage BYTES    send random bytes (1 to 4096)
//   silence SECONDS  send nothing for so long               unplug, replug   the cable
//   quit
//
// A script has one command a line with its time in seconds from the start in front ("12.5 off 3"); empty lines and
// what follows a "#" do not count.
#pragma once

#include "wfdb/Outcome.h"

#include <string_view>
#include <vector>

namespace ecg {

enum class BoxAction { ElectrodeOff, ElectrodeOn, Drop, Garbage, Silence, Unplug, Replug, Quit };

struct BoxCommand {
    BoxAction Action = BoxAction::Quit;
    double Value = 0;  // electrode, percent, bytes or seconds; within its range

    friend bool operator==(const BoxCommand&, const BoxCommand&) = default;
};

struct ScriptStep {
    double Seconds = 0;  // since the start
    BoxCommand Command;

    friend bool operator==(const ScriptStep&, const ScriptStep&) = default;
};

Outcome<BoxCommand> ParseBoxCommand(std::string_view line);

// The steps in the order of their times; those of one time in the order of their lines.
Outcome<std::vector<ScriptStep>> ParseScript(std::string_view text);

}  // namespace ecg
