#include "demo/EcgOptions.h"

#include <algorithm>

namespace ecg {
namespace {

// `value` between the two; what is not a number is the lowest.
double Within(double value, double lowest, double highest)
{
    return value >= lowest ? std::min(value, highest) : lowest;
}

}  // namespace

EcgOptions Limited(const EcgOptions& options)
{
    EcgOptions limited = options;
    limited.Seconds = Within(options.Seconds, 1, 600);
    limited.BeatsPerMinute = Within(options.BeatsPerMinute, 20, 240);
    limited.RateVariation = Within(options.RateVariation, 0, 0.2);
    limited.Breathing = Within(options.Breathing, 0, 5);
    limited.NoiseMicrovolts = Within(options.NoiseMicrovolts, 0, 1000);
    return limited;
}

}  // namespace ecg
