// What must hold for every input. The fuzzer takes the abort as its finding.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace ecg::fuzz {

inline void Require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

}  // namespace ecg::fuzz
