// Writes the inputs that fuzzing starts from: `fuzz_seeds FOLDER` fills a folder for each target in FOLDER.
#include "analysis/KnownBeats.h"
#include "box/WireFrame.h"
#include "core/Settings.h"
#include "core/formats/PatientRecord.h"
#include "core/formats/RecordHeader.h"

#include <algorithm>
#include <array>
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
    std::filesystem::create_directories(file.parent_path());
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
    Bytes bytes{0, 0, 15};
    AppendFrame(bytes, 0, FrameType::LeadOff, 0, ZeroLevel);
    bytes.insert(bytes.end(), quietFrames, 0x80 | ZeroLevel / 64);
    bytes.insert(bytes.end(), 3, 0x80 | 3000 / 64);
    return bytes;
}

template <class Record>
Bytes BytesOf(const Record& record)
{
    const auto* first = reinterpret_cast<const std::uint8_t*>(&record);
    return {first, first + sizeof record};
}

Bytes SettingsSeed()
{
    SysInfo settings;
    LoadFactorySettings(settings, FactoryGroup::All, true);
    settings.HospitalName.Set("人民医院 General");
    settings.DoctorNames[0].Set("王医生");
    return BytesOf(settings);
}

// A number, a quick patient, a deleted slot, and a number that would lead out of the folder.
Bytes PatientsSeed()
{
    Bytes bytes;
    for (const char* number : {"12", "RUVO00001", "", "../up"}) {
        PatientRecord patient;
        patient.No.Set(number);
        patient.Name.Set("张三*");
        patient.BirthYear.Set("1980");
        const Bytes record = BytesOf(patient);
        bytes.insert(bytes.end(), record.begin(), record.end());
    }
    return bytes;
}

Bytes RecordSeed()
{
    RecordHeader header;
    header.ExamTime.Set("20260309080507");
    header.EventPos[0] = 1300;
    header.EventText[0].Set("胸痛");
    Bytes bytes = BytesOf(header);
    bytes.resize(bytes.size() + 100);
    return bytes;
}

// Two beats, the second one in the middle, the first sample on view; Wilson or Frank leads.
Bytes ReviewSeed(std::uint8_t kind)
{
    struct Control {
        Int32 CenterSlot{300 + knownFirstBeat + knownInterval};
        Int32 BlockStart{300};
    };
    Bytes bytes = BytesOf(Control{});
    bytes.push_back(kind);
    const Bytes header = BytesOf(RecordHeader{});
    bytes.insert(bytes.end(), header.begin(), header.end());
    bytes.resize(bytes.size() + 4);
    for (const Frame& frame : KnownFrames(900)) {
        const Bytes sample = BytesOf(ToSample(frame));
        bytes.insert(bytes.end(), sample.begin(), sample.end());
    }
    return bytes;
}

// A recording in the folder of `fuzz_import`: the lead system, the patient, the header, and two signals' samples.
Bytes ImportSeed(char system, const std::string& patient, const std::string& header)
{
    constexpr int samples = 120;
    const std::string words = system + patient + '\0' + header + '\0';
    Bytes bytes(words.begin(), words.end());
    for (int i = 0; i < samples; ++i)
        bytes.push_back(static_cast<std::uint8_t>(i % 40 == 20 ? 0x40 : i % 7));
    return bytes;
}

bool WriteImportSeeds(const std::filesystem::path& folder)
{
    return Write(folder / "wilson",
                 ImportSeed('\0', "", "r 2 500 30\na 16 200 16 0 0 0 0 ii\na 16 200 16 0 0 0 0 v1\n")) &&
           Write(folder / "packed",
                 ImportSeed('\1', "病7", "r 1 360\n# 69 M\nb 212+4 200(1024)/uV 11 1024 0 0 0 MLII\n")) &&
           Write(folder / "frank",
                 ImportSeed('\2', "42",
                            "r 3 1000 9\na 16 1e3 16 0 0 0 0 vx\na 16 0 16 0 0 0 0 vy\nb 16 0 16 0 0 0 0 z\n"));
}

bool WriteSeeds(const std::filesystem::path& folder)
{
    constexpr std::array<std::uint8_t, 5> kinds{0, 1, 2, 4, 6};  // each statistic once
    for (const std::uint8_t kind : kinds)
        if (!Write(folder / ("analysis/" + std::to_string(kind)), ReviewSeed(kind)))
            return false;
    return Write(folder / "decoder/wilson", StreamSeed(0x5A, 0, 15)) &&
           Write(folder / "decoder/frank", StreamSeed(0xC3, 1, 0)) && Write(folder / "decoder/beat", BeatSeed()) &&
           WriteImportSeeds(folder / "import") && Write(folder / "patients/patients", PatientsSeed()) &&
           Write(folder / "record/record", RecordSeed()) && Write(folder / "settings/factory", SettingsSeed()) &&
           Write(folder / "settings/ones", Bytes(sizeof(SysInfo), 0xFF));
}

}  // namespace
}  // namespace ecg::fuzz

int main(int argc, char** argv)
{
    if (argc == 2 && ecg::fuzz::WriteSeeds(argv[1]))
        return 0;
    std::fputs("usage: fuzz_seeds FOLDER, which can be written\n", stderr);
    return 1;
}
