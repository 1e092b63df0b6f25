// Both sides of the mailbox: this program's own, and what a transfer program leaves in the file.
#include "core/Mailbox.h"

#include "core/formats/FixedRecordFile.h"
#include "support/FailingFile.h"
#include "support/FileBytes.h"
#include "support/ScriptedMessageBox.h"
#include "support/TemporaryDataFolder.h"

#include <cstring>
#include <gmock/gmock.h>

namespace ecg {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::FieldsAre;

class MailboxTest : public testing::Test {
protected:
    MailboxTest()
    {
        State.Folders = Folder.Paths();
        State.SysInfo.Language = ChineseLanguage;
        State.SysInfo.HospitalName.Set("市立医院");
        State.RecordPath = "0001\\20260309080507.W";
        State.BlockStart = 4321;
        std::filesystem::create_directory(Folder.File("0001"));
    }

    CommRecord Stored() const
    {
        CommRecord mail;
        const std::string bytes = FileBytes(MailFile());
        EXPECT_EQ(bytes.size(), sizeof mail);
        std::memcpy(&mail, bytes.data(), std::min(bytes.size(), sizeof mail));
        return mail;
    }

    // As the transfer program leaves it.
    void Leave(Byte state, const std::string& record = "0001\\20260309080507.W")
    {
        CommRecord mail;
        mail.CommState = state;
        mail.CommFile.Set(record);
        mail.CommBeat = 7;
        ReplaceFile(MailFile(), std::as_bytes(std::span(&mail, 1)));
    }

    // A record of one sample.
    void MakeRecord(const std::filesystem::path& path)
    {
        RecordHeader header;
        header.ExamTime.Set("20260309080507");
        header.Name.Set("王芳");
        header.Doctor.Set("李医生");
        std::string bytes = BytesOf<RecordHeader>({header});
        bytes.resize(300 * 16, 's');
        ReplaceFile(path, std::as_bytes(std::span(bytes)));
    }

    RecordHeader HeaderOf(const std::filesystem::path& path)
    {
        const auto file = OpenFile(path, OpenMode::Read);
        return file ? FixedRecordFile<RecordHeader>(*file).Read(1).value_or(RecordHeader{}) : RecordHeader{};
    }

    std::filesystem::path MailFile() const { return Folder.File("Comm.dat"); }

