// Which examinations a sampling is for, who ends it, and after what time.
//
// Controls:
//   Check2     the nine examinations: 0 to 4 Wilson, 5 to 8 Frank
//   Option2    0 the user ends the sampling, 1 the time does
//   Picture1   the times, shown only when they count
//   Text2      the times in seconds: 0 Wilson, 1 Frank
#pragma once

#include "patients/ExaminationItems.h"
#include "patients/windows/PatInputMessages.h"

#include <QGroupBox>

#include <array>

class QCheckBox;
class QLineEdit;
class QRadioButton;

namespace ecg {

class PatInputItems final : public QGroupBox {
public:
    // `tell` shows a refusal. `items` and `settings` must outlive this widget; who ends the sampling is chosen in
    // `settings` at once.
    PatInputItems(ExaminationItems& items, SysInfo& settings, PatInputTeller tell, QWidget* parent);

private:
    QGroupBox* ItemGroup(const Twin& title, std::size_t first, std::size_t end);
    QGroupBox* TimeGroup();
    QLayout* TimeRow(std::size_t system);
    void ShowTimes();
    void ShowControl();
    void TypedTime(std::size_t system);

    ExaminationItems& items_;
    SysInfo& settings_;
    PatInputTeller tell_;
    std::array<QCheckBox*, ExaminationCount> Check2_{};
    std::array<QRadioButton*, 2> Option2_{};
    QWidget* Picture1_ = nullptr;
    std::array<QLineEdit*, 2> Text2_{};
};

}  // namespace ecg
