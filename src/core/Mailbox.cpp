#include "core/Mailbox.h"

#include "core/Labels.h"
#include "core/PatientNumber.h"
#include "core/formats/FixedRecordFile.h"

#include <optional>
#include <string>

namespace ecg {
namespace {

constexpr const char* centre = "中心";

constexpr Twin stillThere{"上次数据还没有被取走，继续吗？", "The last data has not been taken away yet. Continue?"};
constexpr Twin cameBack{"] 的心电图文件已经传回，请查阅", "] ECG file has come back, please review it"};

Byte Stored(MailState state)
{
    return static_cast<Byte>(state);
}

// Whether `file`, links followed, lies in `folder` or below.
bool LiesIn(const std::filesystem::path& file, const std::filesystem::path& folder)
{
    const auto relative = file.lexically_relative(folder);
    return !relative.empty() && *relative.begin() != ".." && *relative.begin() != ".";
}

// The file of a record that is named by another program, which may name anything: only a ".W" or ".F" file inside the
// data folder, in whatever case, is a record. No other file of ours may have a header written over its beginning.
std::optional<std::filesystem::path> RecordFile(const Folders& folders, const std::string& storedPath)
{
    std::error_code error;
    const auto folder = std::filesystem::weakly_canonical(folders.Data, error);
    const auto file = std::filesystem::weakly_canonical(folders.File(storedPath), error);
    const auto kind = UpperCase(file.extension().string());
    const bool isRecord = (kind == ".W" || kind == ".F") && storedPath.find('\0') == std::string::npos;
    if (error || !isRecord || !LiesIn(file, folder) || std::filesystem::is_symlink(file, error))
        return std::nullopt;
    return file;
}

}  // namespace

CommRecord Mailbox::Read(ByteFile& file)
{
    return FixedRecordFile<CommRecord>(file).Read(1).value_or(CommRecord{});
}

PostOutcome Mailbox::PostToMailbox(Byte selectedBeat, const MeasuredParams& params)
{
    const auto path = state_.Folders.Data / MailboxFileName;
    const auto stored = open_(path, OpenMode::Read);
    const bool waits = stored && Read(*stored).CommState == Stored(MailState::Posted);
    if (waits &&
        !messages_.Show(stillThere.In(state_.SysInfo), labels::Program.In(state_.SysInfo), MessageButtons::YesNo))
        return PostOutcome::Kept;
    CommRecord& mail = state_.MailBox;
    mail.CommState = Stored(MailState::Posted);
    mail.CommFile.Set(state_.RecordPath);
    mail.CommStart = state_.BlockStart;
    mail.CommBeat = selectedBeat;
    mail.CommParams = params;
    mail.CommHospital = state_.SysInfo.HospitalName;
    const auto file = open_(path, OpenMode::ReadWrite);
    const bool written = file && FixedRecordFile<CommRecord>(*file).Write(1, mail) && file->Flush();
    return written ? PostOutcome::Posted : PostOutcome::NotWritten;
}

void Mailbox::Poll()
{
    if (telling_ || !TakeMail())
        return;
    telling_ = true;
    TakeUpRecord();
    telling_ = false;
}

// The mailbox is emptied before anything is done about its record: the next poll comes while the message still shows.
bool Mailbox::TakeMail()
{
    const auto file = open_(state_.Folders.Data / MailboxFileName, OpenMode::ReadWrite);
    if (!file)
        return false;
    CommRecord mail = Read(*file);
    if (mail.CommState != Stored(MailState::CameBack))
        return false;
    mail.CommState = Stored(MailState::Empty);
    state_.MailBox = mail;
    return FixedRecordFile<CommRecord>(*file).Write(1, mail) && file->Flush();
}

void Mailbox::TakeUpRecord()
{
    const auto path = RecordFile(state_.Folders, state_.MailBox.CommFile.Text());
    auto file = path ? open_(*path, OpenMode::ReadWrite) : nullptr;
    if (!file)
        return;
    RecordHeader header;
    FixedRecordFile<RecordHeader> record(*file);
    record.ReadInto(1, header);
    header.Doctor.Set(centre);
    if (record.Write(1, header))
        file->Flush();
    file = nullptr;
    MarkRecordInReview(header);
    messages_.Tell("[" + header.Name.Text() + cameBack.In(state_.SysInfo), labels::Program.In(state_.SysInfo));
}

// The header of a record in review is written back when its window closes, and must not bring back the former doctor,
// nor undo what the centre has written. View and scale stay those of the review.
void Mailbox::MarkRecordInReview(const RecordHeader& header)
{
    const bool sameFile = state_.Folders.File(state_.RecordPath) == state_.Folders.File(state_.MailBox.CommFile.Text());
    RecordHeader& inReview = state_.CurrentHeader;
    if (!sameFile || inReview.ExamTime != header.ExamTime)
        return;
    inReview.Doctor = header.Doctor;
    inReview.DoctorNote = header.DoctorNote;
    inReview.EventPos = header.EventPos;
    inReview.EventText = header.EventText;
}

}  // namespace ecg