    TemporaryDataFolder Folder;
    SharedState State;
    ScriptedMessageBox Messages;
    FailingDevice Device;
    Mailbox Box{State, Messages, Device.Opener()};
    const std::filesystem::path Record = Folder.File("0001") / "20260309080507.W";
};

TEST_F(MailboxTest, PostsTheRecordInReviewWithItsViewAndBeat)
{
    MeasuredParams params;
    params.HeartRate = 75;
    params.Axis = 43;
    EXPECT_EQ(Box.PostToMailbox(3, params), PostOutcome::Posted);
    const CommRecord mail = Stored();
    EXPECT_THAT(std::tuple(mail.CommState, mail.CommStart, mail.CommBeat), FieldsAre(1, 4321, 3));
    EXPECT_EQ(mail.CommFile.Text(), "0001\\20260309080507.W");
    EXPECT_EQ(mail.CommParams.HeartRate, 75);
    EXPECT_EQ(mail.CommParams.Axis, 43);
    EXPECT_EQ(mail.CommHospital.Text(), "市立医院");
    EXPECT_TRUE(Messages.Shown.empty());
}

TEST_F(MailboxTest, AsksBeforeItReplacesARecordThatStillWaits)
{
    for (const auto state : std::initializer_list<Byte>{0, 2, 3}) {
        Leave(state);
        EXPECT_EQ(Box.PostToMailbox(0, {}), PostOutcome::Posted);
    }
    EXPECT_TRUE(Messages.Shown.empty());
    for (const bool yes : {false, true}) {
        Leave(1);
        Messages.Answer = yes;
        EXPECT_EQ(Box.PostToMailbox(3, {}), yes ? PostOutcome::Posted : PostOutcome::Kept);
        EXPECT_EQ(Stored().CommBeat, yes ? 3 : 7);
        EXPECT_EQ(Messages.Shown.back().Text, "上次数据还没有被取走，继续吗？");
        EXPECT_EQ(Messages.Shown.back().Buttons, MessageButtons::YesNo);
    }
    Device.BytesLeft = 100;
    EXPECT_EQ(Box.PostToMailbox(3, {}), PostOutcome::NotWritten);
}

TEST_F(MailboxTest, TellsOnceOfARecordThatCameBackAndMakesTheCentreItsDoctor)
{
    MakeRecord(Record);
    State.CurrentHeader = HeaderOf(Record);
    State.CurrentHeader.GainIndex = 2;  // changed in a review that is still open
    RecordHeader fromCentre = HeaderOf(Record);
    fromCentre.DoctorNote[1].Set("窦性心律");
    fromCentre.EventPos[0] = 700;
    fromCentre.EventText[0].Set("早搏");
    const auto file = OpenFile(Record, OpenMode::ReadWrite);
    ASSERT_TRUE(FixedRecordFile<RecordHeader>(*file).Write(1, fromCentre));
    Leave(2);
    Box.Poll();
    Box.Poll();
    EXPECT_THAT(Messages.Shown,
                ElementsAre(Field(&ScriptedMessageBox::Message::Text, "[王芳] 的心电图文件已经传回，请查阅")));
    EXPECT_EQ(Stored().CommState, 0);
    EXPECT_EQ(Stored().CommBeat, 7);
    EXPECT_EQ(HeaderOf(Record).Doctor.Text(), "中心");
    EXPECT_EQ(HeaderOf(Record).Name.Text(), "王芳");
    EXPECT_EQ(FileBytes(Record).substr(4780), std::string(20, 's'));
    EXPECT_EQ(State.CurrentHeader.Doctor.Text(), "中心") << "the review will write its header back";
    EXPECT_EQ(State.CurrentHeader.DoctorNote[1].Text(), "窦性心律");
    EXPECT_EQ(State.CurrentHeader.EventPos[0], 700);
    EXPECT_EQ(State.CurrentHeader.EventText[0].Text(), "早搏");
    EXPECT_EQ(State.CurrentHeader.GainIndex, 2);

    State.CurrentHeader.ExamTime.Set("20260310101010");  // the next examination, not written yet
    State.CurrentHeader.Doctor.Set("李医生");
    Leave(2);
    Box.Poll();
    EXPECT_EQ(State.CurrentHeader.Doctor.Text(), "李医生");
}

TEST_F(MailboxTest, HasNothingToTellOfAnyOtherFileAndMakesARecordThatDoesNotExist)
{
    Box.Poll();
    EXPECT_EQ(FileBytes(MailFile()), "");
    EXPECT_TRUE(std::filesystem::exists(MailFile())) << "looking makes it, for the transfer program to find";
    for (const auto state : std::initializer_list<Byte>{0, 1, 3, 255}) {
        Leave(state);
        Box.Poll();
        EXPECT_EQ(Stored().CommState, state);
    }
    Leave(2);
    std::filesystem::resize_file(MailFile(), sizeof(CommRecord) - 1);  // cut
    Box.Poll();
    EXPECT_TRUE(Messages.Shown.empty());
    EXPECT_FALSE(std::filesystem::exists(Record));

    Leave(2);
    Box.Poll();
    EXPECT_EQ(FileBytes(Record).size(), sizeof(RecordHeader)) << "a header and no samples";
    EXPECT_EQ(HeaderOf(Record).Doctor.Text(), "中心");
    ASSERT_EQ(Messages.Shown.size(), 1U);
    EXPECT_EQ(Messages.Shown[0].Text, "[] 的心电图文件已经传回，请查阅");
}

TEST_F(MailboxTest, TouchesNoFileButARecordOfTheDataFolder)
{
    namespace fs = std::filesystem;
    const fs::path outside = State.Folders.Program / "outside";
    fs::create_directory(outside);
    MakeRecord(outside / "a.W");
    MakeRecord(Folder.File("Patient.lib"));
    fs::create_directory_symlink(outside, Folder.File("link"));
    fs::create_symlink(outside / "new.W", Folder.File("new.W"));
    Leave(0);
    auto before = FolderContent(State.Folders.Program);
    for (const std::string& name :
         {std::string("..\\outside\\a.W"), std::string("0001\\..\\..\\outside\\a.W"), (outside / "a.W").string(),
          std::string("link\\a.W"), std::string("new.W"), std::string("Patient.lib"), std::string("Comm.dat"),
          std::string("Patient.lib\0.W", 14), std::string("no folder\\a.W"), std::string("0001"), std::string()}) {
        Leave(2, name);
        Box.Poll();
        Leave(0);
        EXPECT_EQ(FolderContent(State.Folders.Program), before) << name;
    }
    EXPECT_TRUE(Messages.Shown.empty());
}

TEST_F(MailboxTest, LeavesTheMailWhereItCannotBeTakenAndSaysNothing)
{
    MakeRecord(Record);
    Leave(2);
    Device.BytesLeft = 0;
    Box.Poll();
    Device.Opens = false;
    Box.Poll();
    EXPECT_TRUE(Messages.Shown.empty());
    EXPECT_EQ(Stored().CommState, 2);
    Device = {};
    Device.BytesLeft = sizeof(CommRecord);  // the record's header does not go onto the disk
    Box.Poll();
    EXPECT_EQ(Messages.Shown.size(), 1U);
    EXPECT_EQ(HeaderOf(Record).Doctor.Text(), "李医生");
}

// The timer goes on below the message.
TEST_F(MailboxTest, ShowsNoMessageOverItsOwn)
{
    Messages.OnShow = [this] {
        Leave(2);
        Box.Poll();
    };
    Leave(2);
    Box.Poll();
    EXPECT_EQ(Messages.Shown.size(), 1U);
    EXPECT_EQ(Stored().CommState, 2) << "the next poll takes it";
}

}  // namespace
}  // namespace ecg
