#include "acquisition/FramePath.h"

#include <utility>

namespace ecg {
namespace {

constexpr std::array<float, LiveSpeedCount> columnStep{10.0F, 5.0F, 2.5F};  // frames a column, by speed index
constexpr std::size_t alternatingSpeed = 2;                                 // 50 mm/s
constexpr int shortStep = 2;
constexpr int longStep = 3;
constexpr int framesPerTimeLabel = 100;

}  // namespace

void FramePath::ProcessWilsonFrame(const Frame& frame)
{
    const RecordSample sample = Take(LeadSystem::Wilson, frame);
    if (frozen_)
        return;
    if (IsWilsonColumn())
        Draw(LeadSystem::Wilson, sample);
    ++wilson_.ColumnCount;
}

void FramePath::ProcessFrankFrame(Frame frame)
{
    frame[6] = 0;
    frame[7] = 0;
    const RecordSample sample = Take(LeadSystem::Frank, frame);
    if (frozen_)
        return;
    if (IsFrankColumn())
        Draw(LeadSystem::Frank, sample);
    ++frank_.ColumnCount;
}

RecordSample FramePath::Take(LeadSystem system, const Frame& frame)
{
    SystemState& own = system == LeadSystem::Wilson ? wilson_ : frank_;
    const BeatDetector::Result result = own.Detector.DetectBeat(frame, heartChannel_);
    if (result.Beat) {
        own.BeatFlag = true;
        sink_.OnBeat(result.RrCount);
    } else if (result.Silent) {
        sink_.OnSilence();
    }
    if (state_.ExamState == ExamState::Sampling)
        TakeSample(system, result.Marked);
    return result.Marked;
}

void FramePath::TakeSample(LeadSystem system, const RecordSample& sample)
{
    ++state_.SampledFrames;
    if (state_.SampledFrames % framesPerTimeLabel == 0)
        sink_.OnSampledTime(system, state_.SampledFrames);
    if (sampling_ == nullptr)
        return;
    state_.BlockStart = state_.RecordNo++;
    sampling_->WriteSample(state_.BlockStart, sample);
    if (state_.SysInfo.SystemControlTime == 1 && state_.SampledFrames >= state_.SysInfo.SampleLimit)
        sampling_->LimitReached();
}

bool FramePath::IsWilsonColumn()
{
    const std::size_t speed = LiveSpeedIndex(state_.SysInfo);
    if (speed < alternatingSpeed)
        return columnStep[speed] <= static_cast<float>(wilson_.ColumnCount);
    if (wilson_.ColumnCount < altStep_)
        return false;
    altStep_ = altStep_ == shortStep ? longStep : shortStep;
    return true;
}

// No alternation here: at 50 mm/s a Frank column takes 3 frames where a Wilson one takes 2.5. It is meant.
bool FramePath::IsFrankColumn() const
{
    return columnStep[LiveSpeedIndex(state_.SysInfo)] <= static_cast<float>(frank_.ColumnCount);
}

void FramePath::Draw(LeadSystem system, const RecordSample& sample)
{
    SystemState& own = system == LeadSystem::Wilson ? wilson_ : frank_;
    own.ColumnCount = 0;
    sink_.OnColumn(system, sample, std::exchange(own.BeatFlag, false));
}

}  // namespace ecg
