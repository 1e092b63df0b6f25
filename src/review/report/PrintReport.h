// Prints the report of a review on the printer of the machine.
#pragma once

#include "core/WindowOpener.h"
#include "platform/Printer.h"
#include "review/RecordReview.h"

namespace ecg {

enum class ReportPrinting {
    Printed,
    NoPrinter,
    Declined,  // printed before, and the user did not want it again
    Failed     // the printer took no document
};

// Prints the view of `review` as one page. A report that was printed since the review was opened is printed again only
// when the user says yes in `frmMsg`. `year` is this year.
ReportPrinting PrintReport(Printer& printer, WindowOpener& windows, SharedState& state, RecordReview& review, int year);

// Draws and sends the page, without a question.
bool SendReport(Printer& printer, const RecordReview& review, int year);

}  // namespace ecg
