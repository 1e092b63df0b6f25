#include "analysis/SavedAnalysis.h"

namespace ecg {

bool HasSavedAnalysis(const RecordHeader& header)
{
    constexpr std::int32_t fourBlanks = 0x20202020;
    return header.SavedStart != 0 && header.SavedStart != fourBlanks;
}

void SaveAnalysis(std::int32_t blockStart, Byte selectedBeat, const BeatResult& result, RecordHeader& header)
{
    header.SavedStart = blockStart;
    header.SavedBeat = selectedBeat;
    header.SavedHR = result.Params.HeartRate;
    for (std::size_t line = 0; line < LocateLineCount; ++line)
        for (std::size_t lead = 0; lead < WilsonLeadCount; ++lead)
            header.SavedLines[line][lead] = result.Locate[lead][line];
}

void TakeUpAnalysis(const RecordHeader& header, BeatResult& result)
{
    result.Params.HeartRate = header.SavedHR;
    for (std::size_t line = 0; line < LocateLineCount; ++line)
        for (std::size_t lead = 0; lead < WilsonLeadCount; ++lead)
            result.Locate[lead][line] = header.SavedLines[line][lead];
}

}  // namespace ecg
