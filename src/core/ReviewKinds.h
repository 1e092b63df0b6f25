// What a review can show: a kind of analysis, and for the ECG a layout of its traces.
#pragma once

#include "core/formats/Layout.h"

#include <cstddef>

namespace ecg {

// The kinds of analysis; the index of the doctor's note in use.
enum class ReviewMode : Byte { Ecg, Spectrum, QtDispersion, Variability, Pacing };
inline constexpr std::size_t ReviewModeCount = 5;

// How the traces of `ReviewMode::Ecg` are laid out.
enum class EcgForm : Byte {
    Rows12,          // twelve strips
    Columns6x2,      // two columns of six
    Columns4x3,      // three columns of four
    Columns4x3And1,  // the same over one long lead
    Columns4x3And2,  // the same over two long leads
    LongLeads,       // the two long leads alone
    Contrast         // twelve strips beside those of another record
};
inline constexpr std::size_t EcgFormCount = 7;

}  // namespace ecg
