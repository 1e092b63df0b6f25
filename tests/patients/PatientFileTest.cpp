// The patient file slot by slot, its compaction, and that a crash at any step of it loses nobody.
#include "patients/PatientFile.h"

#include "PatientFixture.h"
#include "support/CrashingFileSystem.h"
#include "support/FailingFile.h"

namespace ecg {
namespace {

constexpr std::size_t slotBytes = 238;

using Numbers = std::vector<std::string>;
using Positions = std::vector<std::int32_t>;

Numbers NumbersOf(const std::vector<StoredPatient>& patients)
{
    Numbers numbers;
    for (const StoredPatient& patient : patients)
        numbers.push_back(patient.Record.No.Text());
    return numbers;
}

Positions PositionsOf(const std::vector<StoredPatient>& patients)
{
    Positions positions;
    for (const StoredPatient& patient : patients)
        positions.push_back(patient.Position);
    return positions;
}

class PatientFileTest : public PatientTest {
protected:
    // Patients 1 to `count`, of whom every third from the first on is deleted.
    void FillWithGaps(int count)
    {
        PutPatients(count);
        std::vector<std::int32_t> gaps;
        for (int i = 1; i <= count; i += 3)
            gaps.push_back(i);
        EXPECT_TRUE(file_.Delete(gaps));
    }
};

TEST_F(PatientFileTest, AppendsReadsAndRewritesSlots)
{
    EXPECT_EQ(file_.Count(), 0);
    EXPECT_EQ(file_.Append(Patient("5", "李四")), 1);
    EXPECT_EQ(file_.Append(Patient("RUVO00000")), 2);
    EXPECT_EQ(std::filesystem::file_size(Path(PatientFileName)), 2 * slotBytes);
    EXPECT_EQ(FileBytes(Path(PatientFileName)).substr(0, 14), "5        \xC0\xEE\xCB\xC4 ");
    EXPECT_TRUE(file_.Write(2, Patient("6")));
    EXPECT_EQ(file_.Read(1)->Name.Text(), "李四");
    EXPECT_EQ(file_.Read(2)->No.Text(), "6");
    EXPECT_FALSE(file_.Read(0) || file_.Read(-1) || file_.Read(3));
    EXPECT_FALSE(file_.Write(3, Patient("7")) || file_.Write(0, Patient("7")) || file_.Delete(Positions{3}));
    EXPECT_EQ(file_.Count(), 2);
}

TEST_F(PatientFileTest, ACutRecordCountsWhenMoreThanHalfOfItIsThere)
{
    const PatientRecord patient = Patient("8");
    const std::string bytes(reinterpret_cast<const char*>(&patient), slotBytes);
    for (const auto& [cut, count] : {std::pair(119U, 2), {118U, 2}, {120U, 3}, {237U, 3}, {0U, 2}, {1U, 2}}) {
        WriteBytes(Path(PatientFileName), bytes + bytes + bytes.substr(0, cut));
        EXPECT_EQ(file_.Count(), count) << cut;
        EXPECT_EQ(file_.Read(3).has_value(), count == 3) << cut;
        EXPECT_EQ(file_.Append(Patient("9")), count + 1) << cut;
        EXPECT_EQ(file_.Read(count + 1)->No.Text(), "9") << cut;
    }
}

TEST_F(PatientFileTest, NoPieceOfAPatientIsLeftWhenTheDiskIsFull)
{
    FailingDevice device;
    DiskFileSystem fullDisk(device.Opener());
    PatientFile file(fullDisk, Data());
    for (const bool first : {true, false}) {
        for (const std::int64_t room : {0, 100, 237}) {
            device.BytesLeft = room;
            EXPECT_FALSE(file.Append(Patient("1")));
            EXPECT_EQ(IsFile(Path(PatientFileName)), !first);
            EXPECT_EQ(file.Count(), first ? 0 : 1) << room;
        }
        EXPECT_EQ(file_.Append(Patient("5")), first ? 1 : 2);
    }
}

TEST_F(PatientFileTest, CompactionClosesTheGapsAndKeepsTheOrder)
{
    EXPECT_TRUE(file_.Compact().empty());
    EXPECT_TRUE(IsFile(Path(PatientFileName)));
    FillWithGaps(10);
    EXPECT_EQ(file_.Count(), 10);
    EXPECT_TRUE(file_.Read(1)->No.IsBlank());
    EXPECT_EQ(file_.Read(1)->Name.Text(), "name 1") << "a deleted slot keeps all but its number";
    EXPECT_EQ(PositionsOf(file_.ReadLive()), (Positions{2, 3, 5, 6, 8, 9}));
    PatientRecord nul = Patient("");
    std::fill_n(reinterpret_cast<char*>(&nul), 9, '\0');
    file_.Append(nul);
    const auto live = file_.Compact();
    EXPECT_EQ(NumbersOf(live), (Numbers{"2", "3", "5", "6", "8", "9"}));
    EXPECT_EQ(PositionsOf(live), (Positions{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(std::filesystem::file_size(Path(PatientFileName)), 6 * slotBytes);
    EXPECT_EQ(file_.Read(4)->No.Text(), "6");
    EXPECT_FALSE(IsFile(Path(PatientTempFileName)));
}

TEST_F(PatientFileTest, AStaleCopyIsClearedAwayAndALoneOneIsTakenIn)
{
    FillWithGaps(2);
    const std::string patients = FileBytes(Path(PatientFileName));
    WriteBytes(Path(PatientTempFileName), std::string(5000, 'z'));
    EXPECT_EQ(NumbersOf(file_.Compact()), Numbers{"2"});
    EXPECT_FALSE(IsFile(Path(PatientTempFileName)));

    for (const bool emptyFile : {false, true}) {
        std::filesystem::remove(Path(PatientFileName));
        if (emptyFile)
            WriteBytes(Path(PatientFileName), "");
        WriteBytes(Path(PatientTempFileName), patients);
        EXPECT_EQ(NumbersOf(file_.Compact()), Numbers{"2"}) << emptyFile;
        EXPECT_FALSE(IsFile(Path(PatientTempFileName))) << emptyFile;
    }
}

TEST_F(PatientFileTest, WithoutRoomForTheCopyThePatientsStayWhereTheyAre)
{
    FillWithGaps(4);
    std::filesystem::create_directories(Path(PatientTempFileName) / "in the way");
    EXPECT_EQ(PositionsOf(file_.Compact()), (Positions{2, 3}));
    EXPECT_EQ(file_.Count(), 4);
}

TEST_F(PatientFileTest, ACrashAtAnyStepOfCompactionLosesNobody)
{
    FillWithGaps(20);
    WriteBytes(Path(PatientTempFileName), std::string(7000, 'z'));
    const std::string before = FileBytes(Path(PatientFileName));
    const auto survivors = NumbersOf(file_.ReadLive());
    int steps = 0;
    for (bool finished = false; !finished; ++steps) {
        WriteBytes(Path(PatientFileName), before);
        WriteBytes(Path(PatientTempFileName), std::string(7000, 'z'));
        CrashingFileSystem crashing(steps);
        PatientFile(crashing, Data()).Compact();
        finished = !crashing.Dead();
        EXPECT_EQ(NumbersOf(file_.Compact()), survivors) << "crash at step " << steps;
        EXPECT_EQ(file_.Count(), std::ssize(survivors)) << "crash at step " << steps;
        EXPECT_FALSE(IsFile(Path(PatientTempFileName))) << "crash at step " << steps;
    }
    EXPECT_EQ(steps, 6);  // remove the old copy, make, write, flush, rename; and once with no crash
}

}  // namespace
}  // namespace ecg
