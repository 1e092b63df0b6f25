// Any bytes as a recording that is imported: it becomes a whole record of one patient, or leaves nothing at all.
//
//   byte 0: lead system   then, each up to a zero byte: patient number, header   rest: the samples of "a" and "b"
#include "core/formats/RecordSample.h"
#include "fuzz/Require.h"
#include "patients/PatientFile.h"
#include "record/ImportRecording.h"
#include "support/FakeClock.h"
#include "support/TemporaryDataFolder.h"
#include "wfdb/Annotations.h"

#include <algorithm>
#include <fstream>

namespace ecg::fuzz {
namespace {

using Bytes = std::span<const std::uint8_t>;

// At one sample a second each makes 500 frames, and more of them would only take longer.
constexpr std::size_t mostSampleBytes = 100;

// Takes what stands before the next zero byte, and that byte.
Bytes TakePart(Bytes& input)
{
    const auto end = static_cast<std::size_t>(std::ranges::find(input, 0) - input.begin());
    const Bytes part = input.first(end);
    input = input.subspan(std::min(end + 1, input.size()));
    return part;
}

void Write(const std::filesystem::path& file, Bytes bytes)
{
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

void ReadAsAnnotations(Bytes bytes)
{
    for (const Annotation& annotation : ParseAnnotations(std::as_bytes(bytes)))
        IsBeat(annotation.Code);
}

std::optional<LeadSystem> SystemOf(std::uint8_t byte)
{
    switch (byte % 3) {
    case 0:
        return std::nullopt;
    case 1:
        return LeadSystem::Wilson;
    default:
        return LeadSystem::Frank;
    }
}

void RequireWhole(const std::filesystem::path& record, const std::filesystem::path& data)
{
    constexpr std::uintmax_t firstSampleByte = 4784;
    const std::uintmax_t size = std::filesystem::file_size(record);
    Require(size > firstSampleByte && (size - firstSampleByte) % sizeof(RecordSample) == 0, "a record has samples");
    Require(record.parent_path().parent_path() == data, "the record lies in a patient's folder");
    Require(ListFolder(data, EntryKind::Folder).size() == 1 && CountFiles(record.parent_path()) == 1,
            "nothing is made but the record");
    DiskFileSystem disk;
    Require(PatientFile(disk, data).ReadLive().size() == 1 && CountFiles(data) == 1, "its patient is entered");
}

void Import(Bytes input, const Folders& folders)
{
    const auto header = folders.Program / "r.hea";
    const auto system = SystemOf(input[0]);
    input = input.subspan(1);
    const Bytes number = TakePart(input);
    Write(header, TakePart(input));
    const Bytes samples = input.first(std::min(input.size(), mostSampleBytes));
    Write(folders.Program / "a", samples);
    Write(folders.Program / "b", samples);
    ReadAsAnnotations(input);

    ImportOptions options{header, folders.Data, {}, system};
    if (!number.empty())
        options.Patient.emplace(number.begin(), number.end());
    FakeClock clock;
    DiskFileSystem disk;
    const auto record = ImportRecording(options, clock, disk);
    if (record)
        RequireWhole(*record, folders.Data);
    else
        Require(!record.Reason().empty() && std::filesystem::is_empty(folders.Data), "a refusal leaves nothing");
}

}  // namespace
}  // namespace ecg::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    static const ecg::TemporaryDataFolder folder;
    std::filesystem::remove_all(folder.Paths().Data);
    std::filesystem::create_directory(folder.Paths().Data);
    ecg::fuzz::Import({data, size}, folder.Paths());
    return 0;
}
