// The general message window: up to five lines, perhaps a line to type in, and one to three buttons.
//
// Arguments and results are the `Msg` fields of the shared state. Closing the window or pressing Escape counts as the
// last button that shows, so that `MsgResult` is always the index of a button the user could see.
//
// Controls:
//   Label1     the five lines
//   Text1      the input, when it is asked for
//   Command1   0 OK, 1 renounce, 2 cancel
#pragma once

#include "core/SharedState.h"

#include <QDialog>

#include <array>

class QLabel;
class QLineEdit;
class QPushButton;

namespace ecg {

class frmMsg final : public QDialog {
public:
    explicit frmMsg(SharedState& state, QWidget* parent = nullptr);

protected:
    void reject() override;  // Escape and the window's own close button

private:
    void SetCaptions();
    void ShowButtons();
    void Press(std::size_t index);

    SharedState& state_;
    std::array<QLabel*, 5> Label1_{};
    QLineEdit* Text1_;
    std::array<QPushButton*, 3> Command1_{};
};

}  // namespace ecg
