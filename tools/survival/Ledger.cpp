#include "survival/Ledger.h"

#include "core/PatientNumber.h"
#include "patients/QuickPatient.h"
#include "platform/Clock.h"

#include <numeric>

namespace ecg {
namespace {

bool Same(const PatientRecord& one, const PatientRecord& other)
{
    const auto bytes = [](const PatientRecord& record) {
        return std::string_view(reinterpret_cast<const char*>(&record), sizeof record);
    };
    return bytes(one) == bytes(other);
}

void Compare(const std::string& number, const KeptPatient& wanted, const KeptPatient& found, Words& faults)
{
    if (!Same(wanted.Record, found.Record))
        faults.push_back("patient " + number + " has other fields");
    for (const auto& [file, fingerprint] : wanted.Files) {
        const auto there = found.Files.find(file);
        if (there == found.Files.end())
            faults.push_back("record " + number + "/" + file + " is lost");
        else if (there->second != fingerprint)
            faults.push_back("record " + number + "/" + file + " has other bytes");
    }
    for (const auto& [file, fingerprint] : found.Files)
        if (!wanted.Files.contains(file))
            faults.push_back("record " + number + "/" + file + " is back, or nobody's work");
}

}  // namespace

PatientRecord EnteredPatient(const Words& fields)
{
    PatientRecord patient;
    patient.No.Set(fields.at(0));
    patient.Name.Set(fields.at(1));
    patient.BirthYear.Set(std::to_string(SystemClock().Now().Year - std::stoi(fields.at(2))));
    patient.Height = static_cast<Byte>(std::stoi(fields.at(3)));
    patient.Weight = static_cast<Byte>(std::stoi(fields.at(4)));
    return patient;
}

void Ledger::Enter(const PatientRecord& patient)
{
    patients_[PatientFolderName(patient.No.Text())] = {patient, {}};
}

void Ledger::Done(const Words& result)
{
    if (begun_ && begun_->at(0) == "quick") {
        Enter(QuickPatient(result.at(0)));
        begun_ = Words{"sampling", PatientFolderName(result.at(0))};
        return;
    }
    if (begun_ && begun_->at(0) == "finish")
        patients_.at(result.at(0)).Files[result.at(1)] = result.at(2);
    else if (begun_)
        Apply(*begun_);
    begun_.reset();
}

void Ledger::Apply(const Words& step)
{
    const std::string& kind = step.at(0);
    if (kind == "given" || kind == "enter") {
        Enter(EnteredPatient({step.begin() + 1, step.end()}));
    } else if (kind == "change") {
        patients_.at(step.at(1)).Record.Name.Set(step.at(2));
    } else if (kind == "renumber") {
        auto patient = patients_.extract(step.at(1));
        patient.key() = PatientFolderName(step.at(2));
        patient.mapped().Record.No.Set(step.at(2));
        patients_.insert(std::move(patient));
    } else if (kind == "merge") {
        patients_.at(step.at(2)).Files.merge(patients_.at(step.at(1)).Files);
        patients_.erase(step.at(1));
    } else if (kind == "remove") {
        for (std::size_t i = 1; i < step.size(); ++i)
            patients_.erase(step[i]);
    } else if (kind == "unrecord") {
        patients_.at(step.at(1)).Files.erase(step.at(2));
    }
}

Words Ledger::Settle(const DataState& disk)
{
    if (begun_)
        SettleBegun(disk.Patients);
    begun_.reset();

    Words faults = disk.Faults;
    for (const auto& [number, patient] : patients_) {
        const auto found = disk.Patients.find(number);
        if (found == disk.Patients.end())
            faults.push_back("patient " + number + " is lost");
        else
            Compare(number, patient, found->second, faults);
    }
    for (const auto& [number, patient] : disk.Patients)
        if (!patients_.contains(number))
            faults.push_back("patient " + number + " is back, or nobody's work");
    return faults;
}

void Ledger::SettleBegun(const KeptPatients& disk)
{
    const Words& step = *begun_;
    const std::string& kind = step.at(0);
    if (kind == "remove")
        return SettleRemoval(disk);
    if (kind == "merge")
        return SettleMerger(disk);
    if (kind == "quick")
        return SettleQuick(disk);
    const auto subject = disk.find(PatientFolderName(step.at(kind == "renumber" ? 2 : 1)));
    if (subject == disk.end())
        return;
    // The rest of a sampling that was cut off, or a record that the doctor has not been told of: kept from now on.
    if (kind == "sampling" || kind == "finish")
        for (const auto& [file, fingerprint] : subject->second.Files)
            patients_.at(step.at(1)).Files.try_emplace(file, fingerprint);
    else if (kind == "enter" || kind == "renumber" ||
             (kind == "unrecord" && !subject->second.Files.contains(step.at(2))) ||
             (kind == "change" && subject->second.Record.Name.Text() == step.at(2)))
        Apply(step);
}

// Of patients who were being deleted records may be missing, and they themselves.
void Ledger::SettleRemoval(const KeptPatients& disk)
{
    for (const std::string& number : Words(begun_->begin() + 1, begun_->end())) {
        const auto left = disk.find(number);
        if (left == disk.end())
            patients_.erase(number);
        else
            std::erase_if(patients_.at(number).Files,
                          [&](const auto& file) { return !left->second.Files.contains(file.first); });
    }
}

// Each record of a patient who was being merged into another may be with either.
void Ledger::SettleMerger(const KeptPatients& disk)
{
    const std::string from = begun_->at(1);
    const std::string to = begun_->at(2);
    const auto left = disk.find(from);
    if (left == disk.end())
        return Apply(*begun_);
    auto& files = patients_.at(from).Files;
    for (auto file = files.begin(); file != files.end();) {
        const auto next = std::next(file);
        if (!left->second.Files.contains(file->first))
            patients_.at(to).Files.insert(files.extract(file));
        file = next;
    }
}

// The patient of a quick examination may have been entered, under a number of the program's choice.
void Ledger::SettleQuick(const KeptPatients& disk)
{
    for (const auto& [number, patient] : disk)
        if (number.starts_with("RUVO") && !patients_.contains(number)) {
            Enter(QuickPatient(number));
            patients_.at(number).Files = patient.Files;  // its sampling has begun
            return;
        }
}

std::size_t Ledger::RecordCount() const
{
    return std::accumulate(patients_.begin(), patients_.end(), std::size_t{0},
                           [](std::size_t sum, const auto& patient) { return sum + patient.second.Files.size(); });
}

}  // namespace ecg
