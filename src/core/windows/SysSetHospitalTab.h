// First tab of the settings: the hospital, the names of the patient's custom items, the departments.
//
// Controls:
//   Text1       hospital: 0 name, 1 address, 2 telephone, 3 fax, 4 web, 5 mail
//   Text2       names of the four custom items
//   ClassList   the 64 departments
#pragma once

#include "core/SettingsDraft.h"

#include <QWidget>

#include <array>

class QGroupBox;
class QLineEdit;

namespace ecg {

class DepartmentList;

class SysSetHospitalTab final : public QWidget {
public:
    SysSetHospitalTab(SettingsDraft& draft, bool chinese, QWidget* parent);

    // Brings what was typed into the draft.
    void Collect();

private:
    QGroupBox* HospitalGroup();
    QGroupBox* ItemGroup();
    QGroupBox* DepartmentGroup();
    void ShowDraft();

    SettingsDraft& draft_;
    const bool chinese_;
    std::array<QLineEdit*, 6> Text1_{};
    std::array<QLineEdit*, 4> Text2_{};
    DepartmentList* ClassList_ = nullptr;
};

}  // namespace ecg
