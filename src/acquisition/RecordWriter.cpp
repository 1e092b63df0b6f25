#include "acquisition/RecordWriter.h"

#include "core/Numbers.h"
#include "core/PatientNumber.h"
#include "core/formats/FixedRecordFile.h"

#include <algorithm>
#include <array>
#include <utility>

namespace ecg {
namespace {

constexpr std::size_t headerAreaBytes = (FirstSampleSlot - 1) * sizeof(RecordSample);

// Zeros where the header will stand are what a gap would read as. Written at the start, they keep its place on the
// disk: a disk that fills up during the sampling still takes the header.
void ReserveHeader(ByteFile& file)
{
    constexpr std::array<std::byte, headerAreaBytes> zeros{};
    if (file.Size() == 0)
        file.WriteAt(0, zeros);
}

std::uintmax_t SamplesIn(std::uintmax_t fileBytes)
{
    return (std::max<std::uintmax_t>(fileBytes, headerAreaBytes) - headerAreaBytes) / sizeof(RecordSample);
}

}  // namespace

std::string ExamTimeText(const CalendarTime& time)
{
    constexpr int yearDigits = 4;
    std::string text = FormatZeros(time.Year, yearDigits);
    for (const int part : {time.Month, time.Day, time.Hour, time.Minute, time.Second})
        text += FormatZeros(part, 2);
    return text;
}

std::string RecordPathOf(std::string_view patientNumber, const CalendarTime& start, LeadSystem system)
{
    return PatientFolderName(patientNumber) + '\\' + ExamTimeText(start) + (system == LeadSystem::Wilson ? ".W" : ".F");
}

bool RecordWriter::Open(const CalendarTime& start)
{
    state_.CurrentHeader.ExamTime.Set(ExamTimeText(start));
    state_.CurrentHeader.EventText = {};
    state_.CurrentHeader.EventPos = {};
    state_.CurrentHeader.DoctorNote = {};
    state_.RecordNo = FirstSampleSlot;
    state_.BlockStart = FirstSampleSlot;
    state_.SampledFrames = 0;
    written_ = 0;
    failed_ = 0;
    path_ = RecordPathOf(state_.CurrentPatient.No.Text(), start, LeadSystemOf(state_.SysInfo));
    file_ = MakePatientFolder() ? open_(File(), OpenMode::ReadWrite) : nullptr;
    if (file_)
        ReserveHeader(*file_);
    return file_ != nullptr;
}

bool RecordWriter::MakePatientFolder() const
{
    const std::string name = PatientFolderName(state_.CurrentPatient.No.Text());
    if (name.empty())
        return true;  // the record lies in the data folder itself
    std::error_code error;
    const std::filesystem::path folder = state_.Folders.Data / name;
    return std::filesystem::is_directory(folder, error) || std::filesystem::create_directory(folder, error);
}

void RecordWriter::WriteSample(std::int32_t slot, const RecordSample& sample)
{
    const bool done = file_ && slot >= FirstSampleSlot && FixedRecordFile<RecordSample>(*file_).Write(slot, sample);
    ++(done ? written_ : failed_);
}

RecordOutcome RecordWriter::Close()
{
    CompleteHeader();
    state_.RecordPath = path_;
    RecordOutcome outcome{.Path = path_, .SamplesLost = written_ + failed_};
    // A file that was deleted or replaced while it was open took every sample and is nowhere: its path tells.
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(File(), error);
    const auto file = std::exchange(file_, nullptr);
    if (!file || error)
        return outcome;
    outcome.HeaderOnDisk = FixedRecordFile<RecordHeader>(*file).Write(1, state_.CurrentHeader);
    outcome.Flushed = file->Flush();
    outcome.SamplesOnDisk =
        static_cast<std::int32_t>(std::min<std::uintmax_t>(static_cast<std::uintmax_t>(written_), SamplesIn(size)));
    outcome.SamplesLost -= outcome.SamplesOnDisk;
    return outcome;
}

void RecordWriter::CompleteHeader()
{
    RecordHeader& header = state_.CurrentHeader;
    const SysInfo& settings = state_.SysInfo;
    header.GainIndex = static_cast<Byte>(settings.GainIndex);
    header.SpeedIndex = static_cast<Byte>(settings.SpeedIndex);
    header.FilterFlags = settings.FilterOn;
    header.LeadFlags = settings.LeadShow;
    header.SavedStart = 0;
    const PatientRecord& patient = state_.CurrentPatient;
    header.Name = patient.Name;
    header.Sex = patient.Sex;
    header.BirthYear = patient.BirthYear;
    header.Height = patient.Height;
    header.Weight = patient.Weight;
    header.Doctor.Set(state_.DoctorName);
}

bool RecordWriter::Delete()
{
    if (std::exchange(file_, nullptr) == nullptr)
        return true;
    std::error_code error;
    std::filesystem::remove(File(), error);
    return !std::filesystem::exists(File(), error);
}

}  // namespace ecg
