// The right column of a report below its header: the values of the mode, and the doctor's remark under them.
#pragma once

#include "review/PageLook.h"
#include "review/RecordReview.h"
#include "review/report/PaperText.h"

namespace ecg {

// `text` writes on `page`. `year` is this year, for the age of the patient of a comparison record.
void DrawReportPanels(Surface& page, PaperText& text, const RecordReview& review, const PageLook& look, int year);

}  // namespace ecg
