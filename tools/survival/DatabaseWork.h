// The doctor's work in the patient database, done in its windows.
#pragma once

#include "app/Workstation.h"
#include "survival/DataState.h"
#include "tour/TourDriver.h"

#include <functional>

namespace ecg {

// Patients are named by their folders. `begin` is called when all is typed and chosen, right before the click that
// changes the disk.
class DatabaseWork {
public:
    using Begin = std::function<void()>;

    DatabaseWork(TourDriver& tour, Workstation& workstation) : tour_(tour), workstation_(workstation) {}

    void Enter(const Words& fields, const Begin& begin);  // number, name, age, height, weight
    void Rename(const std::string& patient, const std::string& name, const Begin& begin);
    void Renumber(const std::string& patient, const std::string& number, const Begin& begin);
    void Merge(const std::string& from, const std::string& to, const Begin& begin);
    void Remove(const Words& patients, const Begin& begin);  // that stand one behind the other
    void RemoveRecord(const std::string& patient, const std::string& file, const Begin& begin);

    // Enters a patient from the main window instead, for an examination that is ended by hand.
    void EnterForExamination(const Words& fields, const Begin& begin);

    // The grid of the patients: number, records and position of each, as shown.
    std::vector<Words> ListedPatients();

    // Whether a question of the message box is part of the work now.
    bool AwaitsQuestion() const { return awaitsQuestion_; }

private:
    void InDatabase(const std::function<void(QWidget&)>& work);
    void InEntry(QWidget& database, const char* command, const std::function<void(QWidget&)>& work);
    void TypePatient(QWidget& entry, const Words& fields);
    void ClickRow(QWidget& database, const char* grid, int column, const std::string& text,
                  Qt::KeyboardModifiers keys = {});
    void Agree(QWidget& window, const char* button, const Begin& begin);

    TourDriver& tour_;
    Workstation& workstation_;
    bool awaitsQuestion_ = false;
};

}  // namespace ecg
