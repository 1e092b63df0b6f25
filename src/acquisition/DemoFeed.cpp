#include "acquisition/DemoFeed.h"

#include "core/Numbers.h"
#include "core/formats/FixedRecordFile.h"

#include <cmath>
#include <limits>

namespace ecg {
namespace {

constexpr int framesPerTick = 500;  // at the most, so that a long pause does not hold up the windows

constexpr double wanderCounts = 250;
constexpr double wanderFrames = 1500;  // 3 seconds
constexpr double pi = 3.1415926;

Frame ZeroFrame()
{
    Frame frame;
    frame.fill(ZeroLevel);
    return frame;
}

// Files may hold any 16 bits; a sum that does not fit them leaves the channel as it is.
void Assign(std::int16_t& channel, double value)
{
    using Limits = std::numeric_limits<std::int16_t>;
    if (value >= Limits::min() && value <= Limits::max())
        channel = static_cast<std::int16_t>(value);
}

void AddLimbLeads(Frame& frame)
{
    const double limbs = (frame[0] + frame[1] + ZeroLevel) / 3.0;
    for (std::size_t i = 2; i < frame.size(); ++i)
        Assign(frame[i], RoundHalfEven(frame[i] + limbs) - ZeroLevel);
}

}  // namespace

const char* DemoFeed::FileName(LeadSystem system)
{
    return system == LeadSystem::Wilson ? "EcgTest.dat" : "VcgTest.dat";
}

bool DemoFeed::OpenDemoData(const std::filesystem::path& folder, LeadSystem system)
{
    Close();
    system_ = system;
    file_ = OpenFile(folder / FileName(system), OpenMode::Read);
    if (!file_)
        return false;
    demoLast_ = static_cast<std::int64_t>(RoundHalfEven(static_cast<double>(file_->Size()) / sizeof(RecordSample)));
    Start();
    return true;
}

void DemoFeed::Close()
{
    Stop();
    file_.reset();
}

void DemoFeed::Start()
{
    running_ = true;
    startMs_ = clock_.Milliseconds();
    delivered_ = 0;
}

void DemoFeed::Tick()
{
    if (!running_ || !file_)
        return;
    ShowBlank();
    // A frame may stop the feed or start it anew: the end of a sampling does. So what is due is asked each time.
    for (int frames = 0; frames < framesPerTick && running_ && delivered_ < DueFrames(); ++frames)
        Deliver();
}

std::int64_t DemoFeed::DueFrames()
{
    return (clock_.Milliseconds() - startMs_) * FramesPerSecond / 1000;
}

void DemoFeed::ShowBlank()
{
    if (blankShown_ != IsBlank()) {
        blankShown_ = IsBlank();
        sink_.OnDemoBlank(blankShown_);
    }
}

void DemoFeed::Deliver()
{
    ++delivered_;
    if (++demoPos_ > demoLast_)
        demoPos_ = FirstSampleSlot;
    Frame frame = NextFrame();
    AddWander(frame);
    if (system_ == LeadSystem::Wilson)
        AddLimbLeads(frame);
    sink_.OnDemoFrame(frame);
}

Frame DemoFeed::NextFrame()
{
    if (blankFrames_ > 0) {
        --blankFrames_;
        return ZeroFrame();
    }
    const auto sample = FixedRecordFile<RecordSample>(*file_).Read(demoPos_);
    if (!sample)
        return ZeroFrame();
    Frame frame = ToFrame(*sample);
    frame[0] = static_cast<std::int16_t>(frame[0] & SampleMask);
    return frame;
}

void DemoFeed::AddWander(Frame& frame)
{
    const auto phase = static_cast<double>(demoPhase_++);
    if (!wander_)
        return;
    const auto w = static_cast<float>(wanderCounts * std::sin(2 * pi * phase / wanderFrames));
    for (std::int16_t& channel : frame)
        Assign(channel, RoundHalfEven(static_cast<double>(channel) + static_cast<double>(w)));
}

}  // namespace ecg
