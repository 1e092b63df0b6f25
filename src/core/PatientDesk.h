// What an examination asks of the patient database, so that neither knows the other.
#pragma once

namespace ecg {

class PatientDesk {
public:
    virtual ~PatientDesk() = default;

    // Makes a patient without data, with the lowest free quick number, and leaves it in `CurrentPatient`. False when
    // none is free or the disk refuses.
    virtual bool AddQuickPatient() = 0;

    // A record of `CurrentPatient` was finished.
    virtual void RefreshRecords() = 0;
};

}  // namespace ecg
