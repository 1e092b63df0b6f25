#include "analysis/AboutResult.h"
#include "core/Numbers.h"

#include <algorithm>

namespace ecg {
namespace {

std::int32_t Mean(const LocateTable& table, LocateLine line, std::size_t leads)
{
    double sum = 0;
    for (std::size_t lead = 0; lead < leads; ++lead)
        sum += table[lead][line];
    return RoundToInt(sum / static_cast<double>(leads));
}

}  // namespace

void UnifyLines(LeadSystem system, BeatResult& result)
{
    const std::size_t leads = LeadCountOf(system);
    const LocateTable& table = result.Locate;
    UnifiedLines& unified = result.Unified;
    std::copy_n(table[0].begin(), UnifiedLineCount, unified.begin());
    for (std::size_t lead = 1; lead < leads; ++lead) {
        for (const LocateLine earliest : {POn, QrsOn})
            unified[earliest] = std::min(unified[earliest], table[lead][earliest]);
        for (const LocateLine latest : {QrsOff, TOff})
            unified[latest] = std::max(unified[latest], table[lead][latest]);
    }
    unified[POff] = Mean(table, POff, leads);
    unified[TOn] = Mean(table, TOn, leads);
}

}  // namespace ecg
