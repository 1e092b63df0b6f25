// How the electrodes are put on, shown before a sampling: a picture of their places in the lead system that comes next,
// and the steps. It asks nothing; Enter and Escape both go on.
//
// Controls:
//   Image1     the picture
//   Label1     the title, Label2 the lead system, Label3 the five steps
//   Command1   next
#pragma once

#include "core/SharedState.h"
#include "platform/qt/Pictures.h"

#include <QDialog>

class QVBoxLayout;

namespace ecg {

class frmAskSamp final : public QDialog {
public:
    frmAskSamp(const SharedState& state, const Pictures& pictures, QWidget* parent = nullptr);

private:
    QVBoxLayout* Words(const SharedState& state);
};

}  // namespace ecg
