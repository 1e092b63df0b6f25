// A stored record as a review of it has it in memory, without a window.
#pragma once

#include "analysis/AboutResult.h"
#include "wfdb/Outcome.h"

#include <filesystem>
#include <memory>
#include <vector>

namespace ecg {

inline constexpr std::int32_t ReviewedSlots = 4400;  // of a view: 220 mm of paper at 25 mm/s

class OpenedRecord {
public:
    // A name ending in ".F" is a Frank record, any other a Wilson record. Fails when the file cannot be read or has no
    // sample.
    static Outcome<std::unique_ptr<OpenedRecord>> Open(const std::filesystem::path& record);

    LeadSystem System() const { return system_; }
    const SharedState& State() const { return state_; }
    AboutFile& File() { return file_; }

    void LoadView(std::int32_t start);

    std::size_t FlagsInView() const;

    // The slot of a beat in the view by its place; fails when the view has none of that place.
    Outcome<std::int32_t> Beat(std::size_t place) const;

    // The beat at `centerSlot` in the view, on its own: nothing of a beat before takes part. 0 measures nothing.
    BeatResult Measured(std::int32_t centerSlot);

    std::vector<std::int32_t> AllFlags() const;

private:
    explicit OpenedRecord(const std::filesystem::path& record);

    SharedState state_;
    LeadSystem system_;
    AboutFile file_;
};

}  // namespace ecg
