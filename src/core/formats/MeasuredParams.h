// The measured values of one beat as they stand on disk: 1257 bytes.
//
// Amplitudes are millivolts, times milliseconds; 10000 means not measured. Arrays of 12 are by lead; in arrays of
// 13 entry 12 belongs to the unified lines; in arrays of 15 entry 13 is the lowest value and entry 14 the highest.
#pragma once

#include "core/formats/FixedText.h"
#include "core/formats/Layout.h"

#include <array>

namespace ecg {

struct MeasuredParams {
    std::array<FixedText<6>, 12> Complex;  // name of the complex, such as "qRs"
    Byte HeartRate = 0;                    // beats a minute, 0 unknown
    Float32 Axis{};                        // QRS axis, whole degrees
    std::array<Float32, 13> Pd{};
    std::array<Float32, 13> PR{};
    std::array<Float32, 13> QRSd{};
    std::array<Float32, 13> Td{};
    std::array<Float32, 15> QT{};
    std::array<Float32, 15> QTc{};
    std::array<Float32, 12> PAmp{};
    std::array<Float32, 12> QAmp{};
    std::array<Float32, 12> RAmp{};
    std::array<Float32, 12> SAmp{};
    std::array<Float32, 12> STm{};
    std::array<Float32, 12> TAmp{};
    std::array<Float32, 12> PPlus{};
    std::array<Float32, 12> PMinus{};
    std::array<Float32, 12> R2Amp{};
    std::array<Float32, 12> S2Amp{};
    std::array<Float32, 12> STJ{};
    std::array<Float32, 12> ST20{};
    std::array<Float32, 12> ST40{};
    std::array<Float32, 12> ST60{};
    std::array<Float32, 12> ST80{};
    std::array<Float32, 12> TPlus{};
    std::array<Float32, 12> TMinus{};
    std::array<Float32, 9> Unused{};
};

static_assert(IsFixedRecord<MeasuredParams, 1257>);
static_assert(offsetof(MeasuredParams, HeartRate) == 72);
static_assert(offsetof(MeasuredParams, Axis) == 73);
static_assert(offsetof(MeasuredParams, Unused) == 1257 - 9 * 4);

}  // namespace ecg
