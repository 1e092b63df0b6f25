// The title of the program, shown for some three seconds at the start, or until the button is pressed. It decides
// nothing.
//
// Controls:
//   Picture1   a heart that comes in from the left, moved by Timer1
//   Picture2   a trace that grows to the right after that, by Timer2
//   Label1     the name of the program
//   Command1   enters at once; Enter and Escape do the same
#pragma once

#include "core/SharedState.h"
#include "core/SplashMotion.h"
#include "platform/qt/Pictures.h"

#include <QDialog>
#include <QTimer>

class QLabel;
class QPushButton;

namespace ecg {

class frmSplash final : public QDialog {
public:
    frmSplash(const SharedState& state, const Pictures& pictures, QWidget* parent = nullptr);

private:
    void PlaceControls();
    void StartTimers();
    void ShowMotion();

    SplashMotion motion_;
    QWidget* Picture1_;
    QWidget* Picture2_;  // as wide as the trace has grown; it cuts off the rest
    QLabel* Label1_;
    QPushButton* Command1_;
    QTimer Timer1_;
    QTimer Timer2_;
};

}  // namespace ecg
