// The window before all others: the doctor picks, or types and picks, a name. Closing it picks none.
//
// Controls:
//   Label1     the prompt
//   Text1      the eight names
//   Command1   takes the name in the box beside it
#pragma once

#include "core/DoctorSelection.h"
#include "platform/MessageBox.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace ecg {

class frmSelectName final : public QDialog {
public:
    // Leaves the chosen name in `state.DoctorName`.
    frmSelectName(SharedState& state, MessageBox& messages, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void ShowNames();
    void SetCaptions();
    void Press(std::size_t index);

    SharedState& state_;
    MessageBox& messages_;
    const bool chinese_;
    QLabel* Label1_;
    std::array<QLineEdit*, DoctorCount> Text1_{};
    std::array<QPushButton*, DoctorCount> Command1_{};
};

}  // namespace ecg
