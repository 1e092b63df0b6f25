// Imported recordings: their bytes and marks, and a data folder that a failed import leaves as it was.
#include "record/ImportRecording.h"

#include "HandMadeRecording.h"
#include "acquisition/BeatDetector.h"
#include "support/FailingFile.h"
#include "support/FakeClock.h"
#include "support/FileBytes.h"
#include "wfdb/Annotations.h"
#include "wfdb/RecordingFrames.h"
#include "wfdb/WholeFile.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>

namespace ecg {
namespace {

constexpr std::size_t firstSampleByte = 4784;
const std::filesystem::path sharedData = ECG_SHARED_DATA;

class ImportTest : public testing::Test {
protected:
    Outcome<std::filesystem::path> Import(const std::filesystem::path& header, std::optional<LeadSystem> system = {},
                                          std::optional<std::string> patient = {})
    {
        return ImportRecording({header, Data.Paths().Data, std::move(patient), system}, Clock, Disk);
    }

    const TemporaryDataFolder Data;
    FakeClock Clock;
    FailingDevice Device;
    DiskFileSystem Disk{Device.Opener()};
};

std::vector<RecordSample> SamplesOf(const std::filesystem::path& record)
{
    const std::string bytes = FileBytes(record).substr(firstSampleByte);
    std::vector<RecordSample> samples(bytes.size() / sizeof(RecordSample));
    std::memcpy(samples.data(), bytes.data(), samples.size() * sizeof(RecordSample));
    return samples;
}

// The frames with the marks of a detector that has seen the first three seconds backwards.
std::vector<RecordSample> Marked(const std::vector<Frame>& frames, int channel)
{
    BeatDetector detector;
    for (std::size_t i = 1500; i > 0; --i)
        detector.DetectBeat(frames[i - 1], channel);
    std::vector<RecordSample> samples;
    for (const Frame& frame : frames)
        samples.push_back(detector.DetectBeat(frame, channel).Marked);
    return samples;
}

TEST_F(ImportTest, MakesAFinishedRecordOfANewPatient)
{
    const auto record = Import(WriteHandMade(Data));
    ASSERT_TRUE(record) << record.Reason();
    EXPECT_EQ(*record, Data.File("RUVO00000/20260309080507.W"));
    const std::string bytes = FileBytes(*record);
    ASSERT_EQ(bytes.size(), 164784U);
    EXPECT_EQ(bytes.substr(0, 14), "20260309080507");
    EXPECT_EQ(bytes.substr(50, 2), std::string("\0\1", 2)) << "factory gain and speed";
    EXPECT_EQ(bytes.substr(4748, 8), std::string("0   \0\0  ", 8)) << "nothing is known of the patient";

    auto frames = HandMadeFrames();
    for (std::size_t i = firstSpike; i < frames.size(); i += spikeInterval)
        frames[i][0] = static_cast<std::int16_t>(frames[i][0] - 32768);
    std::vector<RecordSample> expected;
    for (const Frame& frame : frames)
        expected.push_back(ToSample(frame));
    EXPECT_TRUE(SamplesOf(*record) == expected) << "every beat marked on its spike, the first one too";
    EXPECT_EQ(FileBytes(Data.File("Patient.lib")).substr(0, 35),
              "RUVO00000" + std::string(16, ' ') + '\0' + "0   " + std::string(2, '\0') + "   ");
    EXPECT_EQ(std::filesystem::file_size(Data.File("Patient.lib")), 238U);
}

TEST_F(ImportTest, NeverWritesOverARecordOfTheSameSecond)
{
    const auto header = WriteHandMade(Data);
    ASSERT_TRUE(Import(header, {}, "7"));
    const auto before = FolderContent(Data.Paths().Data);
    const auto again = Import(header, {}, "007");
    EXPECT_EQ(again.Reason(), "the patient already has a record of this second");
    EXPECT_EQ(FolderContent(Data.Paths().Data), before);
    ++Clock.Calendar.Second;
    const auto later = Import(header, {}, "007");
    ASSERT_TRUE(later) << later.Reason();
    EXPECT_EQ(*later, Data.File("000000007/20260309080508.W"));
    EXPECT_EQ(std::filesystem::file_size(Data.File("Patient.lib")), 238U) << "one patient";
}

TEST_F(ImportTest, LeavesTheFolderAsItWasOnADeviceThatFailsAnywhere)
{
    constexpr std::int64_t recordBytes = 4784 + 160000 + 4780;
    const auto header = WriteHandMade(Data);
    for (const bool hasPatients : {false, true}) {
        if (hasPatients)
            std::ofstream(Data.File("Patient.lib")) << std::string(238, 'x');
        const auto before = FolderContent(Data.Paths().Data);
        for (const std::int64_t takes : {0L, 100L, 4784L, 90000L, 164784L, recordBytes, recordBytes + 237}) {
            Device.BytesLeft = takes;
            EXPECT_FALSE(Import(header)) << takes;
            EXPECT_TRUE(FolderContent(Data.Paths().Data) == before) << takes;
        }
    }
    std::ofstream(Data.File("Patient.lib"), std::ios::app) << "a piece of a record";
    Device.BytesLeft = recordBytes + 238;
    EXPECT_TRUE(Import(header));
    EXPECT_EQ(FileBytes(Data.File("Patient.lib")).substr(230, 17), "xxxxxxxxRUVO00000") << "in place of the piece";
}

TEST_F(ImportTest, HasTheBoxesFramesAndAnIndependentRunsMarks)
{
    if (!std::filesystem::exists(sharedData))
        GTEST_SKIP() << "the public recordings are not at hand";
    const auto recording = LoadRecording(sharedData / "s0010_re.hea");
    ASSERT_TRUE(recording) << recording.Reason();
    const auto wilson = Import(sharedData / "s0010_re.hea", LeadSystem::Wilson, "1");
    const auto frank = Import(sharedData / "s0010_re.hea", LeadSystem::Frank, "1");
    ASSERT_TRUE(wilson && frank) << wilson.Reason() << frank.Reason();
    EXPECT_EQ(std::filesystem::file_size(*wilson), 4784U + 19200 * 16);
    EXPECT_TRUE(SamplesOf(*wilson) == Marked(WilsonFrames(*recording), 0)) << "II is watched";
    EXPECT_TRUE(SamplesOf(*frank) == Marked(FrankFrames(*recording), 1)) << "Y is watched";
}

TEST_F(ImportTest, MarksTheBeatsThatAPersonSaw)
{
    if (!std::filesystem::exists(sharedData))
        GTEST_SKIP() << "the public recordings are not at hand";
    constexpr double framesPerSample = 500.0 / 360;
    constexpr double window = 75;  // frames: the usual 150 ms
    const auto record = Import(sharedData / "100.hea");
    ASSERT_TRUE(record) << record.Reason();
    std::vector<double> marks;
    double frame = 0;
    for (const RecordSample& sample : SamplesOf(*record)) {
        if ((sample.Words[0] & BeatMark) != 0)
            marks.push_back(frame);
        ++frame;
    }
    const auto bytes = ReadWholeFile(sharedData / "100.atr", 1 << 20);
    ASSERT_TRUE(bytes) << bytes.Reason();
    std::size_t beats = 0;
    std::size_t found = 0;
    std::size_t next = 0;  // each mark is good for one beat
    for (const Annotation& annotation : ParseAnnotations(*bytes)) {
        if (!IsBeat(annotation.Code))
            continue;
        const double at = static_cast<double>(annotation.Sample) * framesPerSample;
        ++beats;
        while (next < marks.size() && marks[next] < at - window)
            ++next;
        if (next < marks.size() && marks[next] <= at + window) {
            ++found;
            ++next;
        }
    }
    ASSERT_EQ(beats, 2273U);
    std::printf("%zu of %zu beats marked, %zu marks\n", found, beats, marks.size());
    EXPECT_GE(static_cast<double>(found), 0.99 * static_cast<double>(beats)) << "sensitivity";
    EXPECT_GE(static_cast<double>(found), 0.99 * static_cast<double>(marks.size())) << "positive predictivity";
}

}  // namespace
}  // namespace ecg
