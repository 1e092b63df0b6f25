// Deleting, moving and renumbering patients; after a crash at any step nobody and no record is lost.
#include "PatientFixture.h"
#include "patients/PatientMoves.h"
#include "patients/PatientRemoval.h"
#include "patients/RecordHeaderFile.h"
#include "support/CrashingFileSystem.h"

namespace ecg {
namespace {

using Texts = std::vector<std::string>;

const RowProgress NoProgress = [](std::int32_t, std::int32_t) {};

class PatientChangesTest : public PatientTest {
protected:
    // "number: its files" of each live patient after a restart.
    Texts Listed()
    {
        Texts texts;
        const auto database = Restarted();
        for (const std::string& number : Column(database->Patients, 0)) {
            texts.push_back(number + ":");
            for (const std::string& file : database->Folders.Files(number))
                texts.back() += " " + FileBytes(Path(number) / file);
        }
        return texts;
    }

    // The data folder as it stood when this was made; put back before each crash.
    void Remember() { std::filesystem::copy(Data(), Kept(), std::filesystem::copy_options::recursive); }
    void PutBack()
    {
        std::filesystem::remove_all(Data());
        std::filesystem::copy(Kept(), Data(), std::filesystem::copy_options::recursive);
    }

    // Runs `change` again and again, crashing one step later each time, until it comes to its end. `check` looks at the
    // folder that each crash left.
    template <class Change, class Check>
    void CrashAtEveryStep(Change change, Check check)
    {
        Remember();
        for (int steps = 0;; ++steps) {
            SCOPED_TRACE("crash at step " + std::to_string(steps));
            PutBack();
            CrashingFileSystem crashing(1000);
            AboutPat database(state_, crashing, clock_);
            database.Activate(NoProgress);
            crashing.DieAfter(steps);
            change(database);
            check();
            if (!crashing.Dead())
                return;
        }
    }

