// The road of one frame, 500 times a second: beat detector, record writer while sampling, and the decision whether
// this frame becomes a column on the screen. There are no filters here; the box filters, and what comes is kept.
#pragma once

#include "acquisition/BeatDetector.h"
#include "core/SharedState.h"

namespace ecg {

// Where the frames of a running sampling go.
class SamplingSink {
public:
    virtual ~SamplingSink() = default;

    virtual void WriteSample(std::int32_t slot, const RecordSample& sample) = 0;
    virtual void LimitReached() = 0;  // the time of the sampling is up; more frames may be on their way
};

// What the frame path hands on.
class FramePathSink {
public:
    virtual ~FramePathSink() = default;

    virtual void OnBeat(int rrCount) = 0;  // 125 to 1000; 30000 / rrCount is the rate in beats a minute
    virtual void OnSilence() = 0;          // no beat for two seconds
    virtual void OnSampledTime(LeadSystem system, std::int32_t frames) = 0;  // every 100th frame of a sampling
    virtual void OnColumn(LeadSystem system, const RecordSample& sample, bool beat) = 0;
};

class FramePath {
public:
    FramePath(SharedState& state, FramePathSink& sink) : state_(state), sink_(sink) {}

    // Null: frames of a sampling are counted and go nowhere.
    void SetSamplingSink(SamplingSink* sampling) { sampling_ = sampling; }

    void ProcessWilsonFrame(const Frame& frame);

    // Channels 6 and 7 of the frame are taken as 0.
    void ProcessFrankFrame(Frame frame);

    // The channel the detector watches, 0 to 7. Wilson: II, III, V1 to V6; Frank: X, Y, Z.
    void SetHeartChannel(int channel) { heartChannel_ = channel; }

    // Only columns stop; the detector and the record go on.
    void SetFrozen(bool frozen) { frozen_ = frozen; }
    bool IsFrozen() const { return frozen_; }

private:
    // Each lead system has its own history, so that switching does not mix data.
    struct SystemState {
        BeatDetector Detector;
        int ColumnCount = 0;    // frames since the last column
        bool BeatFlag = false;  // a beat was found since the last column
    };

    RecordSample Take(LeadSystem system, const Frame& frame);
    void TakeSample(LeadSystem system, const RecordSample& sample);
    void Draw(LeadSystem system, const RecordSample& sample);
    bool IsWilsonColumn();
    bool IsFrankColumn() const;

    SharedState& state_;
    FramePathSink& sink_;
    SamplingSink* sampling_ = nullptr;
    SystemState wilson_;
    SystemState frank_;
    int altStep_ = 2;  // frames of the next Wilson column at 50 mm/s: 2 and 3 in turn
    int heartChannel_ = 0;
    bool frozen_ = false;
};

}  // namespace ecg
