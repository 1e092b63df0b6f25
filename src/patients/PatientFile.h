// `Patient.lib`: one fixed record a patient, at positions counted from 1.
//
// A deleted patient leaves a slot whose number is blank; compaction drops such slots, keeping the order of the others.
// The file is open only inside one operation, and every operation ends on the disk itself.
//
// Compaction writes the live patients to `PatTemp.lib`, flushes it, and renames it over `Patient.lib`. There is no
// moment without a whole `Patient.lib`, so a crash costs nothing but a `PatTemp.lib` that the next start removes.
#pragma once

#include "core/formats/PatientRecord.h"
#include "platform/FileSystem.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

namespace ecg {

inline constexpr const char* PatientFileName = "Patient.lib";
inline constexpr const char* PatientTempFileName = "PatTemp.lib";

struct StoredPatient {
    std::int32_t Position = 0;  // 1-based
    PatientRecord Record;
};

class PatientFile {
public:
    // Works in the folder `data`. `files` must outlive this object.
    PatientFile(FileSystem& files, std::filesystem::path data) : files_(files), data_(std::move(data)) {}

    // Slots of the file, deleted ones too. A cut record at the end counts when more than half of it is there.
    std::int32_t Count() const;

    // The slot at `position`; nothing when the file has no such slot or cannot be read.
    std::optional<PatientRecord> Read(std::int32_t position) const;

    // All live patients in the order of the file.
    std::vector<StoredPatient> ReadLive() const;

    // Overwrites a slot that exists. False when it does not, or when the disk refused.
    bool Write(std::int32_t position, const PatientRecord& record);

    // Writes behind the last slot, making the file when it is missing. The new position; nothing on failure, and then
    // the file has the size it had.
    std::optional<std::int32_t> Append(const PatientRecord& record);

    // Blanks the numbers of slots, which is what deletes them; the other fields stay until compaction. False when one
    // of the slots does not exist or the disk refused; those before it are deleted.
    bool Delete(std::span<const std::int32_t> positions);

    // Makes the file if there is none, finishes or clears away what a crash has left, and drops deleted slots. Returns
    // the live patients with the positions they have afterwards, whether or not the file could be rewritten.
    std::vector<StoredPatient> Compact();

private:
    std::filesystem::path File() const { return data_ / PatientFileName; }
    std::filesystem::path TempFile() const { return data_ / PatientTempFileName; }
    std::unique_ptr<ByteFile> OpenForReading() const;
    void ClearLeftovers();
    bool Rewrite(std::span<const PatientRecord> records);

    FileSystem& files_;
    std::filesystem::path data_;
};

}  // namespace ecg
