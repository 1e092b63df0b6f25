#include "record/ImportRecording.h"

#include "acquisition/FramePath.h"
#include "acquisition/RecordWriter.h"
#include "core/PatientNumber.h"
#include "record/PatientChoice.h"
#include "wfdb/RecordingFrames.h"

#include <algorithm>
#include <vector>

namespace ecg {
namespace {

using Result = Outcome<std::filesystem::path>;

constexpr std::size_t watchedFrames = 3 * FramesPerSecond;  // what the detector sees before the record begins
constexpr int wilsonHeartChannel = 0;                       // II
constexpr int frankHeartChannel = 1;                        // Y

struct Signal {
    LeadSystem System = LeadSystem::Wilson;
    std::vector<Frame> Frames;
};

Outcome<Signal> LoadSignal(const ImportOptions& options)
{
    const auto recording = LoadRecording(options.Header);
    if (!recording)
        return Outcome<Signal>::Failure(recording.Reason());
    Signal signal;
    if (options.System != LeadSystem::Frank)
        signal.Frames = WilsonFrames(*recording);
    if (signal.Frames.empty() && options.System != LeadSystem::Wilson)
        signal = {LeadSystem::Frank, FrankFrames(*recording)};
    if (!signal.Frames.empty())
        return signal;
    const char* const leads = !options.System                         ? "leads of either system"
                              : *options.System == LeadSystem::Wilson ? "lead II, III or V1 to V6"
                                                                      : "leads X, Y and Z";
    return Outcome<Signal>::Failure(options.Header.string() + " has no " + leads);
}

// Takes frames to the writer without showing them.
class Sampler final : private FramePathSink, private SamplingSink {
public:
    Sampler(SharedState& state, RecordWriter& writer) : state_(state), writer_(writer), path_(state, *this)
    {
        path_.SetSamplingSink(this);
        path_.SetHeartChannel(System() == LeadSystem::Wilson ? wilsonHeartChannel : frankHeartChannel);
    }

    RecordOutcome Record(std::span<const Frame> frames, const CalendarTime& start)
    {
        for (std::size_t i = std::min(frames.size(), watchedFrames); i > 0; --i)
            Process(frames[i - 1]);
        if (!writer_.Open(start))
            return writer_.Close();
        state_.ExamState = ExamState::Sampling;
        for (const Frame& frame : frames)
            Process(frame);
        state_.ExamState = ExamState::Waiting;
        return writer_.Close();
    }

private:
    LeadSystem System() const { return LeadSystemOf(state_.SysInfo); }

    void Process(const Frame& frame)
    {
        if (System() == LeadSystem::Wilson)
            path_.ProcessWilsonFrame(frame);
        else
            path_.ProcessFrankFrame(frame);
    }

    void WriteSample(std::int32_t slot, const RecordSample& sample) override { writer_.WriteSample(slot, sample); }
    void LimitReached() override {}  // the recording ends by itself
    void OnBeat(int) override {}
    void OnSilence() override {}
    void OnSampledTime(LeadSystem, std::int32_t) override {}
    void OnColumn(LeadSystem, const RecordSample&, bool) override {}

    SharedState& state_;
    RecordWriter& writer_;
    FramePath path_;
};

// Removes what an import has made unless it came to its end.
class Unfinished {
public:
    Unfinished(std::filesystem::path folder, std::filesystem::path record)
        : folder_(std::move(folder)), record_(std::move(record))
    {
        std::error_code error;
        madeFolder_ = !std::filesystem::exists(folder_, error);
    }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;
    ~Unfinished()
    {
        if (finished_)
            return;
        std::error_code error;
        std::filesystem::remove(record_, error);
        if (madeFolder_)
            std::filesystem::remove(folder_, error);
    }

    void Finish() { finished_ = true; }

private:
    std::filesystem::path folder_;
    std::filesystem::path record_;
    bool madeFolder_ = false;
    bool finished_ = false;
};

// A moment at which the patient has no record yet: a record is named by its second, and one import takes less.
std::optional<CalendarTime> FreeMoment(const SharedState& state, Clock& clock)
{
    constexpr int waitMs = 50;
    constexpr int waits = 100;
    for (int i = 0; i < waits; ++i) {
        const CalendarTime now = clock.Now();
        const auto path = RecordPathOf(state.CurrentPatient.No.Text(), now, LeadSystemOf(state.SysInfo));
        std::error_code error;
        if (!std::filesystem::exists(state.Folders.File(path), error))
            return now;
        clock.Wait(waitMs);
    }
    return std::nullopt;
}

void LoadSettings(SharedState& state, LeadSystem system)
{
    LoadFactorySettings(state.SysInfo, FactoryGroup::All, true);
    ReadSettings(state.SettingsFile(), state.SysInfo);
    state.SysInfo.LeadSystem = static_cast<std::int16_t>(system);
}

Result MakeRecord(SharedState& state, const Signal& signal, const PatientChoice& choice, const CalendarTime& start,
                  FileSystem& files)
{
    const std::string number = choice.Patient.No.Text();
    const auto path = state.Folders.File(RecordPathOf(number, start, signal.System));
    Unfinished made(state.Folders.Data / PatientFolderName(number), path);
    RecordWriter writer(state, [&](const auto& file, OpenMode mode) { return files.Open(file, mode); });
    if (!Sampler(state, writer).Record(signal.Frames, start).IsWhole())
        return Result::Failure("cannot write " + path.string());
    if (choice.IsNew && !PatientFile(files, state.Folders.Data).Append(choice.Patient))
        return Result::Failure("cannot enter the patient in " + state.Folders.Data.string());
    made.Finish();
    return path;
}

}  // namespace

Result ImportRecording(const ImportOptions& options, Clock& clock, FileSystem& files)
{
    std::error_code error;
    if (!std::filesystem::is_directory(options.DataFolder, error))
        return Result::Failure("there is no folder " + options.DataFolder.string());
    SharedState state;
    state.Folders = {options.DataFolder.parent_path(), options.DataFolder};
    const PatientFile patients(files, state.Folders.Data);
    const auto choice =
        options.Patient ? ChoosePatient(patients, *options.Patient) : ChooseNewPatient(patients, state.Folders.Data);
    if (!choice)
        return Result::Failure(choice.Reason());
    const auto signal = LoadSignal(options);
    if (!signal)
        return Result::Failure(signal.Reason());
    state.CurrentPatient = choice->Patient;
    LoadSettings(state, signal->System);
    const auto start = FreeMoment(state, clock);
    if (!start)
        return Result::Failure("the patient already has a record of this second");
    return MakeRecord(state, *signal, *choice, *start, files);
}

}  // namespace ecg
