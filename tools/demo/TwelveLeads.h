// The twelve leads that a dipole in the Frank axes gives on the skin.
#pragma once

#include "demo/HeartModel.h"

#include <array>

namespace ecg {

// The eight leads that are recorded, millivolts. The other four follow from II and III.
struct WilsonLeads {
    double II = 0;
    double III = 0;
    std::array<double, 6> V{};  // V1 to V6, against the mean of the three limb electrodes
};

// By the matrix of Dower, Machado and Osborne (1980). III is II less I.
WilsonLeads WilsonFromFrank(const Dipole& dipole);

}  // namespace ecg
