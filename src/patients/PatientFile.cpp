#include "patients/PatientFile.h"

#include "core/Numbers.h"
#include "core/formats/FixedRecordFile.h"

#include <algorithm>

namespace ecg {
namespace {

constexpr auto recordBytes = static_cast<std::int64_t>(sizeof(PatientRecord));
constexpr std::int32_t mostSlots = 8'000'000;  // 1.9 GB; what lies behind is no patient file's

std::int32_t SlotCount(ByteFile& file)
{
    const double slots = RoundHalfEven(static_cast<double>(file.Size()) / static_cast<double>(recordBytes));
    return RoundToInt(std::min<double>(slots, mostSlots));
}

struct Slots {
    std::vector<PatientRecord> Records;
    bool Complete = false;  // the whole file was read
};

// Reads in one operation. A cut record at the end keeps blanks where the file stops.
Slots ReadAll(ByteFile& file)
{
    Slots slots;
    slots.Records.resize(static_cast<std::size_t>(SlotCount(file)));
    const auto bytes = std::as_writable_bytes(std::span(slots.Records));
    const std::size_t got = file.ReadAt(0, bytes);
    const std::int64_t size = file.Size();
    const std::int64_t wanted = std::min(size, std::ssize(bytes));
    slots.Complete = static_cast<std::int64_t>(got) == wanted && size - wanted < recordBytes;
    slots.Records.resize((got + sizeof(PatientRecord) - 1) / sizeof(PatientRecord));
    return slots;
}

bool IsDeleted(const PatientRecord& record)
{
    return record.No.IsBlank();
}

std::vector<StoredPatient> Live(const std::vector<PatientRecord>& slots)
{
    std::vector<StoredPatient> live;
    live.reserve(slots.size());
    std::int32_t position = 0;
    for (const PatientRecord& record : slots) {
        ++position;
        if (!IsDeleted(record))
            live.push_back({position, record});
    }
    return live;
}

bool WriteSlot(ByteFile& file, std::int32_t position, const PatientRecord& record)
{
    return FixedRecordFile<PatientRecord>(file).Write(position, record) && file.Flush();
}

}  // namespace

std::unique_ptr<ByteFile> PatientFile::OpenForReading() const
{
    return files_.Open(File(), OpenMode::Read);
}

std::int32_t PatientFile::Count() const
{
    const auto file = OpenForReading();
    return file ? SlotCount(*file) : 0;
}

std::optional<PatientRecord> PatientFile::Read(std::int32_t position) const
{
    const auto file = OpenForReading();
    PatientRecord record;
    if (!file || position > SlotCount(*file) || FixedRecordFile<PatientRecord>(*file).ReadInto(position, record) == 0)
        return std::nullopt;
    return record;
}

std::vector<StoredPatient> PatientFile::ReadLive() const
{
    const auto file = OpenForReading();
    return file ? Live(ReadAll(*file).Records) : std::vector<StoredPatient>{};
}

bool PatientFile::Write(std::int32_t position, const PatientRecord& record)
{
    if (position < 1 || position > Count())
        return false;
    const auto file = files_.Open(File(), OpenMode::ReadWrite);
    return file && WriteSlot(*file, position, record);
}

std::optional<std::int32_t> PatientFile::Append(const PatientRecord& record)
{
    const bool existed = IsFile(File());
    auto file = files_.Open(File(), OpenMode::ReadWrite);
    if (!file)
        return std::nullopt;
    const std::int64_t size = file->Size();
    const std::int32_t position = SlotCount(*file) + 1;
    if (position <= mostSlots && WriteSlot(*file, position, record))
        return position;
    file.reset();
    // The piece that a full disk took would be listed as a patient.
    if (existed)
        files_.Shorten(File(), size);
    else
        files_.Remove(File());
    return std::nullopt;
}

bool PatientFile::Delete(std::span<const std::int32_t> positions)
{
    if (positions.empty())
        return true;
    const auto file = IsFile(File()) ? files_.Open(File(), OpenMode::ReadWrite) : nullptr;
    if (!file)
        return false;
    FixedRecordFile<PatientRecord> slots(*file);
    for (const std::int32_t position : positions) {
        PatientRecord record;
        if (position > SlotCount(*file) || slots.ReadInto(position, record) == 0)
            return false;
        record.No.Set("");
        if (!slots.Write(position, record))
            return false;
    }
    return file->Flush();
}

std::vector<StoredPatient> PatientFile::Compact()
{
    ClearLeftovers();
    const auto file = files_.Open(File(), OpenMode::ReadWrite);
    if (!file)
        return ReadLive();
    Slots slots = ReadAll(*file);
    auto live = Live(slots.Records);
    std::erase_if(slots.Records, IsDeleted);
    // A file that could not be read to its end must not be replaced by its beginning.
    const bool wanted = slots.Complete && std::ssize(live) * recordBytes != file->Size();
    if (wanted && Rewrite(slots.Records))
        for (std::size_t i = 0; i < live.size(); ++i)
            live[i].Position = static_cast<std::int32_t>(i + 1);
    return live;
}

// `PatTemp.lib` is a copy that was never finished, unless `Patient.lib` is missing or empty: then a crash came between
// removing the old file and naming the new one, as other writers of this folder do it, and the copy is all there is.
void PatientFile::ClearLeftovers()
{
    if (!IsFile(TempFile()))
        return;
    std::error_code error;
    const bool onlyCopy = !IsFile(File()) || std::filesystem::file_size(File(), error) == 0;
    if (onlyCopy && !error)
        files_.Rename(TempFile(), File());
    else
        files_.Remove(TempFile());
}

bool PatientFile::Rewrite(std::span<const PatientRecord> records)
{
    bool written = false;
    if (const auto temp = files_.Open(TempFile(), OpenMode::ReadWrite))
        // An old copy that could not be removed would leave its tail behind the new one.
        written = temp->Size() == 0 && FixedRecordFile<PatientRecord>(*temp).WriteMany(1, records) && temp->Flush();
    if (written && files_.Rename(TempFile(), File()))
        return true;
    files_.Remove(TempFile());
    return false;
}

}  // namespace ecg
