// Any bytes as a record file, under review: whatever a view, a centre and a saved analysis say, the reader stays inside
// the file, and a beat gives the same bits each time it is measured.
#include "analysis/AboutResult.h"
#include "analysis/Diagnose.h"
#include "analysis/HeartRateVariability.h"
#include "analysis/QtDispersion.h"
#include "analysis/SavedAnalysis.h"
#include "analysis/Spectrum.h"
#include "fuzz/Require.h"
#include "support/FileBytes.h"
#include "support/TemporaryDataFolder.h"

#include <cstring>
#include <fstream>
#include <string>

namespace ecg::fuzz {
namespace {

constexpr const char* recordName = "20260309080507.W";

// What the input begins with.
struct Control {
    Int32 CenterSlot;
    Int32 BlockStart;
    Byte Kind;  // bit 0: Frank leads; bits 1 and 2: the statistic, for all of them would slow each input down
};
static_assert(IsFixedRecord<Control, 9>);

bool SameBits(const BeatResult& left, const BeatResult& right)
{
    return left.Locate == right.Locate && left.Unified == right.Unified &&
           std::memcmp(&left.Params, &right.Params, sizeof left.Params) == 0;
}

class Review {
public:
    Review(const Folders& folders, const Control& control)
        : control_(control), system_((control.Kind & 1) != 0 ? LeadSystem::Frank : LeadSystem::Wilson)
    {
        state_.Folders = folders;
        state_.RecordPath = state_.ComparePath = recordName;
        file_.CountSlots(WhichRecord::Current);
        file_.CountSlots(WhichRecord::Comparison);
    }

    void ReadEverything()
    {
        for (const auto target : {SampleTarget::Comparison, SampleTarget::Window, SampleTarget::FrankWindow})
            file_.ReadSamples(target, control_.BlockStart, 4400);
        std::int32_t last = FirstSampleSlot - 1;
        file_.FindRFlags(control_.BlockStart, FlagKind::Any, [&](std::int32_t slot) {
            Require(slot > last && slot < file_.SlotCount, "flags come in order and lie in the file");
            last = slot;
            return true;
        });
    }

    BeatResult Beat(std::int32_t center)
    {
        state_.BlockStart = control_.BlockStart;
        file_.ReadSamples(SampleTarget::View, state_.BlockStart, 4400);
        file_.CenterSlot = center;
        BeatResult result;
        Delineate(file_, system_, result);
        const int rate = result.Params.HeartRate;
        Require(rate == 0 || (rate >= 30 && rate <= 240), "the rate is unknown or possible");
        return result;
    }

    void MeasureBeats()
    {
        const BeatResult once = Beat(control_.CenterSlot);
        Beat(file_.RFlagList[0]);
        Require(SameBits(once, Beat(control_.CenterSlot)), "a beat gives the same bits again");
    }

    // A statistic of the view and of its beat.
    void ComputeStatistic()
    {
        BeatResult beat = Beat(control_.CenterSlot);
        switch (control_.Kind >> 1 & 3) {
        case 0:
            ComputeQtStats(beat);
            DiagramOfQt(beat.Params);
            DiagnosticStatements(beat.Params, control_.Kind >> 3 & 1);
            return;
        case 1:
            ReadRRSeries(file_);
            ComputeHrvStats(file_.EcgBlock);
            return;
        case 2:
            return ComputeSpectrum(SpectrumLayout::TwelveLeads, beat.Params.HeartRate);
        default:
            return ComputeSpectrum(SpectrumLayout::DoubleLead, beat.Params.HeartRate);
        }
    }

    void ComputeSpectrum(SpectrumLayout layout, int heartRate)
    {
        SpectrumResult spectrum;
        const bool done = AnalyseSpectrum(file_, layout, heartRate, spectrum);
        Require(!done || (spectrum.Length >= ShortestSpectrum && spectrum.Length <= LongestSpectrum),
                "a spectrum is of whole cycles");
    }

    // Whatever the header keeps as an analysis.
    void TakeUp()
    {
        if (!file_.ReadHeader(WhichRecord::Current))
            return;
        state_.BlockStart = state_.CurrentHeader.SavedStart;
        file_.ReadSamples(SampleTarget::View, state_.BlockStart, 4400);
        BeatResult result;
        TakeUpAnalysis(state_.CurrentHeader, result);
        UnifyLines(system_, result);
        Measure(file_, system_, result);
        RecordHeader kept = state_.CurrentHeader;
        SaveAnalysis(kept.SavedStart, kept.SavedBeat, result, kept);
        Require(std::memcmp(&kept, &state_.CurrentHeader, sizeof kept) == 0, "a saved analysis is saved alike");
    }

private:
    Control control_;
    LeadSystem system_;
    SharedState state_;
    AboutFile file_{state_};
};

}  // namespace
}  // namespace ecg::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const ecg::TemporaryDataFolder folder;
    ecg::fuzz::Control control;
    if (size < sizeof control)
        return 0;
    std::memcpy(&control, data, sizeof control);
    const std::string bytes(reinterpret_cast<const char*>(data) + sizeof control, size - sizeof control);
    const auto file = folder.File(ecg::fuzz::recordName);
    std::ofstream(file, std::ios::binary) << bytes;
    ecg::fuzz::Review review(folder.Paths(), control);
    review.ReadEverything();
    review.MeasureBeats();
    review.ComputeStatistic();
    review.TakeUp();
    ecg::fuzz::Require(ecg::FileBytes(file) == bytes, "looking changes nothing");
    return 0;
}
