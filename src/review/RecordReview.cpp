#include "review/RecordReview.h"

#include "analysis/AboutResult.h"
#include "analysis/HeartRateVariability.h"
#include "analysis/SavedAnalysis.h"
#include "platform/FileSystem.h"

#include <algorithm>
#include <utility>

namespace ecg {
namespace {

constexpr auto firstSlot = static_cast<std::int32_t>(FirstSampleSlot);

// Read behind the view, where a beat at its right edge has its T wave.
constexpr std::int32_t beatReach = 1000;  // samples

// The last slot of a file is never read, so a record has samples from a length of 301 slots on.
bool HasSamples(std::int32_t slotCount)
{
    return slotCount > firstSlot;
}

// Contrast needs another record, which is chosen for the one in review and not for the next.
EcgForm FormOnOpening(const SharedState& state)
{
    return state.EcgForm == EcgForm::Contrast ? EcgForm::Rows12 : state.EcgForm;
}

// `start`, or the slot of the record that is nearest to it.
std::int32_t InRecord(std::int64_t start, std::int32_t slotCount)
{
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(start, firstSlot, std::max(slotCount - 1, firstSlot)));
}

// Where the view of a record begins: where its analysis was saved, or with the record.
std::int32_t StartOnOpening(const RecordHeader& header, std::int32_t slotCount)
{
    return HasSavedAnalysis(header) ? InRecord(header.SavedStart, slotCount) : firstSlot;
}

// How many of the `wanted` samples from slot `start` on the record has.
std::size_t Present(std::int32_t slotCount, std::int32_t start, std::int32_t wanted)
{
    return static_cast<std::size_t>(std::clamp<std::int64_t>(std::int64_t{slotCount} - start, 0, wanted));
}

}  // namespace

// Sets a choice of the view and reads that anew; the choice stays as it was when the record cannot be read.
template <class Value>
bool RecordReview::Change(Value& choice, Value wanted)
{
    const Value before = std::exchange(choice, wanted);
    if (ReadView())
        return true;
    choice = before;
    return false;
}

RecordReview::Opening RecordReview::Open()
{
    File.ReadHeader(WhichRecord::Current);
    File.CountSlots(WhichRecord::Current);
    File.RFlagList.fill(0);
    File.CenterSlot = 0;
    Result = {};
    ownQt_.reset();
    Spectrum = {};
    View = {};
    if (!HasSamples(File.SlotCount)) {
        const bool present = IsFile(state_.Folders.File(state_.RecordPath));
        return present ? Opening::Empty : Opening::Unreadable;
    }
    View.Form = FormOnOpening(state_);
    state_.BlockStart = StartOnOpening(state_.CurrentHeader, File.SlotCount);
    if (!ReadView())
        return Opening::Unreadable;
    if (HasSavedAnalysis(state_.CurrentHeader))
        TakeUpSavedAnalysis();
    else
        SelectBeat(View.SelectedBeat);
    return Opening::Opened;
}

void RecordReview::TakeUpSavedAnalysis()
{
    View.SelectedBeat = std::min<std::size_t>(state_.CurrentHeader.SavedBeat, AboutFile::LongestFlagList - 1);
    File.CenterSlot = File.RFlagList[View.SelectedBeat];
    TakeUpAnalysis(state_.CurrentHeader, Result);
    UnifyLines(LeadSystem::Wilson, Result);
    MeasureWhereItLies();
}

// The view may have been moved on before it was saved: the block is that of the beat for once, then the view's again.
void RecordReview::MeasureWhereItLies()
{
    constexpr std::int32_t beforeBeat = beatReach / 2;
    const std::int64_t beat = Result.Unified[POn];
    const std::int32_t view = std::exchange(state_.BlockStart, InRecord(beat - beforeBeat, File.SlotCount));
    if (ReadBlock())
        Measure(File, LeadSystem::Wilson, Result);
    state_.BlockStart = view;
    ReadBlock();
}

std::int32_t RecordReview::SamplesToRead() const
{
    return SamplesInView() + beatReach;
}

bool RecordReview::ReadView()
{
    if (!ReadBlock())
        return false;
    ComputeStatistics();
    return true;
}

bool RecordReview::ReadBlock()
{
    const std::int32_t known = File.SlotCount;
    File.CountSlots(WhichRecord::Current);
    if (File.SlotCount < known || !HasSamples(File.SlotCount)) {
        File.SlotCount = known;
        return false;
    }
    File.ReadSamples(SampleTarget::View, state_.BlockStart, SamplesToRead());
    ForgetFlagsBehindView();
    if (View.Mode == ReviewMode::Ecg && View.Form == EcgForm::Contrast) {
        File.CountSlots(WhichRecord::Comparison);  // one that has vanished has no samples, rather than a flat line
        File.ReadSamples(SampleTarget::Comparison, File.CompareStart, SamplesInView());
    }
    return true;
}

void RecordReview::ForgetFlagsBehindView()
{
    const std::int64_t end = std::int64_t{state_.BlockStart} + SamplesInView();
    std::ranges::replace_if(
        File.RFlagList, [end](std::int32_t slot) { return slot >= end; }, 0);
}

// What a mode shows beside the samples, of the view and the beat as they are now.
void RecordReview::ComputeStatistics()
{
    RestoreQt();
    switch (View.Mode) {
    case ReviewMode::Spectrum:
        SpectrumIsOfView = AnalyseSpectrum(File, View.Spectrum, Result.Params.HeartRate, Spectrum);
        break;
    case ReviewMode::QtDispersion:
        ownQt_ = Result.Params.QT;
        Qt = ComputeQtStats(Result);
        break;
    case ReviewMode::Variability:
        ReadRRSeries(File);
        ComputeHrvStats(File.EcgBlock);
        break;
    case ReviewMode::Ecg:
    case ReviewMode::Pacing:
        break;
    }
}

