// Any bytes as the settings file: whatever uses the settings comes to an end within its ranges.
#include "acquisition/DeviceLink.h"
#include "acquisition/ExamLabels.h"
#include "acquisition/FramePath.h"
#include "acquisition/LiveDisplay.h"
#include "core/Settings.h"
#include "fuzz/Require.h"
#include "support/FakeClock.h"
#include "support/FakeSerialPort.h"
#include "support/RecordingSurface.h"
#include "support/TemporaryDataFolder.h"

#include <cmath>
#include <cstring>
#include <fstream>

namespace ecg::fuzz {
namespace {

std::span<const std::uint8_t> BytesOf(const SysInfo& settings)
{
    return {reinterpret_cast<const std::uint8_t*>(&settings), sizeof settings};
}

bool Same(std::span<const std::uint8_t> one, std::span<const std::uint8_t> other)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end());
}

SysInfo FactorySettings()
{
    SysInfo settings;
    LoadFactorySettings(settings, FactoryGroup::All, true);
    return settings;
}

SysInfo ReadInput(const std::filesystem::path& file, std::span<const std::uint8_t> input)
{
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(input.data()), static_cast<std::streamsize>(input.size()));
    SysInfo settings = FactorySettings();
    Require(ReadSettings(file, settings), "a file that is there is read");
    const std::size_t known = std::min(input.size(), sizeof settings);
    const SysInfo factory = FactorySettings();
    Require(Same(BytesOf(settings).first(known), input.first(known)), "settings are what the file holds");
    Require(Same(BytesOf(settings).subspan(known), BytesOf(factory).subspan(known)),
            "what a short file lacks stays as it was");
    return settings;
}

void WriteAndReadBack(const std::filesystem::path& file, const SysInfo& settings)
{
    SysInfo again;
    Require(WriteSettings(file, settings) && ReadSettings(file, again), "settings are written");
    Require(Same(BytesOf(settings), BytesOf(again)), "settings come back as they were written");
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

// All but the reserved names, which nothing reads.
void UseTexts(const SysInfo& settings)
{
    UseText(settings.HospitalName);
    UseText(settings.HospitalAddress);
    UseText(settings.HospitalTel);
    UseText(settings.HospitalFax);
    UseText(settings.HospitalWeb);
    UseText(settings.HospitalMail);
    const auto useAll = [](const auto& fields) {
        for (const auto& field : fields)
            UseText(field);
    };
    useAll(settings.ClassName);
    useAll(settings.CustomItemName);
    useAll(settings.DoctorNames);
}

class FramePathCounter final : public FramePathSink {
public:
    void OnBeat(int) override {}
    void OnSilence() override {}
    void OnSampledTime(LeadSystem, std::int32_t) override {}
    void OnColumn(LeadSystem, const RecordSample&, bool) override { ++Columns; }

    int Columns = 0;
};

void RunFramePath(SharedState state)
{
    constexpr int frames = 100;
    FramePathCounter sink;
    FramePath path(state, sink);
    for (int i = 0; i < frames; ++i) {
        if (LeadSystemOf(state.SysInfo) == LeadSystem::Wilson)
            path.ProcessWilsonFrame(Frame{});
        else
            path.ProcessFrankFrame(Frame{});
    }
    Require(sink.Columns >= frames / 10 - 1 && sink.Columns <= frames / 2, "columns come at an offered speed");
}

class BlindView final : public LiveDisplayView {
public:
    void MoveLeadCaption(LeadSystem, std::size_t, int, int) override {}
    void RepaintLeadCaptions() override {}
    void TraceChanged(int, int) override {}
};

void DrawDisplay(const SharedState& state)
{
    constexpr double size = 100; // pixels
    constexpr int columns = 30;  // over the calibration pulse
    RecordingSurface grid(size, size);
    RecordingSurface trace(size, size);
    BlindView view;
    LiveDisplay display(state.SysInfo, view);
    display.UseSurfaces(grid, trace);
    display.DrawGrid();
    display.LayoutLeadRows();
    for (int i = 0; i < columns; ++i) {
        const Colour colour = display.PickTraceColour(state.ExamState, false);
        if (LeadSystemOf(state.SysInfo) == LeadSystem::Wilson)
            display.DrawWilsonColumn(RecordSample{}, colour, false);
        else
            display.DrawFrankColumn(RecordSample{}, colour, false);
    }
    for (const auto& line : trace.Lines)
        Require(std::isfinite(line.From.Y) && std::isfinite(line.To.Y), "lines have an end");
}

void SpeakToBox(SharedState state)
{
    FakeClock clock;
    FakeSerialPort port;
    port.Existing[1] = true;
    port.Open(1);
    state.DevicePort = 1;
    DeviceLink link(state, port, clock);
    link.SendFilters();
    link.ReturnBaseline();
    Require(port.Written.size() == 2, "filters and baseline return are sent");
    for (const auto& packet : port.Written)
        Require(packet.size() == wire::CommandSize &&
                    packet.back() == wire::Checksum(std::span(packet).first(wire::CommandSize - 1)),
                "packets are whole");
}

void UseSettings(const SysInfo& settings)
{
    SharedState state;
    state.SysInfo = settings;
    state.DerivePrintColours();
    Require(LiveGainIndex(settings) < 3 && LiveSpeedIndex(settings) < 3, "the live display has three gains and speeds");
    for (const auto exam : {ExamState::Waiting, ExamState::Ready, ExamState::Sampling}) {
        state.ExamState = exam;
        const ExamLabels labels = DescribeExamination(state);
        Require(!labels.Title.empty() && labels.Ticker.empty() == (exam != ExamState::Sampling),
                "the examination is described");
    }
    UseTexts(settings);
    RunFramePath(state);
    DrawDisplay(state);
    SpeakToBox(state);
}

} // namespace
} // namespace ecg::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const ecg::TemporaryDataFolder folder;
    const auto file = folder.File(ecg::SettingsFileName);
    const ecg::SysInfo settings = ecg::fuzz::ReadInput(file, {data, size});
    ecg::fuzz::UseSettings(settings);
    ecg::fuzz::WriteAndReadBack(file, settings);
    return 0;
}
