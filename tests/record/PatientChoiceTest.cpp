// Which patient a number means, and which number a new one gets.
#include "record/PatientChoice.h"

#include "support/TemporaryDataFolder.h"

#include <gtest/gtest.h>

namespace ecg {
namespace {

class PatientChoiceTest : public testing::Test {
protected:
    void Add(const char* number, const char* name = "")
    {
        PatientRecord patient;
        patient.No.Set(number);
        patient.Name.Set(name);
        ASSERT_TRUE(Patients.Append(patient));
    }

    const TemporaryDataFolder Data;
    DiskFileSystem Disk;
    PatientFile Patients{Disk, Data.Paths().Data};
};

TEST_F(PatientChoiceTest, FindsANumberHoweverItIsWrittenAndRefusesWhatCannotBeOne)
{
    Add("4242", "another");
    Add("", "deleted");
    Add("0042", "first");
    Add("42", "second");
    for (const char* number : {"42", "000000042", "42  "})
        EXPECT_EQ(ChoosePatient(Patients, number)->Patient.Name.Text(), "first") << number;
    EXPECT_FALSE(ChoosePatient(Patients, "42")->IsNew);
    EXPECT_TRUE(ChoosePatient(Patients, "病7")->IsNew);
    for (const char* number : {"", "  ", "1234567890", "病历号码五", "\xF0\x9F\x92\x93"})
        EXPECT_FALSE(ChoosePatient(Patients, number)) << number;
}

TEST_F(PatientChoiceTest, NewNumbersHaveNeitherFolderNorPatient)
{
    const auto newNumber = [this] { return ChooseNewPatient(Patients, Data.Paths().Data)->Patient.No.Text(); };
    EXPECT_EQ(newNumber(), "RUVO00000");
    std::filesystem::create_directory(Data.File("RUVO00000"));
    std::filesystem::create_directory(Data.File("RUVO00002"));
    EXPECT_EQ(newNumber(), "RUVO00001");
    Add("ruvo00001");
    EXPECT_EQ(newNumber(), "RUVO00003");
}

}  // namespace
}  // namespace ecg
