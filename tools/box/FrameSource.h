// The signal that the simulated box streams, and where it comes from.
#pragma once

#include "core/formats/RecordSample.h"
#include "wfdb/Outcome.h"

#include <filesystem>
#include <vector>

namespace ecg {

// Frames of each lead system, played over and over; empty = the source has none of that system.
struct FrameSource {
    std::vector<Frame> Wilson;
    std::vector<Frame> Frank;
};

// Loads by file name:
//
//   *.hea                  a WFDB recording; Wilson and Frank as far as it has the leads. Its last 0.2 s fade into
//                          its first, which come in their place, so that the joint makes no step
//   EcgTest.dat, *.W       Wilson frames from slot 300 on. EcgTest.dat keeps its chest channels less a third of
//                          channels 0 and 1; they are given back here
//   VcgTest.dat, *.F       Frank frames from slot 300 on
//
// Upper and lower case are the same. Fails when the file cannot be read or holds no frames.
Outcome<FrameSource> LoadFrameSource(const std::filesystem::path& path);

// Fades the last 0.2 s of `frames` into their first 0.2 s, which are taken away at the front. Frames too few for
// that stay as they are.
void CloseLoop(std::vector<Frame>& frames);

}  // namespace ecg
