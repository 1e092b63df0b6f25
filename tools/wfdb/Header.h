// The text header of a WFDB record (`.hea`): which signal lies in which file, and what a sample is worth.
//
//   100 2 360 650000                                  record, signals, samples a second, samples of each signal
//   100.dat 212 200(1024)/mV 11 1024 995 -22131 0 V5  file, format, gain(baseline)/units, bits, ADC zero, ..., name
//   # 69 M                                            comment
//
// Only what a single-segment record with one sample of each signal per instant needs is understood; a header that
// asks for more is refused with a reason, never half read.
#pragma once

#include "wfdb/Outcome.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ecg {

// How samples lie in a signal file.
enum class WfdbFormat {
    Packed12 = 212,  // two 12-bit samples in three bytes
    Integer16 = 16,  // 16 bits, little endian
};

struct WfdbSignal {
    std::string File;  // a plain name in the folder of the header
    WfdbFormat Format = WfdbFormat::Integer16;
    std::int64_t ByteOffset = 0;  // where the samples begin in the file
    double Gain = 200;            // sample units per `Units`, never 0
    double Baseline = 0;          // the sample value of 0 `Units`
    std::string Units = "mV";
    std::string Name;  // description, mostly the lead
};

struct WfdbHeader {
    std::string Name;
    double Rate = 250;         // samples a second of each signal
    std::int64_t Samples = 0;  // samples of each signal; 0 = not told, the files decide
    std::vector<WfdbSignal> Signals;
    std::vector<std::string> Comments;  // without the leading "#"
};

// Reads the text of a header. Any text is safe.
Outcome<WfdbHeader> ParseWfdbHeader(std::string_view text);

}  // namespace ecg