    std::filesystem::path Kept() const { return folder_.Paths().Program / "kept"; }
};

TEST_F(PatientChangesTest, ASelectionIsTheSameUpwardAndDownwardAndPassesOverHiddenRows)
{
    PutPatients(6);
    const auto database = Restarted();
    database->Patients.Show(2, false);
    EXPECT_EQ(RowsBetween(database->Patients, 1, 4), (std::vector{1, 3, 4}));
    EXPECT_EQ(RowsBetween(database->Patients, 4, 1), (std::vector{1, 3, 4}));
    EXPECT_EQ(RowsBetween(database->Patients, -7, 99), (std::vector{0, 1, 3, 4, 5}));
}

TEST_F(PatientChangesTest, DeletingTakesFolderSlotAndRowAndSelectsTheNext)
{
    PutPatients(4);
    PutFile("000000002", "a.W");
    PutFile("000000004", "d.W");
    const auto database = Restarted();
    database->Patients.Sort(0, false);
    database->Patients.Sort(0, false);  // 4 3 2 1
    const Removal removal = RemovePatients(*database, RowsBetween(database->Patients, 1, 2), NoProgress);
    EXPECT_EQ(removal.Outcome, Removal::End::Done);
    EXPECT_EQ(removal.Removed, 2);
    EXPECT_EQ(Column(database->Patients, 0), (Texts{"000000004", "000000001"}));
    EXPECT_EQ(state_.CurrentPatient.No.Text(), "1");
    EXPECT_FALSE(IsFolder(Path("000000002")));
    EXPECT_TRUE(file_.Read(2)->No.IsBlank() && file_.Read(3)->No.IsBlank());

    RemovePatients(*database, {0, 1}, NoProgress);
    EXPECT_EQ(database->Patients.RowCount() + database->Records.RowCount(), 0);
    EXPECT_EQ(database->SelectedRow(), NoRow);
    EXPECT_TRUE(state_.CurrentPatient.No.IsBlank());
    EXPECT_EQ(Listed(), Texts{});
}

TEST_F(PatientChangesTest, ACrashWhileDeletingTouchesNobodyElse)
{
    PutPatients(3);
    PutFile("000000001", "a.W", "a");
    PutFile("000000002", "b.W", "b");
    PutFile("000000002", "c.W", "c");
    CrashAtEveryStep([](AboutPat& database) { RemovePatients(database, {1}, NoProgress); },
                     [&] {
                         const Texts left = Listed();
                         EXPECT_EQ(left.front(), "000000001: a");
                         EXPECT_EQ(left.back(), "000000003:");
                         const bool lives = left.size() == 3;
                         EXPECT_TRUE(lives || CountFiles(Path("000000002")) == 0) << "records of nobody";
                         EXPECT_TRUE(!lives || IsFolder(Path("000000002"))) << "a number in use that counts as free";
                     });
    EXPECT_EQ(Listed(), (Texts{"000000001: a", "000000003:"}));
}

TEST_F(PatientChangesTest, AllRecordsGoOverToTheOtherPatientAndNoneIsWrittenOver)
{
    PutPatients(3);
    PutFile("000000001", "20260101000059.W", "old");
    PutFile("000000001", "20260101000100.F", "f");
    PutFile("000000003", "20260101000059.W", "kept");
    const auto database = Restarted();
    ASSERT_TRUE(MovePatientRecords(*database, 2));
    EXPECT_EQ(Column(database->Patients, 0), (Texts{"000000002", "000000003"}));
    EXPECT_EQ(database->Patients.Text(1, 6, false), "3");
    EXPECT_EQ(database->SelectedRow(), 1);
    EXPECT_TRUE(state_.CurrentPatient.No.IsBlank());
    EXPECT_FALSE(IsFolder(Path("000000001")));
    EXPECT_EQ(Listed(), (Texts{"000000002:", "000000003: kept old f"}));
    EXPECT_FALSE(MovePatientRecords(*database, 1) || MovePatientRecords(*database, 7));
}

TEST_F(PatientChangesTest, ACrashWhileMovingRecordsLosesNone)
{
    PutPatients(2);
    PutFile("000000001", "a.W", "a");
    PutFile("000000001", "b.W", "b");
    PutFile("000000002", "a.W", "c");
    const auto count = [&] {
        std::string all;
        for (const std::string& patient : Listed())
            all += patient;
        return std::count_if(all.begin(), all.end(), [](char c) { return c >= 'a' && c <= 'c'; });
    };
    CrashAtEveryStep([](AboutPat& database) { MovePatientRecords(database, 1); },
                     [&] {
                         EXPECT_EQ(count(), 3);
                         EXPECT_TRUE(Listed().size() == 1 || IsFolder(Path("000000001")));
                     });
    EXPECT_EQ(Listed(), Texts{"000000002: a c b"});
}

TEST_F(PatientChangesTest, ANewNumberTakesTheFolderAlong)
{
    PutPatients(2);
    PutFile("000000001", "a.W", "a");
    PutFile("000000008", "left.W", "left");
    const auto database = Restarted();
    ASSERT_TRUE(RenumberPatient(*database, Patient("x7", "甲")));
    EXPECT_EQ(Column(database->Patients, 0), (Texts{"x7", "000000002"}));
    EXPECT_EQ(database->Records.RowCount(), 1);
    EXPECT_EQ(state_.CurrentPatient.Name.Text(), "甲");
    ASSERT_TRUE(RenumberPatient(*database, Patient("X7", "乙")));  // another case: the folder follows it
    EXPECT_EQ(Listed(), (Texts{"X7: a", "000000002:"}));
    ASSERT_TRUE(RenumberPatient(*database, Patient("8", "丙")));  // a folder without a patient
    EXPECT_EQ(Listed(), (Texts{"000000008: a left", "000000002:"}));
    WriteBytes(Path("Comm.dat"), "a file");
    EXPECT_FALSE(RenumberPatient(*database, Patient("Comm.dat")));
    EXPECT_EQ(Listed(), (Texts{"000000008: a left", "000000002:"}));
}

TEST_F(PatientChangesTest, ACrashWhileTheNumberChangesLosesNobody)
{
    PutPatients(2);
    PutFile("000000001", "a.W", "a");
    PutFile("000000001", "b.W", "b");
    for (const bool folderExists : {false, true}) {
        if (folderExists)
            PutFile("000000009", "c.W", "c");
        const std::string taken = folderExists ? " c" : "";
        CrashAtEveryStep([](AboutPat& database) { RenumberPatient(database, Patient("9")); },
                         [&] {
                             const std::string patient = Listed().front();
                             EXPECT_TRUE(patient == "000000001: a b" || patient == "000000009: a b" + taken) << patient;
                             EXPECT_FALSE(IsFile(Path(PatientMoveFileName)));
                         });
        EXPECT_EQ(Listed().front(), "000000009: a b" + taken);
        PutBack();
        std::filesystem::remove_all(Kept());
    }
}

TEST_F(PatientChangesTest, ADamagedNoteOfANewNumberIsThrownAway)
{
    PutPatients(2);
    for (const std::string& note :
         {std::string(), std::string(100, 'x'), std::string(251, '\0'), std::string(251, '\xFF'),
          std::string("\2\0\0\0", 4) + "5        " + std::string(238, ' ')}) {
        WriteBytes(Path(PatientMoveFileName), note);
        EXPECT_EQ(Listed(), (Texts{"000000001:", "000000002:"})) << note.size();
        EXPECT_FALSE(IsFile(Path(PatientMoveFileName)));
    }
}

TEST_F(PatientChangesTest, AHeaderIsRewrittenWithoutTouchingAnythingElse)
{
    PutFile("1", "r.W", std::string(5000, '\x41'));
    const auto record = Path("1") / "r.W";
    auto header = ReadRecordHeader(disk_, record);
    ASSERT_TRUE(header);
    header->Department.Set("心内科");
    header->Bed.Set("7");
    ASSERT_TRUE(WriteRecordHeader(disk_, record, *header));
    std::string expected(5000, '\x41');
    expected.replace(14, 36, "\xD0\xC4\xC4\xDA\xBF\xC6" + std::string(18, ' ') + "7" + std::string(11, ' '));
    EXPECT_EQ(FileBytes(record), expected);
    PutFile("1", "short", "x");
    EXPECT_FALSE(ReadRecordHeader(disk_, Path("1") / "short"));
    EXPECT_FALSE(WriteRecordHeader(disk_, Path("1") / "short", {}) || WriteRecordHeader(disk_, Path("none"), {}));
    EXPECT_EQ(FileBytes(Path("1") / "short"), "x");
    EXPECT_FALSE(IsFile(Path("none")));
}

}  // namespace
}  // namespace ecg
