// A Wilson record in a data folder of its own, as an examination leaves it, and its review.
#pragma once

#include "core/formats/FixedRecordFile.h"
#include "demo/SyntheticEcg.h"
#include "review/RecordReview.h"
#include "support/TemporaryDataFolder.h"

#include <string>
#include <vector>

namespace ecg {

// A heart in sinus rhythm, each beat flagged where its R wave is.
inline std::vector<RecordSample> FlaggedHeart(double seconds, double beatsPerMinute = 60)
{
    const SyntheticEcg ecg({.Seconds = seconds,
                            .BeatsPerMinute = beatsPerMinute,
                            .RateVariation = 0,
                            .Breathing = 0,
                            .NoiseMicrovolts = 0});
    std::vector<RecordSample> samples;
    for (const Frame& frame : ecg.WilsonFrames())
        samples.push_back(ToSample(frame));
    for (const Beat& beat : ecg.Heart().Beats()) {
        RecordSample& sample = samples[static_cast<std::size_t>(beat.R * FramesPerSecond) % samples.size()];
        sample.Words[0] = static_cast<std::int16_t>(sample.Words[0] | BeatMark);
    }
    return samples;
}

// A record without a signal, and the slots of its flags.
inline std::vector<RecordSample> FlaggedSilence(std::size_t count, const std::vector<int>& flags = {})
{
    RecordSample silence{};
    silence.Words.fill(ZeroLevel);
    std::vector<RecordSample> samples(count, silence);
    for (const int slot : flags)
        samples[static_cast<std::size_t>(slot - FirstSampleSlot)].Words[0] =
            static_cast<std::int16_t>(ZeroLevel | BeatMark);
    return samples;
}

class ReviewRecord {
public:
    explicit ReviewRecord(FileOpener open = OpenFile) : Review(State, std::move(open))
    {
        State.Folders = Folder.Paths();
        State.RecordPath = "\\000000001\\20260309080507.W";
        State.SysInfo.Language = ChineseLanguage;
        LoadFactorySettings(State.SysInfo, FactoryGroup::All, true);
        State.DerivePrintColours();
        State.CurrentPatient.No.Set("1");
        State.CurrentPatient.Name.Set("Zhang San");
        State.CurrentPatient.BirthYear.Set("1961");
        Header.ExamTime.Set("20260309080507");
        Header.GainIndex = 1;
        Header.SpeedIndex = 1;
    }

    std::filesystem::path Path() const { return State.Folders.File(State.RecordPath); }

    // Writes `Header` and `samples` as the file of the record, or of another one.
    void Store(const std::vector<RecordSample>& samples) { StoreAs(State.RecordPath, samples); }
    void StoreAs(const std::string& storedPath, const std::vector<RecordSample>& samples)
    {
        const auto path = State.Folders.File(storedPath);
        std::filesystem::create_directories(path.parent_path());
        std::filesystem::remove(path);
        const auto file = OpenFile(path, OpenMode::ReadWrite);
        FixedRecordFile<RecordHeader>(*file).Write(1, Header);
        FixedRecordFile<RecordSample>(*file).WriteMany(FirstSampleSlot, samples);
    }

    // The header and a sample as they stand in the file.
    RecordHeader StoredHeader() const
    {
        return *FixedRecordFile<RecordHeader>(*OpenFile(Path(), OpenMode::Read)).Read(1);
    }
    RecordSample StoredSample(int slot) const
    {
        return *FixedRecordFile<RecordSample>(*OpenFile(Path(), OpenMode::Read)).Read(slot);
    }

    TemporaryDataFolder Folder;
    SharedState State;
    RecordHeader Header;
    RecordReview Review;
};

}  // namespace ecg
