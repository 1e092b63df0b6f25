// A record in a data folder of its own, under review.
#pragma once

#include "analysis/AboutResult.h"
#include "support/TemporaryDataFolder.h"
#include "support/WriteDemoFile.h"

#include <gtest/gtest.h>

#include <vector>

namespace ecg {

inline constexpr Frame silence{2048, 2048, 2048, 2048, 2048, 2048, 2048, 2048};

inline std::int16_t Flagged(int word)
{
    return static_cast<std::int16_t>(word | BeatMark);
}

class RecordFixture : public testing::Test {
protected:
    explicit RecordFixture(FileOpener open = OpenFile) : File(State, std::move(open))
    {
        State.Folders = Folder.Paths();
        State.RecordPath = "20260309080507.W";
        State.ComparePath = "20250101000000.W";
        State.BlockStart = FirstSampleSlot;
    }

    std::filesystem::path Path() const { return State.Folders.File(State.RecordPath); }

    // Makes `frames` the samples of the current record.
    void Store(const std::vector<Frame>& frames)
    {
        WriteDemoFile(Path(), frames);
        File.CountSlots(WhichRecord::Current);
    }

    // A silent record of `count` samples with flags at some slots.
    void StoreFlags(std::size_t count, const std::vector<int>& slots)
    {
        std::vector<Frame> frames(count, silence);
        for (const int slot : slots)
            frames[static_cast<std::size_t>(slot - FirstSampleSlot)][0] = Flagged(2048);
        Store(frames);
    }

    TemporaryDataFolder Folder;
    SharedState State;
    AboutFile File;
};

}  // namespace ecg
