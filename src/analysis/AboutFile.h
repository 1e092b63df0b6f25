// The reader of stored examinations, and the samples that it leaves in memory for everything that reviews a record.
//
//   record file ─┬─ header ──────► CurrentHeader, CompareHeader
//                ├─ slots of view ─► EcgBlock, RFlagList          (other windows: CompareBlock, WindowBlock)
//                └─ R flags ──────► FindRFlags, SetRFlag
//
// A slot is 16 bytes of the file, numbered from 1; the first sample is slot 300, 500 slots are a second. Every
// operation opens the file, does its work and closes it. Any file will do: what it does not hold is 0.
#pragma once

#include "analysis/LeadBlock.h"
#include "analysis/RFlags.h"
#include "core/SharedState.h"
#include "platform/ByteFile.h"

#include <array>
#include <cstdint>
#include <vector>

namespace ecg {

enum class WhichRecord { Current, Comparison };

// Where `ReadSamples` puts samples.
enum class SampleTarget {
    View,        // current record, twelve leads to `EcgBlock`; collects `RFlagList`
    Comparison,  // comparison record, twelve leads to `CompareBlock`
    Window,      // current record, twelve leads to `WindowBlock`
    FrankWindow  // current record, X, Y, Z to rows 0 to 2 of `WindowBlock`
};

enum class FlagAction { Set, Clear };

// Consecutive slots of a record.
struct StoredSlots {
    std::int64_t First = 0;
    std::vector<RecordSample> Samples;
};

class AboutFile {
public:
    static constexpr std::size_t ViewColumns = 36200;  // 880 mm of paper at 12.5 mm/s take 35200
    static constexpr std::size_t CompareColumns = 4400;
    static constexpr std::size_t WindowColumns = 605;
    static constexpr std::size_t LongestFlagList = 50;

    // The records are `RecordPath` and `ComparePath` of `state`.
    explicit AboutFile(SharedState& state, FileOpener open = OpenFile) : state_(state), open_(std::move(open)) {}

    // Reads a header into `CurrentHeader` or `CompareHeader`. False when the file does not hold a whole one; the header
    // is then an empty one.
    bool ReadHeader(WhichRecord which);

    // Writes `CurrentHeader` over the header of the current record. False when the record has none or the disk refuses.
    bool WriteHeader();

    // Sets `SlotCount` or `CompareSlotCount` to the file's length in slots, to the nearest whole number; 0 without a
    // file. Slots below that number exist: the last one of a file is never read, whole or not.
    void CountSlots(WhichRecord which);

    // Fills a block from slot `start` on. Slots that do not exist give 0, and so do the columns behind the first
    // `count`. More than the block's columns are not read. Header slots (1 to 299) are read as if they were samples.
    void ReadSamples(SampleTarget target, std::int32_t start, std::int32_t count);

    // Reads X, Y, Z of the current record from `BlockStart` on into rows 0 to 2 of `EcgBlock`, all columns.
    void ReadFrankView();

    // Sets or clears the R flag of one sample in the current record; its other bits stay. False when there is no such
    // sample or the disk refuses.
    bool SetRFlag(FlagAction action, std::int32_t slot);

    // The slots of the current record from `first` to before `end`, as far as they exist.
    StoredSlots ReadSlots(std::int64_t first, std::int64_t end) const;

    // Visits the R flags of the current record from slot `start` (300 at the least) on, in order. The record is read in
    // large blocks, as long as the visitor goes on.
    void FindRFlags(std::int32_t start, FlagKind kind, const FlagVisitor& visit) const;

    std::int32_t BlockStart() const { return state_.BlockStart; }  // slot of column 0 of `EcgBlock`

    LeadBlock EcgBlock{ViewColumns};
    LeadBlock CompareBlock{CompareColumns};
    LeadBlock WindowBlock{WindowColumns};
    RecordHeader CompareHeader;
    std::int32_t SlotCount = 0;
    std::int32_t CompareSlotCount = 0;
    std::int32_t CompareStart = 0;                          // slot of column 0 of `CompareBlock`
    std::array<std::int32_t, LongestFlagList> RFlagList{};  // slots of the flags in view, 0 behind the last
    std::int32_t CenterSlot = 0;                            // R flag of the beat that is analysed

private:
    std::unique_ptr<ByteFile> Open(WhichRecord which, OpenMode mode) const;
    StoredSlots ReadSlots(WhichRecord which, std::int64_t first, std::int64_t end) const;
    LeadBlock& BlockOf(SampleTarget target);

    SharedState& state_;
    FileOpener open_;
};

}  // namespace ecg
