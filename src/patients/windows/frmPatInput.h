// Adding a patient, modifying the selected one, or setting up an examination, as `PatInputMode` says when it opens.
//
// The caller learns the result from `CurrentPatient`: for an examination its number is blank before, and holds the
// chosen patient's when the window was accepted.
//
// Controls:
//   Frame4     the patient, see `PatInputFields`
//   Frame3     the examination, see `PatInputItems`; shown only when one is set up
//   Command1   0 cancel (Escape), 1 OK (Enter)
#pragma once

#include "patients/PatientEntry.h"
#include "platform/MessageBox.h"

#include <QDialog>

#include <array>

class QBoxLayout;
class QPushButton;

namespace ecg {

class PatInputFields;
class PatInputItems;

class frmPatInput final : public QDialog {
public:
    frmPatInput(SharedState& state, AboutPat& patients, MessageBox& messages, QWidget* parent = nullptr);

    // Asks first when something was typed.
    void reject() override;

private:
    QBoxLayout* ButtonRow();
    void Confirm();
    void Take(PatientEntry::Answer answer);
    bool AgreesToStore();
    bool AgreesToMove();
    void Tell(const Twin& text);

    SharedState& state_;
    MessageBox& messages_;
    PatientEntry entry_;
    PatInputFields* Frame4_ = nullptr;
    PatInputItems* Frame3_ = nullptr;
    std::array<QPushButton*, 2> Command1_{};
};

}  // namespace ecg
