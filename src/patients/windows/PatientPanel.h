// What is known of the chosen patient, title beside value.
//
// Controls, both by the same index:
//   PatTitle   titles
//   Label3     values: 0 number, 1 name, 2 sex, 3 age, 4 height, 5 weight, 6 address, 7 postal code, 8 telephone, 9 mail,
//              10 identity, 11 insurance, 12 to 15 custom items, 20 to 29 the flags
#pragma once

#include "core/formats/SysInfo.h"
#include "patients/PatientDetails.h"

#include <QWidget>

#include <map>

class QGridLayout;
class QVBoxLayout;

namespace ecg {

class ElidingLabel;

class PatientPanel final : public QWidget {
public:
    PatientPanel(const SysInfo& settings, QWidget* parent);

    // `year` is the current one.
    void ShowPatientDetails(const PatientRecord& patient, int year);
    void Clear();

private:
    QGridLayout* AddGroup(QVBoxLayout& column, const QString& heading, int titleWidth);
    void AddLine(QGridLayout& grid, int index, const QString& title);

    const bool chinese_;
    std::map<int, ElidingLabel*> Label3_;
};

}  // namespace ecg
