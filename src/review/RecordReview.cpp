#include "review/RecordReview.h"

#include "analysis/AboutResult.h"
#include "analysis/HeartRateVariability.h"
#include "analysis/SavedAnalysis.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace ecg {
namespace {

constexpr auto firstSlot = static_cast<std::int32_t>(FirstSampleSlot);

// The last slot of a file is never read, so a record begins to have samples with slot 301.
bool HasSamples(std::int32_t slotCount)
{
    return slotCount > firstSlot;
}

EcgForm FormOnOpening(const SharedState& state)
{
    // Contrast needs another record, which is chosen for the one in review and not for the next.
    return state.EcgForm == EcgForm::Contrast ? EcgForm::Rows12 : state.EcgForm;
}

std::size_t Present(std::int32_t slotCount, std::int32_t start, std::size_t wanted)
{
    const auto left = std::max<std::int64_t>(std::int64_t{slotCount} - start, 0);
    return std::min(wanted, static_cast<std::size_t>(left));
}

// Stays as it is when `change` is not followed by a successful read.
template <class Value>
bool Try(Value& value, Value wanted, const std::function<bool()>& read)
{
    const Value before = std::exchange(value, wanted);
    if (read())
        return true;
    value = before;
    return false;
}

}  // namespace

RecordReview::Opening RecordReview::Open()
{
    File.ReadHeader(WhichRecord::Current);
    File.CountSlots(WhichRecord::Current);
    File.RFlagList.fill(0);
    File.CenterSlot = 0;
    Result = {};
    Spectrum = {};
    View = {};
    if (!HasSamples(File.SlotCount)) {
        std::error_code error;
        const bool present = std::filesystem::is_regular_file(state_.Folders.File(state_.RecordPath), error);
        return present ? Opening::Empty : Opening::Unreadable;
    }
    View.Form = FormOnOpening(state_);
    const bool saved = HasSavedAnalysis(state_.CurrentHeader);
    state_.BlockStart =
        saved ? std::clamp<std::int32_t>(state_.CurrentHeader.SavedStart, firstSlot, File.SlotCount - 1) : firstSlot;
    if (!ReadView())
        return Opening::Unreadable;
    if (saved)
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
    Measure(File, LeadSystem::Wilson, Result);
}

bool RecordReview::ReadView()
{
    const std::int32_t known = File.SlotCount;
    File.CountSlots(WhichRecord::Current);
    if (File.SlotCount < known || !HasSamples(File.SlotCount)) {
        File.SlotCount = known;
        return false;
    }
    File.ReadSamples(SampleTarget::View, state_.BlockStart, SamplesInView());
    if (View.Mode == ReviewMode::Ecg && View.Form == EcgForm::Contrast)
        File.ReadSamples(SampleTarget::Comparison, File.CompareStart, SamplesInView());
    ComputeStatistics();
    return true;
}

// What a mode shows beside the samples, of the view and the beat as they are now.
void RecordReview::ComputeStatistics()
{
    switch (View.Mode) {
    case ReviewMode::Spectrum:
        SpectrumIsOfView = AnalyseSpectrum(File, View.Spectrum, Result.Params.HeartRate, Spectrum);
        break;
    case ReviewMode::QtDispersion:
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

// Dispersion measures QT from one place for all leads; in the ECG mode each lead has its own again.
bool RecordReview::SetMode(ReviewMode mode)
{
    const ReviewMode before = View.Mode;
    if (!Try(View.Mode, mode, [this] { return ReadView(); }))
        return false;
    if (before != mode && mode == ReviewMode::Ecg)
        Measure(File, LeadSystem::Wilson, Result);
    return true;
}

bool RecordReview::SetSpectrum(SpectrumLayout layout)
{
    View.Spectrum = layout;
    return SetMode(ReviewMode::Spectrum);
}

bool RecordReview::SetDftLead(std::size_t which, std::size_t lead)
{
    Spectrum.DftLeads[which] = lead;
    return SetSpectrum(SpectrumLayout::DoubleLead);
}

bool RecordReview::SetForm(EcgForm form)
{
    if (!Try(View.Form, form, [this] { return ReadView(); }))
        return false;
    state_.EcgForm = form;
    return true;
}

bool RecordReview::SetGain(std::size_t index)
{
    return Try(state_.CurrentHeader.GainIndex, static_cast<Byte>(index), [this] { return ReadView(); });
}

bool RecordReview::SetSpeed(std::size_t index)
{
    return Try(state_.CurrentHeader.SpeedIndex, static_cast<Byte>(index), [this] { return ReadView(); });
}

bool RecordReview::MoveTo(std::int32_t start)
{
    return Try(state_.BlockStart, std::clamp(start, firstSlot, std::max(File.SlotCount - 1, firstSlot)),
               [this] { return ReadView(); });
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
    const bool hasHeader = File.ReadHeader(WhichRecord::Comparison);
    File.CountSlots(WhichRecord::Comparison);
    if (!hasHeader || !HasSamples(File.CompareSlotCount))
        return false;
    const bool saved = HasSavedAnalysis(File.CompareHeader);
    File.CompareStart =
        saved ? std::clamp<std::int32_t>(File.CompareHeader.SavedStart, firstSlot, File.CompareSlotCount - 1)
              : firstSlot;
    return true;
}

bool RecordReview::SelectBeat(std::size_t beat)
{
    if (beat >= File.RFlagList.size() || File.RFlagList[beat] == 0)
        return true;
    if (!ReadView())
        return false;
    View.SelectedBeat = beat;
    MeasureSelected();
    return true;
}

// Without a flag in the selected place there is no beat to measure, and the values stay.
void RecordReview::MeasureSelected()
{
    File.CenterSlot = File.RFlagList[View.SelectedBeat];
    if (File.CenterSlot > 0)
        Delineate(File, LeadSystem::Wilson, Result);
}

bool RecordReview::AddFlag(std::int32_t slot)
{
    if (slot < firstSlot || slot >= File.SlotCount)
        return true;
    return File.SetRFlag(FlagAction::Set, slot) && AfterFlagChange();
}

bool RecordReview::DeleteFlag(std::size_t beat)
{
    if (beat >= File.RFlagList.size() || File.RFlagList[beat] == 0)
        return true;
    return File.SetRFlag(FlagAction::Clear, File.RFlagList[beat]) && AfterFlagChange();
}

bool RecordReview::AfterFlagChange()
{
    if (!ReadView())
        return false;
    MeasureSelected();
    return true;
}

bool RecordReview::Save()
{
    SaveAnalysis(state_.BlockStart, static_cast<Byte>(View.SelectedBeat), Result, state_.CurrentHeader);
    return File.WriteHeader();
}

std::size_t RecordReview::SamplesPresent() const
{
    return Present(File.SlotCount, state_.BlockStart, static_cast<std::size_t>(std::max(SamplesInView(), 0)));
}

ViewSamples RecordReview::Comparison() const
{
    const auto wanted = std::min<std::size_t>(static_cast<std::size_t>(SamplesInView()), AboutFile::CompareColumns);
    return {File.CompareBlock, Present(File.CompareSlotCount, File.CompareStart, wanted)};
}

StripLayout RecordReview::Layout(double longestLine) const
{
    return LayOutStrips(View, Scale(), longestLine, Samples(), Comparison());
}

}  // namespace ecg
