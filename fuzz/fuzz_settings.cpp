// Any bytes as the settings file: whatever uses the settings comes to an end within its ranges.
#include "acquisition/ExamLabels.h"
#include "acquisition/LiveMonitor.h"
#include "core/SettingsBytes.h"
#include "fuzz/Require.h"
#include "support/FakeBox.h"
#include "support/RecordingSurface.h"
#include "support/RecordingView.h"
#include "support/ScriptedMessageBox.h"
#include "support/TemporaryDataFolder.h"

#include <cmath>
#include <fstream>

namespace ecg::fuzz {
namespace {

SysInfo ReadInput(const std::filesystem::path& file, std::span<const std::uint8_t> input)
{
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(input.data()), static_cast<std::streamsize>(input.size()));
    SysInfo settings = FactorySettings();
    Require(ReadSettings(file, settings), "a file that is there is read");
    SysInfo expected = FactorySettings();
    std::copy_n(input.begin(), std::min(input.size(), sizeof expected), reinterpret_cast<std::uint8_t*>(&expected));
    Require(FirstDifference(settings, expected) == NoDifference, "settings are the file, and behind its end as before");
    return settings;
}

void WriteAndReadBack(const std::filesystem::path& file, const SysInfo& settings)
{
    SysInfo again;
    Require(WriteSettings(file, settings) && ReadSettings(file, again), "settings are written");
    Require(FirstDifference(settings, again) == NoDifference, "settings come back as they were written");
}

template <std::size_t Width>
void UseText(const FixedText<Width>& field)
{
    const std::string text = field.Text();
    FixedText<Width> copy;
    copy.Set(text);
    Require(copy.Text() == text, "a text that was read fits its field again");
    FixedText<Width / 2> narrow;
    narrow.Set(text);
    Require(text.starts_with(narrow.Text()), "a text is cut at the edge of a character");
}

void UseTexts(const SysInfo& settings)
{
    UseText(settings.HospitalName);
    UseText(settings.HospitalAddress);
    UseText(settings.HospitalTel);
    UseText(settings.HospitalMail);
    for (const auto& name : settings.ClassName)
        UseText(name);
    for (const auto& name : settings.CustomItemName)
        UseText(name);
}

void DescribeExaminations(SharedState state)
{
    for (const auto exam : {ExamState::Waiting, ExamState::Ready, ExamState::Sampling}) {
        state.ExamState = exam;
        const ExamLabels labels = DescribeExamination(state);
        Require(!labels.Title.empty() && labels.Ticker.empty() == (exam != ExamState::Sampling),
                "the examination is described");
    }
}

// A box answers, streams for a moment and is asked for its baseline, as after any start.
void Stream(SharedState state)
{
    constexpr double width = 200;  // pixels, more than columns
    constexpr double height = 100;
    constexpr int frames = 300;  // over the calibration pulse at each speed
    FakeClock clock;
    FakeSerialPort port;
    FakeBox box(port, clock);
    ScriptedMessageBox messages;
    RecordingView view;
    RecordingSurface grid(width, height);
    RecordingSurface trace(width, height);
    LiveMonitor monitor(state, port, clock, messages, view);
    monitor.Display().UseSurfaces(grid, trace);
    monitor.Display().LayoutLeadRows();
    box.Plug(1);
    monitor.FindBox();
    monitor.SelectLeadSystem(static_cast<int>(LeadSystemOf(state.SysInfo)));
    monitor.ComeToFront();
    box.Stream(LevelFrame(ZeroLevel));
    const int start = monitor.Display().SweepX();
    port.Send(Scrambled(Bytes(frames, 0x80 | ZeroLevel / 64), box.Key));  // start bytes alone are frames too
    const int columns = monitor.Display().SweepX() - start;
    monitor.ReturnBaseline();

    Require(columns >= frames / 10 - 1 && columns <= frames / 2, "columns come at an offered speed");
    for (const auto& line : trace.Lines)
        Require(std::isfinite(line.From.Y) && std::isfinite(line.To.Y), "lines have an end");
    for (const auto& packet : port.Written)
        Require(packet == CommandBytes(packet.at(4), {packet.at(5), packet.at(6), packet.at(7)}), "packets are whole");
}

}  // namespace
}  // namespace ecg::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const ecg::TemporaryDataFolder folder;
    const auto file = folder.File(ecg::SettingsFileName);
    ecg::SharedState state;
    state.SysInfo = ecg::fuzz::ReadInput(file, {data, size});
    state.DerivePrintColours();
    ecg::fuzz::WriteAndReadBack(file, state.SysInfo);
    ecg::fuzz::UseTexts(state.SysInfo);
    ecg::fuzz::DescribeExaminations(state);
    ecg::fuzz::Stream(state);
    return 0;
}
