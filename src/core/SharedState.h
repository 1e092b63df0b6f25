// The one state that all windows read and leave results in. `app/` makes it and passes it by reference.
#pragma once

#include "core/DataFolder.h"
#include "core/Language.h"
#include "core/ReviewKinds.h"
#include "core/Settings.h"
#include "core/formats/CommRecord.h"
#include "core/formats/PatientRecord.h"
#include "core/formats/RecordHeader.h"
#include "core/formats/SysInfo.h"

#include <array>
#include <string>

namespace ecg {

// Counts of a millivolt in every drawn trace, live and in review: 20 mm of 11.3 counts. Measurement has its own scale.
inline constexpr float CountsPerMv = 226.0F;

// Values of `PatWindowMode`, of `EventMode` and of `ComparePath`.
inline constexpr int ManagesPatients = 0;
inline constexpr int PicksComparison = 2;
inline constexpr int EventsOfSampling = 0;
inline constexpr int EventsOfWilsonReview = 6;  // those of a Frank review are 7
inline constexpr const char* NoComparison = "Cancel";

enum class ExamState : Byte { Waiting = 0, Ready = 1, Sampling = 2 };

struct SharedState {
    ecg::Folders Folders;

    ecg::SysInfo SysInfo;
    std::string DoctorName;  // selected at start-up; empty: the program ends

    Byte DevicePort = 0;         // port of the box, 1 to 16; 0 = no box
    bool KeepStreaming = false;  // leaving the main window keeps the stream
    ecg::ExamState ExamState = ExamState::Waiting;
    std::int32_t WilsonSamples = 0;  // frames of this examination
    std::int32_t FrankSamples = 0;
    std::int32_t SampledFrames = 0;  // frames written in this sampling
    std::int32_t RecordNo = 0;       // next slot of the sample file
    std::int32_t BlockStart = 0;     // slot on view in a review; during sampling, the slot written last

    PatientRecord CurrentPatient;
    PatientRecord ReferencePatient;  // of a record chosen for comparison
    RecordHeader CurrentHeader;
    RecordHeader WorkHeader;        // of the record whose department and bed are being changed
    std::string RecordPath;         // record in review, from the data folder on, with backslashes
    std::string ComparePath;        // record chosen for comparison, likewise; `NoComparison`, "": not chosen yet
    std::string CurrentRecordFile;  // name of the file that is selected in the database window
    Byte RecordOpenMode = 0;        // 1 the record came from acquisition, 0 from the database window

    // How the window opened next is to behave.
    int HelpContext = 0;   // 254 or 255, by opener: which help is asked for; 255 at the start: only load the database
    int PatInputMode = 0;  // `EntryMode`: 0 adds a patient, 1 modifies the selected one, 2 sets up an examination
    int PatWindowMode = ManagesPatients;  // every value but `PicksComparison` manages the database
    int EventMode = EventsOfSampling;     // every other value is a review

    ecg::EcgForm EcgForm = ecg::EcgForm::Rows12;        // of the last review, for the next one
    ecg::ReviewMode ReviewMode = ecg::ReviewMode::Ecg;  // of the review from which a window is opened

    CommRecord MailBox;

    // Arguments and results of `frmMsg`, UTF-8.
    std::string MsgTitle;
    std::array<std::string, 5> MsgLines;
    std::string MsgButtons;  // "Yes", "YesNo" or "YesNoCancel"
    bool MsgShowText = false;
    std::string MsgDefaultText;
    Byte MsgResult = 0;  // index of the button pressed
    std::string MsgInputText;

    Colour PrintGrid5mm;
    Colour PrintGrid1mm;

    bool Chinese() const { return IsChinese(SysInfo); }
    std::filesystem::path SettingsFile() const { return Folders.Data / SettingsFileName; }

    void DerivePrintColours()
    {
        const PrintColours colours = ecg::DerivePrintColours(SysInfo);
        PrintGrid5mm = colours.Grid5mm;
        PrintGrid1mm = colours.Grid1mm;
    }
};

}  // namespace ecg
