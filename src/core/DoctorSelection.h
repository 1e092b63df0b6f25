// The choice of the examining doctor at the start: eight stored names, one of which is taken.
#pragma once

#include "core/SharedState.h"

#include <array>
#include <optional>
#include <string>

namespace ecg {

inline constexpr std::size_t DoctorNameBytes = 24;  // of a stored name

using DoctorNames = std::array<std::string, DoctorCount>;  // UTF-8

// The stored names without their padding.
DoctorNames StoredDoctorNames(const SysInfo& settings);

// The first doctor who has a name, to whom the keyboard goes at the start.
std::optional<std::size_t> FirstNamedDoctor(const SysInfo& settings);

struct DoctorChoice {
    bool Named = false;   // false: the chosen name is blank, and nobody was selected
    bool Stored = false;  // false: the settings could not be written; the choice holds all the same
};

// Stores all `names` in the settings, writes them, and makes name `chosen` (0 to 7) the doctor of this run.
DoctorChoice SelectDoctor(SharedState& state, const DoctorNames& names, std::size_t chosen);

}  // namespace ecg
