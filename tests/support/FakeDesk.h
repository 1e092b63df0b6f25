// A patient database that has one quick patient to give.
#pragma once

#include "acquisition/ExaminationControl.h"

namespace ecg {

class FakeDesk final : public PatientDesk {
public:
    explicit FakeDesk(SharedState& state) : state_(state) {}

    bool AddQuickPatient() override
    {
        if (Works)
            state_.CurrentPatient.No.Set("RUVO00007");
        return Works;
    }
    bool TakeUp(std::string_view number) override
    {
        state_.CurrentPatient.No.Set(number);
        return !Gone;
    }
    void RefreshRecords() override { ++Refreshed; }

    bool Works = true;
    bool Gone = false;  // the patient was deleted
    int Refreshed = 0;

private:
    SharedState& state_;
};

}  // namespace ecg
