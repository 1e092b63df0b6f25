#include "patients/PatientMoves.h"

#include "core/Numbers.h"
#include "core/PatientNumber.h"
#include "core/formats/FixedRecordFile.h"

#include <charconv>

namespace ecg {
namespace {

struct NewNumber {
    Int32 Position{};
    FixedText<9> OldNumber;
    PatientRecord Record;
};
static_assert(IsFixedRecord<NewNumber, 4 + 9 + 238>);

// The name that a record takes in `folder`: its own, or with its 14 digits counted up until the name is free.
std::string FreeName(const std::filesystem::path& folder, std::string name)
{
    constexpr std::size_t timeDigits = 14;
    std::error_code error;
    while (std::filesystem::exists(folder / name, error)) {
        std::int64_t time = 0;
        const bool isTime =
            name.size() > timeDigits &&
            std::from_chars(name.data(), name.data() + timeDigits, time).ptr == name.data() + timeDigits;
        name = isTime ? FormatZeros(time + 1, timeDigits) + name.substr(timeDigits) : "_" + name;
    }
    return name;
}

bool MoveFiles(FileSystem& files, const std::filesystem::path& from, const std::filesystem::path& to)
{
    for (const std::string& name : ListFolder(from, EntryKind::File))
        if (!files.Rename(from / name, to / FreeName(to, name)))
            return false;
    return true;
}

bool MoveFolder(FileSystem& files, const std::filesystem::path& from, const std::filesystem::path& to)
{
    if (from == to || !IsFolder(from))
        return IsFolder(to) || files.MakeFolder(to);
    if (!IsFolder(to))
        return files.Rename(from, to);
    const bool moved = MoveFiles(files, from, to);
    files.Remove(from);  // fails when something else than records is left in it, which then stays
    return moved;
}

bool Apply(const NewNumber& move, FileSystem& files, PatientFile& patients, PatientFolders& folders,
           const std::filesystem::path& data)
{
    const auto from = folders.PathOf(move.OldNumber.Text());
    const auto to = data / PatientFolderName(move.Record.No.Text());
    if (!MoveFolder(files, from, to))
        return false;
    if (patients.Write(move.Position, move.Record))
        return true;
    MoveFolder(files, to, from);  // the slot still has the old number, and its folder goes with it
    return false;
}

bool Note(FileSystem& files, const std::filesystem::path& file, const NewNumber& move)
{
    files.Remove(file);
    const auto note = files.Open(file, OpenMode::ReadWrite);
    return note && FixedRecordFile<NewNumber>(*note).Write(1, move) && note->Flush();
}

}  // namespace

bool RenumberPatient(AboutPat& database, const PatientRecord& record)
{
    const PatientRow* row = database.SelectedPatient();
    if (row == nullptr || record.No.IsBlank())
        return false;
    const auto& data = database.State().Folders.Data;
    NewNumber move{Int32(row->Position), {}, record};
    move.OldNumber.Set(row->Number);
    const auto note = data / PatientMoveFileName;
    const bool done =
        Note(database.Files(), note, move) && Apply(move, database.Files(), database.File, database.Folders, data);
    if (done)
        database.State().CurrentPatient = record;
    database.Files().Remove(note);
    return done && database.RewritePatient();
}

void FinishRenumbering(FileSystem& files, PatientFile& patients, PatientFolders& folders,
                       const std::filesystem::path& data)
{
    const auto note = data / PatientMoveFileName;
    if (!IsFile(note))
        return;
    std::optional<NewNumber> move;
    if (const auto file = files.Open(note, OpenMode::Read))
        move = FixedRecordFile<NewNumber>(*file).Read(1);
    // A note that was cut short was the first step: nothing else has happened then.
    const auto slot = move ? patients.Read(move->Position) : std::nullopt;
    const bool isThatPatient = slot && (SamePatientNumber(slot->No.Text(), move->OldNumber.Text()) ||
                                        SamePatientNumber(slot->No.Text(), move->Record.No.Text()));
    if (isThatPatient && !move->Record.No.IsBlank())
        Apply(*move, files, patients, folders, data);
    files.Remove(note);
}

bool MovePatientRecords(AboutPat& database, int toRow)
{
    const int fromRow = database.SelectedRow();
    if (fromRow == toRow || !database.Patients.HasRow(fromRow) || !database.Patients.HasRow(toRow))
        return false;
    const PatientRow from = database.Patients.Row(fromRow);
    const PatientRow to = database.Patients.Row(toRow);
    if (!database.Folders.Make(to.Number))
        return false;
    const auto source = database.Folders.PathOf(from.Number);
    const auto target = database.Folders.PathOf(to.Number);
    const bool twoFolders = source != target && IsFolder(source);
    const bool moved = !twoFolders || MoveFiles(database.Files(), source, target);
    database.Patients.SetRecords(fromRow, database.Folders.CountFiles(from.Number));
    database.Patients.SetRecords(toRow, database.Folders.CountFiles(to.Number));
    if (!moved || !database.File.Delete(std::vector{from.Position}))
        return false;
    if (twoFolders)
        database.Files().Remove(source);
    database.Patients.Remove(fromRow);
    database.Select(toRow - (toRow > fromRow ? 1 : 0));
    database.State().CurrentPatient.No.Set("");
    return true;
}

}  // namespace ecg
