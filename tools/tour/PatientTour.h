// The scenes of the patients: an examination in both lead systems, and work in the database.
#pragma once

#include "app/Workstation.h"
#include "tour/TourDriver.h"

namespace ecg {

// A new patient is entered and examined for ten seconds in each lead system, with an event in the first. `language`
// marks the pictures.
void PlayDoubleExamination(TourDriver& tour, Workstation& workstation, const QString& language);

// The database window: adding, modifying, searching, sorting, a record's bed, deleting.
void PlayDatabase(TourDriver& tour, Workstation& workstation, const QString& language);

}  // namespace ecg
