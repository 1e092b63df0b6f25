// Opens the system's windows by name.
#pragma once

#include "app/ReviewDesk.h"
#include "core/SharedState.h"
#include "core/WindowOpener.h"
#include "patients/AboutPat.h"
#include "platform/MessageBox.h"
#include "platform/Printer.h"
#include "platform/qt/Pictures.h"

#include <QPointer>
#include <QWidget>

namespace ecg {

class frmNote;
class frmPat;

class WindowSet final : public WindowOpener {
public:
    WindowSet(SharedState& state, AboutPat& patients, MessageBox& messages, Printer& printer, Clock& clock,
              const Pictures& pictures);
    ~WindowSet() override;

    // Windows opened from now on lie on top of `parent`.
    void SetParent(QWidget* parent) { parent_ = parent; }

    bool ShowBlocking(WindowName window) override;
    bool Show(WindowName window) override;
    void Close(WindowName window) override;
    void PumpMessages() override;

private:
    bool Run(WindowName window);
    void RunEvents(QWidget* behind);
    void RunReview();
    void LoadPatients();
    void OpenDatabase();
    QWidget* Front() const;

    SharedState& state_;
    AboutPat& patients_;
    MessageBox& messages_;
    Printer& printer_;
    const Pictures& pictures_;
    ReviewDesk review_;
    QWidget* parent_ = nullptr;
    QPointer<frmPat> database_;
    QPointer<frmNote> events_;
};

}  // namespace ecg
