// Second tab of the settings: which leads show, the filters, the electrode prompt, the sampling times.
//
// Controls:
//   Check1     the 12 lead switches
//   Command3   shows 0 the limb leads, 1 the chest leads, 2 all
//   Combo1     filters: 0 AC, 1 muscle, 2 baseline
//   Check2     the electrode prompt
//   Text3      seconds of the nine examinations
//   Command4_0 the factory values
#pragma once

#include "core/SettingsDraft.h"

#include <QWidget>

#include <array>
#include <functional>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QPushButton;

namespace ecg {

class SysSetSampleTab final : public QWidget {
public:
    SysSetSampleTab(SettingsDraft& draft, bool chinese, QWidget* parent);

    void ShowDraft();
    void Collect();

    // Brings the keyboard to a sampling time that was refused.
    void PointAtTime(std::size_t examination);

    std::function<void()> OnFactory;

private:
    QGroupBox* LeadGroupBox();
    QGroupBox* FilterGroup();
    QGroupBox* PromptGroup();
    QGroupBox* TimeGroup(const char* title, std::size_t first, std::size_t end);

    SettingsDraft& draft_;
    const bool chinese_;
    std::array<QCheckBox*, LeadCount> Check1_{};
    std::array<QPushButton*, 3> Command3_{};
    std::array<QComboBox*, 3> Combo1_{};
    QCheckBox* Check2_ = nullptr;
    std::array<QLineEdit*, ExaminationCount> Text3_{};
    QPushButton* Command4_ = nullptr;
};

}  // namespace ecg
