// Tells how far long work over many rows has come.
//
// Controls:
//   Label4         what is being done
//   Label6, Label5 "already done", and how many
//   ProgressBar1   percent
#pragma once

#include "core/Language.h"

#include <QFrame>

#include <cstdint>

class QLabel;
class QProgressBar;

namespace ecg {

struct ProgressWords {
    Twin Doing;
    Twin Done;
};

class ProgressPanel final : public QFrame {
public:
    // Without a parent it is a window of its own.
    ProgressPanel(const ProgressWords& words, bool chinese, QWidget* parent);

    // Shows `done` of `all` and lets the window system paint; what the user does meanwhile has to wait.
    void Report(std::int32_t done, std::int32_t all);

private:
    QLabel* Label5_;
    QProgressBar* ProgressBar1_;
};

}  // namespace ecg
