// The rows of both grids as they are shown, and how they sort.
#include "PatientFixture.h"
#include "patients/PatientDetails.h"

namespace ecg {
namespace {

using Texts = std::vector<std::string>;

using GridsTest = PatientTest;

TEST_F(GridsTest, APatientIsShownInEightColumns)
{
    PatientRecord patient = Patient("12", "张三", "1990");
    patient.Sex = 1;
    patient.Height = 168;
    PatientTable table;
    table.Append(*MakePatientRow(patient, 7, 3, 2026));
    const auto cells = [&](bool chinese) {
        Texts texts;
        for (int column = -1; column <= PatientColumnCount; ++column)
            texts.push_back(table.Text(0, column, chinese));
        return texts;
    };
    EXPECT_EQ(cells(true), (Texts{"", "000000012", "张三", "女", "36", "168", "0", "3", "7", ""}));
    EXPECT_EQ(cells(false)[3], "Female");
    EXPECT_EQ(table.Text(1, 0, true), "");
    EXPECT_FALSE(MakePatientRow(Patient("  "), 1, 0, 2026));
}

TEST_F(GridsTest, AnAgeIsShownFromZeroToAHundredYears)
{
    const std::pair<const char*, const char*> ages[]{{"2026", "0"}, {"1926", "100"}, {"1925", ""}, {"2027", ""},
                                                     {"0", ""},     {"", ""},        {"19x0", ""}, {"-1", ""}};
    for (const auto& [year, age] : ages) {
        PatientTable table;
        table.Append(*MakePatientRow(Patient("1", "", year), 1, 0, 2026));
        EXPECT_EQ(table.Text(0, 3, false), age) << year;
        EXPECT_EQ(DetailsOf(Patient("1", "", year), 2026, false).Texts[3], *age ? std::string(age) + " Years" : "")
            << year;
    }
}

TEST_F(GridsTest, SortingAlternatesAndKeepsThePositionWithItsRow)
{
    for (const char* number : {"30", "RUVO00001", "4", "ruvo00000"})
        file_.Append(Patient(number, number[0] == '3' ? "赵" : number[0] == '4' ? "陈" : ""));
    const auto database = Restarted();
    PatientTable& table = database->Patients;
    table.Sort(0, false);
    EXPECT_EQ(Column(table, 0), (Texts{"000000004", "000000030", "ruvo00000", "RUVO00001"}));
    EXPECT_EQ(Column(table, 7), (Texts{"3", "1", "4", "2"}));
    table.Sort(0, false);
    EXPECT_EQ(Column(table, 7), (Texts{"2", "4", "1", "3"}));
    table.Sort(1, false);  // empty names first, then by pronunciation: Chen, Zhao
    EXPECT_EQ(Column(table, 7), (Texts{"2", "4", "3", "1"}));
    table.Sort(7, false);  // no header
    EXPECT_EQ(Column(table, 7), (Texts{"2", "4", "3", "1"}));
}

TEST_F(GridsTest, NumbersSortByValueAndRowsAreFoundByThem)
{
    for (const Byte height : {Byte{100}, Byte{0}, Byte{99}}) {
        PatientRecord patient = Patient(std::to_string(height + 1));
        patient.Height = height;
        file_.Append(patient);
    }
    const auto database = Restarted();
    EXPECT_EQ(database->Patients.LargestNumber(), 101);
    database->Patients.Sort(4, false);
    EXPECT_EQ(Column(database->Patients, 4), (Texts{"0", "99", "100"}));
    EXPECT_EQ(database->Patients.FindNumber("0100"), 1);
    EXPECT_EQ(database->Patients.FindNumber("7"), NoRow);
    EXPECT_EQ(database->Patients.FindPosition(1), 2);
}

TEST_F(GridsTest, ARecordIsShownInTenColumns)
{
    RecordHeader header;
    header.ExamTime.Set("20260309080507");
    header.Department.Set("内科");
    header.Bed.Set("12");
    header.DoctorNote[0].Set("窦性心律");
    header.EventPos = {400, 500, 0, 600};
    PutFile("000000001", "20260309080506.F", BytesOf<RecordHeader>({header}) + std::string(4 + 16 * 500 * 3725, '\0'));
    RecordTable table;
    table.Load(Path("000000001"));
    Texts cells;
    for (int column = -1; column <= RecordColumnCount; ++column)
        cells.push_back(table.Text(0, column));
    EXPECT_EQ(cells, (Texts{"", "2026-03-09 08:05 06", "2026-03-09 08:05:07", "01:02:05", "F", "2", "内科", "12",
                            "窦性心律", "3725", "20260309080506.F", ""}));
    EXPECT_EQ(table.StoredPath(0, "000000001"), "\\000000001\\20260309080506.F");
    EXPECT_EQ(table.StoredPath(1, "000000001"), "");
    header.EventPos.fill(300);
    EXPECT_EQ(EventCount(header), 46);
}

TEST_F(GridsTest, AnyFileGivesARow)
{
    PutFile("7", "a", "");
    PutFile("7", "20260101000000.W", std::string(sizeof(RecordHeader), '\0'));
    PutFile("7", "心电图记录文件名.W", std::string(sizeof(RecordHeader) - 1, '\xFF'));
    PutFile("7", std::string(200, 'x'), std::string(9000, '\xFF'));
    std::filesystem::create_directory(Path("7") / "folder");
    RecordTable table;
    table.Load(Path("7"));
    ASSERT_EQ(table.RowCount(), 4);
    EXPECT_EQ(Column(table, 2), (Texts{"00:00:00", "-00:00:01", "00:00:01", "00:00:00"}));
    EXPECT_EQ(Column(table, 3), (Texts{"W", "a", "x", "W"}));
    EXPECT_EQ(Column(table, 4), (Texts{"0", "0", "46", "0"}));
    EXPECT_EQ(Column(table, 7)[0], "");
    EXPECT_EQ(table.StoredPath(1, "7"), "");
    table.Load(Path("nowhere"));
    EXPECT_EQ(table.RowCount(), 0);
}

TEST_F(GridsTest, RecordsSortByTheTimeOfTheNameAndByTheSecondsOfThePeriod)
{
    for (const auto& [name, seconds] :
         {std::pair("20260101000001.W", 100), {"20260101000002.F", 9}, {"20260101000003.W", 20}})
        PutFile("1", name, std::string(sizeof(RecordHeader) + 8000U * static_cast<unsigned>(seconds), ' '));
    RecordTable table;
    table.Load(Path("1"));
    table.Sort(2);
    EXPECT_EQ(Column(table, 8), (Texts{"9", "20", "100"}));
    table.Sort(1);
    EXPECT_EQ(Column(table, 8), (Texts{"20", "9", "100"}));
    table.Sort(3);
    EXPECT_EQ(Column(table, 3), (Texts{"F", "W", "W"}));
    EXPECT_EQ(table.FindFile("20260101000003.W"), 1);
}

}  // namespace
}  // namespace ecg
