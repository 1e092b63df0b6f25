// The bytes a box sends, for measuring how they are taken.
#pragma once

#include "core/formats/RecordSample.h"

#include <cstdint>
#include <span>
#include <vector>

namespace ecg::bench {

// The stream of `frames`, scrambled with `key`: all electrodes on, a status frame every 50.
std::vector<std::uint8_t> BoxStream(std::span<const Frame> frames, std::uint8_t key);

}  // namespace ecg::bench
