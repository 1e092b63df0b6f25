// The database as a whole: first activation, selecting, quick patients.
#include "PatientFixture.h"
#include "support/CrashingFileSystem.h"

namespace ecg {
namespace {

using Texts = std::vector<std::string>;

using AboutPatTest = PatientTest;

TEST_F(AboutPatTest, TheFirstActivationCompactsAndCountsTheFilesOfEachFolder)
{
    PutPatients(250);
    file_.Delete(std::vector<std::int32_t>{1});
    PutFile("000000002", "20260101000000.W");
    PutFile("000000002", "20260101000001.F");
    std::filesystem::create_directories(Path("000000002") / "folder");
    std::filesystem::create_directories(Path("000000003"));
    AboutPat database(state_, disk_, clock_);
    std::vector<std::pair<int, int>> shown;
    database.Activate([&](int done, int all) { shown.emplace_back(done, all); });
    EXPECT_EQ(shown, (std::vector<std::pair<int, int>>{{100, 249}, {200, 249}}));
    EXPECT_EQ(database.Patients.RowCount(), 249);
    EXPECT_EQ(database.Patients.Text(0, 6, false) + database.Patients.Text(1, 6, false), "20");
    EXPECT_EQ(database.Patients.Text(0, 7, false), "1");
    EXPECT_EQ(database.SelectedRow(), 0);
    PutFile("000000003", "late.W");
    database.Activate([](int, int) { FAIL() << "activated twice"; });
    EXPECT_EQ(database.Patients.Text(1, 6, false), "0");
}

TEST_F(AboutPatTest, SelectingRefreshesTheCountMakesTheFolderAndListsTheRecords)
{
    file_.Append(Patient("5", "甲"));
    file_.Append(Patient("6", "乙"));
    const auto database = Restarted();
    PutFile("000000005", "20260101000000.W");
    EXPECT_TRUE(database->LoadSelectedPatient());
    EXPECT_EQ(state_.CurrentPatient.Name.Text(), "甲");
    EXPECT_EQ(database->Patients.Text(0, 6, false), "1");
    EXPECT_EQ(database->Records.RowCount(), 1);
    EXPECT_EQ(database->RecordFile(0), Path("000000005") / "20260101000000.W");

    database->Select(1);
    database->Select(2);
    EXPECT_TRUE(database->LoadReferencePatient());
    EXPECT_EQ(state_.ReferencePatient.Name.Text(), "乙");
    EXPECT_EQ(state_.CurrentPatient.Name.Text(), "甲");
    EXPECT_TRUE(IsFolder(Path("000000006")));
    EXPECT_EQ(database->Records.RowCount(), 0);

    std::filesystem::remove(Path(PatientFileName));
    EXPECT_FALSE(database->LoadSelectedPatient());
    EXPECT_EQ(state_.CurrentPatient.Name.Text(), "甲");
}

TEST_F(AboutPatTest, AQuickPatientTakesTheLowestNumberWithoutAFolder)
{
    for (const char* folder : {"RUVO00000", "ruvo00001", "RUVO00003"})
        std::filesystem::create_directories(Path(folder));
    const auto database = Restarted();
    EXPECT_TRUE(database->Folders.Exists("RUVO00001")) << "in whatever case";
    state_.CurrentPatient = Patient("9", "before");
    state_.CurrentPatient.Height = 180;
    ASSERT_TRUE(database->AddQuickPatient());
    ASSERT_TRUE(database->AddQuickPatient());
    EXPECT_EQ(Column(database->Patients, 0), (Texts{"RUVO00002", "RUVO00004"}));
    EXPECT_EQ(database->Patients.FindNumber("ruvo00004"), 1);
    EXPECT_EQ(database->SelectedRow(), 1);
    EXPECT_EQ(state_.CurrentPatient.No.Text(), "RUVO00004");
    EXPECT_EQ(state_.CurrentPatient.BirthYear.Text(), "0");
    EXPECT_EQ(state_.CurrentPatient.Height, 0);
    EXPECT_EQ(file_.Read(2)->No.Text(), "RUVO00004");
}

TEST_F(AboutPatTest, WithoutRoomOnTheDiskThereIsNoQuickPatient)
{
    for (int steps = 0; steps < 4; ++steps) {  // make the folder, make the file, write, flush
        CrashingFileSystem full(steps);
        AboutPat database(state_, full, clock_);
        state_.CurrentPatient = Patient("9");
        EXPECT_FALSE(database.AddQuickPatient()) << steps;
        EXPECT_EQ(database.Patients.RowCount(), 0) << steps;
        EXPECT_EQ(state_.CurrentPatient.No.Text(), "9") << steps;
        std::filesystem::remove(Path(PatientFileName));
        std::filesystem::remove(Path("RUVO00000"));
    }
}

}  // namespace
}  // namespace ecg
