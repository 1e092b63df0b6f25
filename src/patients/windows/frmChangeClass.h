// Department and bed of a record, for correction. The caller puts the record's header into `WorkHeader` and stores it
// afterwards; closing the window leaves it as it was.
//
// Controls:
//   Text1      0 department, 1 bed
//   Command1   0 shows the stored texts again, 1 takes the typed ones and closes (Enter)
#pragma once

#include "core/SharedState.h"

#include <QDialog>

#include <array>

class QPushButton;

namespace ecg {

class FixedTextEdit;

class frmChangeClass final : public QDialog {
public:
    explicit frmChangeClass(SharedState& state, QWidget* parent = nullptr);

private:
    void ShowStored();
    void Take();

    SharedState& state_;
    std::array<FixedTextEdit*, 2> Text1_{};
    std::array<QPushButton*, 2> Command1_{};
};

}  // namespace ecg
