// Frames from a demonstration file when no box is found: the same frames, at the same rate, so that nothing
// downstream can tell the difference.
//
// A demonstration file has the layout of a record file: slots of 16 bytes, frames from slot 300 on. Its chest channels
// are stored without a third of II and III, which the feed adds again.
#pragma once

#include "core/Settings.h"
#include "core/formats/RecordSample.h"
#include "platform/ByteFile.h"
#include "platform/Clock.h"

#include <filesystem>
#include <memory>

namespace ecg {

class DemoSink {
public:
    virtual ~DemoSink() = default;

    virtual void OnDemoFrame(const Frame& frame) = 0;
    virtual void OnDemoBlank(bool active) = 0;  // zero signal instead of the file's
};

class DemoFeed {
public:
    DemoFeed(Clock& clock, DemoSink& sink) : clock_(clock), sink_(sink) {}

    static const char* FileName(LeadSystem system);

    // Opens the file of `system` in `folder` and starts. False when there is none; nothing runs then. The place in
    // the file goes on from where it was.
    bool OpenDemoData(const std::filesystem::path& folder, LeadSystem system);

    void Start();
    void Stop() { running_ = false; }
    bool IsRunning() const { return running_; }

    // Closes the file; nothing runs until the next `OpenDemoData`.
    void Close();

    // Delivers the frames that are due by the clock, 500 a second; a late tick catches up.
    void Tick();

    // Replaces the next `frames` frames by zero signal.
    void Blank(int frames) { blankFrames_ = frames; }
    bool IsBlank() const { return blankFrames_ > 0; }

    // A service gesture: a simulated baseline wander of 3 seconds, on and off.
    void FlipWander() { wander_ = !wander_; }

private:
    std::int64_t DueFrames();  // since the start, by the clock
    void ShowBlank();
    void Deliver();
    Frame NextFrame();
    void AddWander(Frame& frame);

    Clock& clock_;
    DemoSink& sink_;
    LeadSystem system_ = LeadSystem::Wilson;
    std::unique_ptr<ByteFile> file_;
    bool running_ = false;
    std::int64_t startMs_ = 0;    // clock at the start
    std::int64_t delivered_ = 0;  // frames since the start
    std::int64_t demoPos_ = FirstSampleSlot;
    std::int64_t demoLast_ = 0;  // last slot of the file
    std::int64_t demoPhase_ = 0;
    int blankFrames_ = 0;
    bool blankShown_ = false;
    bool wander_ = false;
};

}  // namespace ecg
