// An analysis that is kept in the header of its record, so that the next review begins where the last one ended.
#pragma once

#include "analysis/BeatResult.h"
#include "core/formats/RecordHeader.h"

#include <cstdint>

namespace ecg {

// Whether the header keeps an analysis. Old records have blanks in place of the start slot, new ones 0, as long as
// nothing was saved.
bool HasSavedAnalysis(const RecordHeader& header);

// Keeps the start of the view, the selected beat (its place in `RFlagList`), rate and lines.
void SaveAnalysis(std::int32_t blockStart, Byte selectedBeat, const BeatResult& result, RecordHeader& header);

// Takes up rate and lines. The caller unifies and measures them, and takes `SavedStart` and `SavedBeat` itself.
void TakeUpAnalysis(const RecordHeader& header, BeatResult& result);

}  // namespace ecg
