// The scenes of the review: a record measured, corrected, printed and exported as a doctor does it.
#pragma once

#include "app/Workstation.h"
#include "printing/PrintQueue.h"
#include "tour/TourDriver.h"

#include <filesystem>

namespace ecg {

// Makes public recordings records of the data folder, each of a patient of its own, to have hearts in review that beat.
// Without them the review shows the record of the last examination. For a folder that no workstation works in. False: a
// recording is there but could not be taken.
bool ImportRecordings(const std::filesystem::path& data);

// Opens the database and from it the review: all forms and modes, display, rule, corrections, jumps, printing, export.
// A queue that does not work leaves out the printed pages. `language` marks the pictures.
void PlayReview(TourDriver& tour, Workstation& workstation, PrintQueue& queue, const QString& language);

}  // namespace ecg
