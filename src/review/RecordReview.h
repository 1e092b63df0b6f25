// The review of a stored Wilson record: what is in view, the selected beat, its measurement, corrections by hand.
//
//   Open ─► (a saved analysis is taken up, or beat 1 is selected) ─► view changes, beats, flags ─► Save
//
// One object for the whole process: its samples and its result are what the windows opened from a review work on. The
// record is `RecordPath` of the shared state, its header `CurrentHeader`, the first slot in view `BlockStart`.
//
// The record may vanish or lose its end while it is shown. Every change of the view looks; one that cannot be read is
// not made, and what is in memory stays, so that a flat line is never shown in place of a lost signal.
#pragma once

#include "analysis/AboutFile.h"
#include "analysis/BeatResult.h"
#include "analysis/QtDispersion.h"
#include "analysis/Spectrum.h"
#include "review/ReviewState.h"
#include "review/StripLayout.h"

#include <array>
#include <cstdint>
#include <optional>
#include <utility>

namespace ecg {

class RecordReview {
public:
    // `state` outlives this object; `open` opens the files of records.
    explicit RecordReview(SharedState& state, FileOpener open = OpenFile) : File(state, std::move(open)), state_(state)
    {}

    enum class Opening {
        Opened,
        Empty,      // no samples
        Unreadable  // there is no such file, or it cannot be read
    };

    // Begins the review of the record: header, view, and the beat of the saved analysis or the second one in view.
    Opening Open();

    // Keeps start of view, beat, rate and lines in the record's header. False: the record could not be changed.
    bool Save();

    // Changes of the view that need samples. False: the record could not be read, and nothing has changed.
    bool SetMode(ReviewMode mode);
    bool SetForm(EcgForm form);  // contrast wants `OpenComparison` first
    bool SetSpectrum(SpectrumLayout layout);
    bool SetDftLead(std::size_t which, std::size_t lead);  // 0 input, 1 output
    bool SetGain(std::size_t index);                       // of `ReviewGains`
    bool SetSpeed(std::size_t index);                      // of `ReviewSpeeds`
    bool MoveTo(std::int32_t start);                       // a slot; brought into the record
    bool ScrollTo(int value) { return MoveTo(StartOfScroll(value, File.SlotCount, SamplesInView())); }

    // The place of the scroll bar, -1: leave it.
    int ScrollValue() const { return ScrollOfStart(state_.BlockStart, File.SlotCount); }

    // Takes up `ComparePath` for the contrast form. False when it is no record with samples: the one before stays.
    bool OpenComparison();

    // Selects a long lead, `which` 0 or 1. False when the form shows both and the other one is the same: nothing has
    // changed.
    bool ChooseLongLead(std::size_t which, std::size_t lead);

    // Brings two equal long leads back to II and V5, for the form that shows both. True when they were equal.
    bool SeparateLongLeads();

    // Centres the analysis on flag `beat` of the view and measures it. A place without a flag changes nothing. False:
    // the record could not be read.
    bool SelectBeat(std::size_t beat);

    // Sets a flag at a slot, or takes one from the view, in the record itself. The selected place stays the same
    // number, and so may name another beat afterwards; it is measured anew. A slot outside the record and a place
    // without a flag change nothing. False: the record could not be changed, or not be read afterwards.
    bool AddFlag(std::int32_t slot);
    bool DeleteFlag(std::size_t beat);

    const SharedState& State() const { return state_; }
    ViewScale Scale() const { return ScaleOf(state_.CurrentHeader); }
    std::int32_t SamplesInView() const { return ecg::SamplesInView(ViewWidth(View), Scale().Speed); }

    // How many of them the record has, from the first slot in view on.
    std::size_t SamplesPresent() const;
    ViewSamples Samples() const { return {File.EcgBlock, SamplesPresent()}; }
    ViewSamples Comparison() const;

    // The strips of the view. `longestLine` mm: see `LayOutStrips`.
    StripLayout Layout(double longestLine) const;

    AboutFile File;    // its `EcgBlock` has the samples; in the modes of spectrum and variability, their statistics
    ReviewState View;  // what needs no samples is changed here at once
    BeatResult Result;
    QtStats Qt{};             // of the QT mode
    SpectrumResult Spectrum;  // of the spectrum mode

    // The view had the beats for a spectrum. Otherwise `Spectrum` is an earlier one of the same layout and leads, or
    // without any its `Length` is 0.
    bool SpectrumIsOfView = false;

private:
    template <class Value>
    bool Change(Value& choice, Value wanted);
    bool ReadView();
    bool ReadBlock();
    void ForgetFlagsBehindView();
    void ComputeStatistics();
    void RestoreQt();
    bool ChooseSpectrum(SpectrumLayout layout, const std::array<std::size_t, 2>& leads);
    std::int32_t SamplesToRead() const;
    void TakeUpSavedAnalysis();
    void MeasureWhereItLies();
    bool HasFlag(std::size_t beat) const;
    bool MeasureSelected();

    SharedState& state_;
    std::optional<decltype(MeasuredParams::QT)> ownQt_;  // what the QT mode has replaced
};

}  // namespace ecg
