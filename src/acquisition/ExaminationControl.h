// An examination from key to record: the machine behind keys 16 and 17, free of any window.
//
//   Waiting ─ standard: patient, prompt ─► Ready ─ start ─► Sampling ─ finish or limit ─► Waiting, or Ready for the
//      ▲  └── quick: new patient, 20 s ──────────────────────▲  │                         second lead system
//      └────────────────── cancel ──────────── Ready ◄─ again ──┘ (the record is deleted and begun anew)
//
// A finished Wilson record opens in review, and the examination goes on when that closes.
#pragma once

#include "acquisition/LiveMonitor.h"
#include "acquisition/MainView.h"
#include "acquisition/RecordWriter.h"
#include "core/PatientDesk.h"
#include "core/SharedState.h"
#include "core/WindowOpener.h"
#include "platform/Clock.h"
#include "platform/MessageBox.h"

namespace ecg {

class ExaminationControl final : private RunningExamination {
public:
    ExaminationControl(SharedState& state, LiveMonitor& monitor, MainView& view, WindowOpener& windows,
                       MessageBox& messages, Clock& clock, PatientDesk& desk, RecordWriter& writer);
    ~ExaminationControl() override;
    ExaminationControl(const ExaminationControl&) = delete;
    ExaminationControl& operator=(const ExaminationControl&) = delete;

    void PressGo();    // key 16: standard examination, start, finish
    void PressBack();  // key 17: quick examination, cancel, sample again

    // Ends a running sampling without showing its record, which gets its header as far as it goes: the program ends.
    void Leave();

private:
    void WriteSample(std::int32_t slot, const RecordSample& sample) override;
    void LimitReached() override;
    void SampleAgain() override;

    void BeginStandard();
    void BecomeReady();
    void BeginQuick();
    void Start();
    void StopSampling();
    void CloseRecord();
    void ShowRecord(const RecordOutcome& outcome);
    void TellOfRecord(const RecordOutcome& outcome);
    void GoOn();
    bool PrepareSystem(LeadSystem system, std::int32_t samples);
    void PromptElectrodes();
    bool TakeUpPatient();
    void Enter(ExamState state);

    SharedState& state_;
    LiveMonitor& monitor_;
    MainView& view_;
    WindowOpener& windows_;
    MessageBox& messages_;
    Clock& clock_;
    PatientDesk& desk_;
    RecordWriter& writer_;
    std::string examined_;    // number of the patient whose examination runs
    std::int32_t beats_ = 0;  // marked in the running sampling
    bool closing_ = false;    // the record is being closed and looked at: the keys wait
    bool left_ = false;       // the program ends
};

}  // namespace ecg
