// Any bytes as a record file: it gets a row, and its header can be edited without harm to what lies behind it.
#include "fuzz/Require.h"
#include "patients/EventEditor.h"
#include "patients/RecordHeaderFile.h"
#include "patients/RecordTable.h"
#include "support/TemporaryDataFolder.h"

#include <fstream>
#include <iterator>
#include <string>

namespace ecg::fuzz {
namespace {

std::string ReadAll(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

RecordHeader EditEvents(const RecordHeader& header)
{
    constexpr std::int32_t onView = 5000;  // slot
    EventEditor editor(header);
    for (int row = 0; row <= EventSlotCount + 1; ++row) {
        const std::string time = editor.Time(row);
        Require(time.empty() || editor.Position(row), "only an event has a time");
    }
    if (const auto row = editor.FreeRow())
        editor.SetText(*row, "event");
    RecordHeader stored = header;
    editor.StoreInto(stored, onView);
    for (std::size_t slot = 0; slot < EventSlotCount; ++slot)
        Require((stored.EventPos[slot] >= 1) == !stored.EventText[slot].Text().empty(), "an event has place and text");
    return stored;
}

void UseRecord(const std::filesystem::path& file, const std::string& bytes)
{
    DiskFileSystem disk;
    RecordTable table;
    table.Load(file.parent_path());
    Require(table.RowCount() == 1 && table.Text(0, 9) == file.filename(), "any file has its row");
    for (int header = 0; header < RecordHeaderCount; ++header)
        table.Sort(header);
    const auto header = ReadRecordHeader(disk, file);
    Require(header.has_value() == (bytes.size() >= sizeof(RecordHeader)), "a whole header is read");
    if (!header) {
        Require(!WriteRecordHeader(disk, file, {}) && ReadAll(file) == bytes, "what is no record stays as it is");
        return;
    }
    Require(WriteRecordHeader(disk, file, EditEvents(*header)), "a header is written");
    Require(ReadAll(file).substr(sizeof(RecordHeader)) == bytes.substr(sizeof(RecordHeader)),
            "samples are not touched");
}

}  // namespace
}  // namespace ecg::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const ecg::TemporaryDataFolder folder;
    const auto file = folder.File("20260309080507.W");
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    std::ofstream(file, std::ios::binary) << bytes;
    ecg::fuzz::UseRecord(file, bytes);
    return 0;
}