// Dispersion measures QT from one place for all leads; in the other modes each lead has its own again. It is kept and
// not measured anew: the beat may lie outside the view by then.
void RecordReview::RestoreQt()
{
    if (ownQt_)
        Result.Params.QT = *ownQt_;
    ownQt_.reset();
}

bool RecordReview::SetMode(ReviewMode mode)
{
    return Change(View.Mode, mode);
}

bool RecordReview::SetSpectrum(SpectrumLayout layout)
{
    return ChooseSpectrum(layout, Spectrum.DftLeads);
}

bool RecordReview::SetDftLead(std::size_t which, std::size_t lead)
{
    auto leads = Spectrum.DftLeads;
    leads[which] = lead;
    return ChooseSpectrum(SpectrumLayout::DoubleLead, leads);
}

// An earlier spectrum may stand for a view that has none, but never under the name of another lead or at another scale.
bool RecordReview::ChooseSpectrum(SpectrumLayout layout, const std::array<std::size_t, 2>& leads)
{
    const SpectrumLayout layoutBefore = std::exchange(View.Spectrum, layout);
    const auto leadsBefore = std::exchange(Spectrum.DftLeads, leads);
    if (!SetMode(ReviewMode::Spectrum)) {
        View.Spectrum = layoutBefore;
        Spectrum.DftLeads = leadsBefore;
        return false;
    }
    if (!SpectrumIsOfView && (layout != layoutBefore || leads != leadsBefore))
        Spectrum = {.DftLeads = leads};
    return true;
}

bool RecordReview::SetForm(EcgForm form)
{
    if (!Change(View.Form, form))
        return false;
    state_.EcgForm = form;
    return true;
}

bool RecordReview::SetGain(std::size_t index)
{
    return Change(state_.CurrentHeader.GainIndex, static_cast<Byte>(index));
}

bool RecordReview::SetSpeed(std::size_t index)
{
    return Change(state_.CurrentHeader.SpeedIndex, static_cast<Byte>(index));
}

bool RecordReview::MoveTo(std::int32_t start)
{
    return Change(state_.BlockStart, InRecord(start, File.SlotCount));
}

bool RecordReview::ChooseLongLead(std::size_t which, std::size_t lead)
{
    if (View.Form == EcgForm::Columns4x3And2 && View.LongLead[1 - which] == lead)
        return false;
    View.LongLead[which] = lead;
    return true;
}

bool RecordReview::SeparateLongLeads()
{
    if (View.LongLead[0] != View.LongLead[1])
        return false;
    View.LongLead = ReviewState{}.LongLead;
    return true;
}

bool RecordReview::OpenComparison()
{
    const RecordHeader headerBefore = File.CompareHeader;
    const std::int32_t slotsBefore = File.CompareSlotCount;
    const bool hasHeader = File.ReadHeader(WhichRecord::Comparison);
    File.CountSlots(WhichRecord::Comparison);
    if (!hasHeader || !HasSamples(File.CompareSlotCount)) {
        File.CompareHeader = headerBefore;
        File.CompareSlotCount = slotsBefore;
        return false;
    }
    File.CompareStart = StartOnOpening(File.CompareHeader, File.CompareSlotCount);
    return true;
}

bool RecordReview::SelectBeat(std::size_t beat)
{
    if (!HasFlag(beat))
        return true;
    const std::size_t before = std::exchange(View.SelectedBeat, beat);
    if (MeasureSelected())
        return true;
    View.SelectedBeat = before;
    return false;
}

bool RecordReview::HasFlag(std::size_t beat) const
{
    return beat < File.RFlagList.size() && File.RFlagList[beat] != 0;
}

// Without a flag in the selected place there is no beat to measure, and the values stay. False: nothing could be read.
bool RecordReview::MeasureSelected()
{
    if (!ReadBlock())
        return false;
    RestoreQt();
    File.CenterSlot = File.RFlagList[View.SelectedBeat];
    if (File.CenterSlot > 0)
        Delineate(File, LeadSystem::Wilson, Result);
    ComputeStatistics();
    return true;
}

bool RecordReview::AddFlag(std::int32_t slot)
{
    if (slot < firstSlot || slot >= File.SlotCount)
        return true;
    return File.SetRFlag(FlagAction::Set, slot) && MeasureSelected();
}

bool RecordReview::DeleteFlag(std::size_t beat)
{
    if (!HasFlag(beat))
        return true;
    return File.SetRFlag(FlagAction::Clear, File.RFlagList[beat]) && MeasureSelected();
}

bool RecordReview::Save()
{
    SaveAnalysis(state_.BlockStart, static_cast<Byte>(View.SelectedBeat), Result, state_.CurrentHeader);
    return File.WriteHeader();
}

std::size_t RecordReview::SamplesPresent() const
{
    return Present(File.SlotCount, state_.BlockStart, SamplesInView());
}

ViewSamples RecordReview::Comparison() const
{
    const auto wanted = std::min(SamplesInView(), static_cast<std::int32_t>(AboutFile::CompareColumns));
    return {File.CompareBlock, Present(File.CompareSlotCount, File.CompareStart, wanted)};
}

StripLayout RecordReview::Layout(double longestLine) const
{
    return LayOutStrips(View, Scale(), longestLine, Samples(), Comparison());
}

}  // namespace ecg
