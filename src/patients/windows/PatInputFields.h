// The patient's fields in the entry window, on two tabs, with the live status of the number. They hand every change to
// the rules of the entry and show what these make of it.
//
// Controls:
//   SSTab1     the tabs: what identifies and describes the patient, and what may help
//   Text1      the texts, numbered as `PatientField`; 15, the bed, only in an examination
//   Option1    sex: 0 male, 1 female
//   Check1     risk factors 0 to 5, types of symptoms 6 to 9
//   Combo1     department, only in an examination
//   Command2   proposes a free number, for a patient who has none yet
//   Label3     0 hint of the number, 1 status of the number, 2 and 3 hints of the other fields
//   def        captions of the four custom items
#pragma once

#include "patients/PatientEntry.h"
#include "patients/windows/PatInputMessages.h"

#include <QGroupBox>

#include <array>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QPushButton;
class QRadioButton;
class QTabWidget;

namespace ecg {

class FixedTextEdit;

class PatInputFields final : public QGroupBox {
public:
    // `tell` shows a refusal. `entry` and `settings` must outlive this widget.
    PatInputFields(PatientEntry& entry, const SysInfo& settings, EntryMode mode, PatInputTeller tell, QWidget* parent);

    // Every field as the entry has it.
    void ShowEntry();

    // Brings the keyboard to a field, on its tab.
    void PointAt(PatientField field);

    // Tells that age, height or weight was out of its range. The field is then empty and has the keyboard.
    void RefuseValue(PatientField field);

    std::string Department() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* BasicTab(EntryMode mode);
    void AddNumber(QFormLayout* form, EntryMode mode);
    void AddSex(QFormLayout* form);
    void AddValue(QFormLayout* form, PatientField field, const Twin& unit);
    void AddRecordFields(QFormLayout* form, bool shown);
    QWidget* MoreTab();
    QGroupBox* FlagGroup(const Twin& title, std::size_t first, std::size_t end, int flagsInARow);
    QString Caption(PatientField field) const;
    FixedTextEdit* NewBox(PatientField field);
    QLabel* NewHint(std::size_t index, const Twin& text);
    FixedTextEdit* Box(PatientField field) const { return Text1_[static_cast<std::size_t>(field)]; }

    void Typed(PatientField field);
    void Left(PatientField field);
    void ShowStatus();
    void EnableIdentity(bool enabled);

    PatientEntry& entry_;
    const SysInfo& settings_;
    PatInputTeller tell_;
    QTabWidget* SSTab1_ = nullptr;
    std::array<FixedTextEdit*, PatientFieldCount> Text1_{};
    std::array<QRadioButton*, 2> Option1_{};
    std::array<QCheckBox*, 10> Check1_{};
    QComboBox* Combo1_ = nullptr;
    QPushButton* Command2_ = nullptr;
    std::array<QLabel*, 4> Label3_{};
    std::array<QLabel*, 4> def_{};
};

}  // namespace ecg
