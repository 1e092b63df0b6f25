// The far ends of the data's way, doing nothing that would be measured.
#pragma once

#include "acquisition/FrameDecoder.h"
#include "acquisition/FramePath.h"
#include "acquisition/LiveDisplay.h"

namespace ecg::bench {

// Counts the columns and beats that come out of the frame path.
class CountingPathSink final : public FramePathSink {
public:
    void OnBeat(int) override { ++Beats; }
    void OnSilence() override {}
    void OnSampledTime(LeadSystem, std::int32_t) override {}
    void OnColumn(LeadSystem, const RecordSample&, bool) override { ++Columns; }

    std::int64_t Beats = 0;
    std::int64_t Columns = 0;
};

// Hands decoded frames to the frame path and passes over the rest.
class ForwardingSink final : public FrameSink {
public:
    explicit ForwardingSink(FramePath& path) : path_(path) {}
    void OnFrame(const Frame& frame) override { path_.ProcessWilsonFrame(frame); }
    void OnElectrode(std::size_t, bool) override {}
    void OnFilterState(wire::Filter, int) override {}
    void OnReconnect() override {}

private:
    FramePath& path_;
};

class BlindView final : public LiveDisplayView {
public:
    void MoveLeadCaption(LeadSystem, std::size_t, int, int) override {}
    void RepaintLeadCaptions() override {}
    void TraceChanged(int, int) override {}
};

}  // namespace ecg::bench
