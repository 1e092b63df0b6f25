// Beat annotations of a WFDB recording (`.atr`, MIT form): where a person saw a beat.
//
// The file is a row of 16-bit little-endian words: the high 6 bits a code, the low 10 the samples since the
// annotation before. A word of 0 ends it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace ecg {

struct Annotation {
    std::int64_t Sample = 0;  // counted from the first sample of the recording
    int Code = 0;             // 1 to 49
};

// All annotations of `bytes` in their order, as far as they are whole. Any bytes are safe.
std::vector<Annotation> ParseAnnotations(std::span<const std::byte> bytes);

// Whether an annotation code stands for a heart beat (and not for a rhythm change or a remark).
bool IsBeat(int code);

}  // namespace ecg
