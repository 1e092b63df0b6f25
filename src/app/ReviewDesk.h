// The review of Wilson records in the program: opens its window, and does what the window offers but others provide:
// printing, export, the mailbox.
#pragma once

#include "core/Mailbox.h"
#include "core/WindowOpener.h"
#include "platform/Clock.h"
#include "platform/MessageBox.h"
#include "platform/Printer.h"
#include "platform/qt/Pictures.h"
#include "review/RecordReview.h"
#include "review/report/ExportReport.h"

#include <QPointer>
#include <QWidget>

namespace ecg {

class frmxECG;

class ReviewDesk {
public:
    ReviewDesk(SharedState& state, WindowOpener& windows, MessageBox& messages, Printer& printer, Clock& clock,
               const Pictures& pictures);

    // Opens the record `RecordPath` in a window of its own, in place of the one that was in review before. A record
    // that cannot be reviewed is told of.
    void Open(QWidget* parent);
    void Close();  // as by the frame of the window: no analysis is kept
    bool IsOpen() const;

    // The record in review, or the last one that was; its samples are what the trend works on.
    RecordReview& Record() { return review_; }

private:
    void Print();
    void Export();
    ReportExport WriteExport();
    void Post();
    void Tell(const Twin& text);

    SharedState& state_;
    WindowOpener& windows_;
    MessageBox& messages_;
    Printer& printer_;
    Clock& clock_;
    const Pictures& pictures_;
    Mailbox mailbox_;
    RecordReview review_;
    QPointer<frmxECG> window_;  // lives on when it has closed, for it may still be at work then
};

}  // namespace ecg
