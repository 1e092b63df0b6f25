#include "analysis/result/MeasureSteps.h"

#include <cmath>

namespace ecg {

std::string ComplexName(std::size_t lead, const MeasuredParams& params)
{
    constexpr std::size_t longest = 6;
    constexpr float largeR = 1.0F;  // mV: above it the letter is a capital
    constexpr float largeQ = 0.5F;  // Q and S
    const float r = params.RAmp[lead];
    const float r2 = params.R2Amp[lead];
    std::string name;
    const auto add = [&name](bool shown, bool large, const char* capital, const char* small) {
        if (shown)
            name += large ? capital : small;
    };
    const auto addDownward = [&](float depth, const char* capital, const char* small) {
        add(depth != 0, std::fabs(depth) > largeQ, capital, small);
    };
    addDownward(params.QAmp[lead], "Q", "q");
    add(true, r > largeR, "R", "r");
    addDownward(params.SAmp[lead], "S", "s");
    add(r2 != 0, r2 > largeR, "R'", "r'");
    addDownward(params.S2Amp[lead], "S'", "s'");
    return name.substr(0, longest);
}

}  // namespace ecg
