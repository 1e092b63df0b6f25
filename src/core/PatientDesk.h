// What an examination asks of the patient database, so that neither knows the other.
#pragma once

#include <string_view>

namespace ecg {

class PatientDesk {
public:
    virtual ~PatientDesk() = default;

    // Makes a patient without data, with the lowest free quick number, and leaves it in `CurrentPatient`. False when
    // none is free or the disk refuses.
    virtual bool AddQuickPatient() = 0;

    // Makes the patient of that number the current one, whoever was looked at meanwhile. False when there is no such
    // patient any more.
    virtual bool TakeUp(std::string_view number) = 0;

    // A record of `CurrentPatient` was finished.
    virtual void RefreshRecords() = 0;
};

}  // namespace ecg
