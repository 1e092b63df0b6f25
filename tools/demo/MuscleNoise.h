// The rustle of skeletal muscle under an electrode: broadband, between about 20 and 150 Hz.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ecg {

// `count` values at 1000 a second, millivolts, with exactly the root mean square asked for, whose end runs on into
// the beginning. All zero for a count below 2.
std::vector<double> MuscleNoise(std::size_t count, double rmsMicrovolts, std::uint32_t seed);

}  // namespace ecg
