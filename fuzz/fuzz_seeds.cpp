// Writes the inputs that fuzzing starts from: `fuzz_seeds FOLDER` fills a folder for each target in FOLDER.
#include "box/WireFrame.h"
#include "core/Settings.h"
#include "core/formats/PatientRecord.h"
#include "core/formats/RecordHeader.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace ecg::fuzz {
namespace {

using Bytes = std::vector<std::uint8_t>;

bool Write(const std::filesystem::path& file, const Bytes& bytes)
{
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return out.good();
}

void AppendFrame(Bytes& bytes, std::uint8_t key, FrameType type, FrameFlags flags, std::int16_t value)
{
    Frame frame;
    frame.fill(value);
    for (const std::uint8_t byte : EncodeFrame(frame, type, flags))
        bytes.push_back(byte ^ key);
}

// All electrodes come on, one goes off and comes back, filters change, and a byte is lost on the way.
Bytes StreamSeed(std::uint8_t key, std::uint8_t system, std::uint8_t chunk)
{
    Bytes bytes{key, system, chunk};
    for (const FrameFlags off : {FrameFlags{0}, FrameFlag(2), FrameFlags{0}, FrameFlag(7), FrameFlags{0}})
        AppendFrame(bytes, key, FrameType::LeadOff, off, 1000);
    AppendFrame(bytes, key, FrameType::Status, StatusFlags({.Ac = 1, .Baseline = 2, .Muscle = 5}), SampleMask);
    bytes.pop_back();
    AppendFrame(bytes, key, FrameType::LeadOff, 0, 0);
    return bytes;
}

// Long enough for a beat: a step after a quiet stretch. Start bytes alone are frames too, and keep the seed short.
Bytes BeatSeed()
{
    constexpr int quietFrames = 150;
    constexpr std::uint8_t startAtZero = 0x80 | ZeroLevel / 64;
    constexpr std::uint8_t startAtStep = 0x80 | 3000 / 64;
    Bytes bytes{0, 0, 15};
    AppendFrame(bytes, 0, FrameType::LeadOff, 0, ZeroLevel);
    bytes.insert(bytes.end(), quietFrames, startAtZero);
    bytes.insert(bytes.end(), 3, startAtStep);
    return bytes;
}

bool WriteStreams(const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    return Write(folder / "wilson", StreamSeed(0x5A, 0, 15)) && Write(folder / "frank", StreamSeed(0xC3, 1, 0)) &&
           Write(folder / "unscrambled", StreamSeed(0, 0, 255)) && Write(folder / "beat", BeatSeed());
}

bool WriteSettingsFiles(const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    SysInfo settings;
    LoadFactorySettings(settings, FactoryGroup::All, true);
    settings.HospitalName.Set("人民医院 General");
    settings.DoctorNames[0].Set("王医生");
    const auto* first = reinterpret_cast<const std::uint8_t*>(&settings);
    const Bytes whole(first, first + sizeof settings);
    Bytes longer = whole;
    longer.resize(longer.size() + 100, 0xFF);
    const Bytes half(whole.begin(), whole.begin() + sizeof settings / 2);
    return Write(folder / "whole", whole) && Write(folder / "longer", longer) && Write(folder / "half", half) &&
           Write(folder / "ones", Bytes(sizeof settings, 0xFF)) && Write(folder / "empty", {});
}

template <class Record>
Bytes BytesOf(const Record& record)
{
    const auto* first = reinterpret_cast<const std::uint8_t*>(&record);
    return {first, first + sizeof record};
}

// A number, a quick patient, a deleted slot, and a number that would lead out of the folder; then half a record.
bool WritePatientFiles(const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    Bytes bytes;
    for (const char* number : {"12", "RUVO00001", "", "../up"}) {
        PatientRecord patient;
        patient.No.Set(number);
        patient.Name.Set("张三*");
        patient.BirthYear.Set("1980");
        const Bytes record = BytesOf(patient);
        bytes.insert(bytes.end(), record.begin(), record.end());
    }
    const Bytes cut(bytes.begin(), bytes.begin() + sizeof(PatientRecord) * 3 / 2);
    return Write(folder / "patients", bytes) && Write(folder / "cut", cut) && Write(folder / "empty", {});
}

bool WriteRecordFiles(const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    RecordHeader header;
    header.ExamTime.Set("20260309080507");
    header.EventPos[0] = 1300;
    header.EventText[0].Set("胸痛");
    Bytes bytes = BytesOf(header);
    bytes.resize(bytes.size() + 100);
    return Write(folder / "record", bytes) && Write(folder / "short", Bytes(100, 'x'));
}

} // namespace
} // namespace ecg::fuzz

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: fuzz_seeds FOLDER\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    const bool written =
        ecg::fuzz::WriteStreams(folder / "decoder") && ecg::fuzz::WriteSettingsFiles(folder / "settings") &&
        ecg::fuzz::WritePatientFiles(folder / "patients") && ecg::fuzz::WriteRecordFiles(folder / "record");
    if (!written)
        std::fprintf(stderr, "could not write the seeds into %s\n", argv[1]);
    return written ? 0 : 1;
}
