#include "benchmarks/support/PatientDatabase.h"

#include <array>
#include <fstream>
#include <string>

namespace ecg::bench {
namespace {

PatientRecord PatientOf(int n)
{
    constexpr std::array<const char*, 11> surnames{"王", "李", "张",   "刘",   "陈", "杨",
                                                   "赵", "黄", "欧阳", "司马", "Li "};
    constexpr std::array<const char*, 13> given{"伟", "芳", "秀英", "娜",   "敏", "静", "建国",
                                                "强", "磊", "洋",   "艳 A", "勇", "杰"};
    const auto i = static_cast<std::size_t>(n);
    PatientRecord patient;
    patient.No.Set(std::to_string((static_cast<std::int64_t>(n) * 7919) % PatientsInDatabase + 1));  // all different
    patient.Name.Set(std::string(surnames[i % surnames.size()]) + given[i % given.size()]);
    patient.Sex = static_cast<Byte>(n % 2);
    patient.BirthYear.Set(std::to_string(1930 + n % 90));
    patient.Height = static_cast<Byte>(150 + n % 50);
    patient.Weight = static_cast<Byte>(45 + n % 60);
    patient.Flags[i % patient.Flags.size()] = 1;
    return patient;
}

}  // namespace

PatientDatabase& PatientDatabase::Instance()
{
    static PatientDatabase database;
    return database;
}

PatientDatabase::PatientDatabase()
{
    state_.Folders = folder_.Paths();
    // Only the names of records are looked at. Links to a few files are made quicker than as many files.
    constexpr int linksOfFile = 50'000;
    PatientFolders folders(disk_, state_.Folders.Data);
    std::filesystem::path file;
    for (int n = 0; n < PatientsInDatabase; ++n) {
        if (n * RecordsOfPatient % linksOfFile == 0)
            std::ofstream(file = state_.Folders.Program / std::to_string(n));
        const std::string number = PatientOf(n).No.Text();
        folders.Make(number);
        for (int record = 0; record < RecordsOfPatient; ++record)
            std::filesystem::create_hard_link(file, folders.PathOf(number) /
                                                        ("2026010100000" + std::to_string(record) + ".W"));
    }
}

void PatientDatabase::WritePatients(int deleted)
{
    std::string bytes;
    for (int n = 0; n < PatientsInDatabase; ++n) {
        const PatientRecord patient = PatientOf(n);
        bytes.append(reinterpret_cast<const char*>(&patient), sizeof patient);
        if (n < deleted)
            bytes.append(sizeof patient, ' ');
    }
    std::ofstream(state_.Folders.Data / PatientFileName, std::ios::binary) << bytes;
}

}  // namespace ecg::bench
