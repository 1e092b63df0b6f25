#include "acquisition/ExaminationControl.h"

#include "core/Labels.h"
#include "core/Numbers.h"

namespace ecg {
namespace {

constexpr std::int32_t quickSamples = 10000;  // 20 seconds
constexpr int entryForExamination = 2;

constexpr Twin noQuickPatient{"未能建立快速检查的患者资料。请检查磁盘空间和数据文件夹的权限。",
                              "No patient could be made for the quick examination. Please check the free space and "
                              "the permissions of the data folder."};

constexpr Twin patientGone{
    "该患者已不在数据库中，检查已取消。请重新选择患者。",
    "This patient is no longer in the database, and the examination was cancelled. Please choose "
    "the patient again."};

std::string Seconds(std::int32_t frames)
{
    return FormatDecimal(static_cast<double>(frames) / FramesPerSecond, 1) + " s";
}

}  // namespace

ExaminationControl::ExaminationControl(SharedState& state, LiveMonitor& monitor, MainView& view, WindowOpener& windows,
                                       MessageBox& messages, Clock& clock, PatientDesk& desk, RecordWriter& writer)
    : state_(state),
      monitor_(monitor),
      view_(view),
      windows_(windows),
      messages_(messages),
      clock_(clock),
      desk_(desk),
      writer_(writer)
{
    monitor_.SetExamination(this);
}

ExaminationControl::~ExaminationControl()
{
    monitor_.SetExamination(nullptr);
}

void ExaminationControl::PressGo()
{
    if (closing_)
        return;
    switch (state_.ExamState) {
    case ExamState::Waiting:
        return BeginStandard();
    case ExamState::Ready:
        return Start();
    case ExamState::Sampling:
        StopSampling();
        return CloseRecord();
    }
}

void ExaminationControl::PressBack()
{
    if (closing_)
        return;
    switch (state_.ExamState) {
    case ExamState::Waiting:
        return BeginQuick();
    case ExamState::Ready:
        return Enter(ExamState::Waiting);
    case ExamState::Sampling:
        return SampleAgain();
    }
}

void ExaminationControl::Leave()
{
    left_ = true;
    if (state_.ExamState != ExamState::Sampling)
        return;
    StopSampling();
    writer_.Close();
}

void ExaminationControl::BeginStandard()
{
    state_.CurrentPatient.No.Set("");
    state_.PatInputMode = entryForExamination;
    windows_.ShowBlocking(WindowName::frmPatInput);
    if (state_.CurrentPatient.No.IsBlank())
        return;
    if (state_.SysInfo.SystemControlTime != 1) {
        BecomeReady();
        view_.ShowExamination();
        return;
    }
    if (PrepareSystem(LeadSystem::Wilson, state_.WilsonSamples) ||
        PrepareSystem(LeadSystem::Frank, state_.FrankSamples))
        PromptElectrodes();
    view_.ShowExamination();
}

void ExaminationControl::BeginQuick()
{
    if (!desk_.AddQuickPatient()) {
        messages_.Tell(noQuickPatient.In(state_.SysInfo), labels::Program.In(state_.SysInfo));
        return;
    }
    state_.FrankSamples = 0;
    state_.WilsonSamples = quickSamples;
    state_.SysInfo.SystemControlTime = 1;  // stays in the settings and is saved at exit: it is meant
    PrepareSystem(LeadSystem::Wilson, quickSamples);
    PressGo();
}

// Makes `system` the one that is sampled next. False, and nothing changes, when it is not asked for.
bool ExaminationControl::PrepareSystem(LeadSystem system, std::int32_t samples)
{
    if (samples < 1)
        return false;
    state_.SysInfo.SampleLimit = samples;
    monitor_.SelectLeadSystem(system == LeadSystem::Wilson ? 0 : 1);
    view_.ShowSelectors();
    BecomeReady();
    return true;
}

// From here on until its end the examination is that of this patient, whoever is looked at in the database meanwhile.
void ExaminationControl::BecomeReady()
{
    examined_ = state_.CurrentPatient.No.Text();
    state_.ExamState = ExamState::Ready;
}

void ExaminationControl::PromptElectrodes()
{
    if (state_.SysInfo.LeadPrompt == 1)
        windows_.ShowBlocking(WindowName::frmAskSamp);
}

// The database closes, for nobody may delete or change what is being recorded.
bool ExaminationControl::TakeUpPatient()
{
    windows_.Close(WindowName::frmPat);
    if (desk_.TakeUp(examined_))
        return true;
    messages_.Tell(patientGone.In(state_.SysInfo), labels::Program.In(state_.SysInfo));
    return false;
}

void ExaminationControl::Start()
{
    if (!TakeUpPatient()) {
        Enter(ExamState::Waiting);
        return;
    }
    writer_.Open(clock_.Now());
    beats_ = 0;
    Enter(ExamState::Sampling);
}

void ExaminationControl::WriteSample(std::int32_t slot, const RecordSample& sample)
{
    writer_.WriteSample(slot, sample);
    if ((sample.Words[0] & BeatMark) != 0)
        ++beats_;
}

// A frame is still on its way here, and closing a record shows windows: only the sampling ends at once.
void ExaminationControl::LimitReached()
{
    StopSampling();
    closing_ = true;
    view_.RunSoon([this] { CloseRecord(); });
}

void ExaminationControl::StopSampling()
{
    monitor_.StopFeed();
    Enter(ExamState::Waiting);
}

void ExaminationControl::CloseRecord()
{
    closing_ = true;
    windows_.Close(WindowName::frmNote);
    const RecordOutcome outcome = writer_.Close();
    desk_.RefreshRecords();
    state_.RecordOpenMode = 1;
    ShowRecord(outcome);
    closing_ = false;
    if (!left_)
        GoOn();
}

// Returns when the record has been looked at.
void ExaminationControl::ShowRecord(const RecordOutcome& outcome)
{
    const bool reviewed = LeadSystemOf(state_.SysInfo) == LeadSystem::Wilson;
    if (!reviewed || !outcome.IsWhole())
        TellOfRecord(outcome);
    if (reviewed)
        windows_.ShowBlocking(WindowName::frmxECG);
    (reviewed ? state_.WilsonSamples : state_.FrankSamples) = 0;  // also when its window could not open
}

// Says what was recorded, and what of it did not reach the disk.
void ExaminationControl::TellOfRecord(const RecordOutcome& outcome)
{
    const bool chinese = state_.Chinese();
    state_.MsgTitle = Twin{"采样完成", "Sampling finished"}.In(chinese);
    state_.MsgButtons = "Yes";
    state_.MsgShowText = false;
    state_.MsgLines = {Twin{"记录文件：", "Record: "}.In(chinese) + outcome.Path,
                       Twin{"时间长度：", "Length: "}.In(chinese) + Seconds(outcome.SamplesOnDisk),
                       Twin{"心搏数：", "Beats: "}.In(chinese) + std::to_string(beats_), "", ""};
    if (outcome.SamplesLost > 0)
        state_.MsgLines[3] =
            Twin{"未能写入磁盘的时间：", "Not on the disk: "}.In(chinese) + Seconds(outcome.SamplesLost);
    if (!outcome.IsWhole())
        state_.MsgLines[4] = Twin{"记录不完整，请检查磁盘后重新采样。",
                                  "The record is not complete. Please check the disk and sample again."}
                                 .In(chinese);
    windows_.ShowBlocking(WindowName::frmMsg);
}

// To the second half of a double examination, or back to the beginning.
void ExaminationControl::GoOn()
{
    const bool second = state_.SysInfo.SystemControlTime == 1 && state_.FrankSamples > 0;
    if (second && TakeUpPatient() && PrepareSystem(LeadSystem::Frank, state_.FrankSamples))
        PromptElectrodes();
    monitor_.ComeToFront();
    view_.ShowExamination();
}

void ExaminationControl::SampleAgain()
{
    state_.ExamState = ExamState::Ready;
    writer_.Delete();
    monitor_.Display().ResetSweep();
    Start();
}

void ExaminationControl::Enter(ExamState state)
{
    state_.ExamState = state;
    view_.ShowExamination();
}

}  // namespace ecg
