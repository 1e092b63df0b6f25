// Records as bytes on the disk, and what the writer tells of a disk that fails.
#include "acquisition/RecordWriter.h"

#include "acquisition/FramePath.h"
#include "support/EncodeFrames.h"
#include "support/FailingFile.h"
#include "support/FileBytes.h"
#include "support/TemporaryDataFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace ecg {
namespace {

constexpr std::size_t firstSampleByte = 4784;
constexpr CalendarTime start{2026, 3, 9, 1, 8, 5, 7};

class RecordWriterTest : public testing::Test, private FramePathSink, private SamplingSink {
protected:
    RecordWriterTest()
    {
        State.Folders = Data.Paths();
        State.CurrentPatient.No.Set("123");
    }

    // A whole sampling of `frames` in the lead system of the settings.
    RecordOutcome Record(const std::vector<Frame>& frames)
    {
        Writer.Open(start);
        Sample(frames);
        return Writer.Close();
    }

    void Sample(const std::vector<Frame>& frames)
    {
        FramePath path(State, *this);
        path.SetSamplingSink(this);
        State.ExamState = ExamState::Sampling;
        for (const Frame& frame : frames)
            LeadSystemOf(State.SysInfo) == LeadSystem::Wilson ? path.ProcessWilsonFrame(frame)
                                                              : path.ProcessFrankFrame(frame);
        State.ExamState = ExamState::Waiting;
    }

    std::string Bytes(const char* path) const { return FileBytes(Data.File(path)); }

    const TemporaryDataFolder Data;
    FailingDevice Device;
    SharedState State;
    RecordWriter Writer{State, Device.Opener()};

private:
    void WriteSample(std::int32_t slot, const RecordSample& sample) override { Writer.WriteSample(slot, sample); }
    void LimitReached() override {}
    void OnBeat(int) override {}
    void OnSilence() override {}
    void OnSampledTime(LeadSystem, std::int32_t) override {}
    void OnColumn(LeadSystem, const RecordSample&, bool) override {}
};

const char* const wilsonPath = "000000123/20260309080507.W";

std::string SampleBytes(const std::vector<Frame>& frames)
{
    std::vector<RecordSample> samples;
    for (const Frame& frame : frames)
        samples.push_back(ToSample(frame));
    return BytesOf(samples);
}

TEST_F(RecordWriterTest, TwentySecondsOfWilsonAreTheFramesAndTheirMarks)
{
    auto frames = BeatFrames(10000, {500, 1000, 1400, 9000, 9999});
    EXPECT_EQ(Record(frames), (RecordOutcome{"000000123\\20260309080507.W", 10000, 0, true, true}));
    EXPECT_EQ(State.RecordPath, "000000123\\20260309080507.W");
    EXPECT_EQ(State.RecordNo, 10300);
    EXPECT_EQ(State.SampledFrames, 10000);
    const std::string bytes = Bytes(wilsonPath);
    ASSERT_EQ(bytes.size(), 164784U);
    for (const std::size_t beat : {500U, 1000U, 1400U, 9000U, 9999U})
        frames[beat][0] = static_cast<std::int16_t>(400 - 32768);
    EXPECT_TRUE(bytes.substr(firstSampleByte) == SampleBytes(frames));
    EXPECT_EQ(bytes.substr(4780, 4), std::string(4, '\0'));
}

TEST_F(RecordWriterTest, HeaderHasEveryFieldAtItsOffset)
{
    State.CurrentHeader.Department.Set("内科");
    State.CurrentHeader.Bed.Set("12");
    State.CurrentHeader.DoctorNote[5].Set("of the record before");
    State.CurrentHeader.EventPos[45] = 9;
    State.CurrentHeader.EventText[45].Set("of the record before");
    State.CurrentHeader.SavedStart = 999;
    Writer.Open(start);
    EXPECT_EQ(Bytes(wilsonPath), std::string(firstSampleByte, '\0')) << "no header before the end";
    State.CurrentHeader.EventPos[0] = 0x01020304;
    State.CurrentHeader.EventText[0].Set("cough");
    State.SysInfo.GainIndex = 2;
    State.SysInfo.SpeedIndex = 0x0101;
    State.SysInfo.FilterOn = {1, 0, 1};
    State.SysInfo.LeadShow = {1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 1};
    State.CurrentPatient.Name.Set("王芳");
    State.CurrentPatient.Sex = 1;
    State.CurrentPatient.BirthYear.Set("1980");
    State.CurrentPatient.Height = 165;
    State.CurrentPatient.Weight = 54;
    State.DoctorName = "Dr Li";
    Writer.Close();

    std::string header(firstSampleByte, ' ');
    const auto put = [&header](std::size_t offset, const std::string& bytes) {
        header.replace(offset, bytes.size(), bytes);
    };
    put(0, "20260309080507\xC4\xDA\xBF\xC6");
    put(38, "12");
    put(50, std::string("\2\1\1\0\1\1\0\1\0\1\0\1\0\1\0\1\1", 17));
    put(3067, "\4\3\2\1" + std::string(45 * 4, '\0'));
    put(3251, "cough");
    put(4263, std::string(4 + 1 + 432 + 1, '\0'));
    put(4731, "\xCD\xF5\xB7\xBC");
    put(4747, "\1"
              "1980\xA5\x36");
    put(4756, "Dr Li");
    put(4780, std::string(4, '\0'));
    EXPECT_EQ(Bytes(wilsonPath), header);
}

TEST_F(RecordWriterTest, TellsWhatADeviceTookThatFailsAfterSoManyBytes)
{
    constexpr std::int64_t samples = 10;
    constexpr std::int64_t header = 4780;
    constexpr std::int64_t sampleEnd = firstSampleByte + samples * 16;
    const auto frames = SineFrames(samples);
    for (const std::int64_t takes : {0L, 1L, 4783L, 4784L, 4799L, 4800L, 4801L, sampleEnd - 1, sampleEnd,
                                     sampleEnd + header - 1, sampleEnd + header}) {
        Device.BytesLeft = takes;
        const RecordOutcome outcome = Record(frames);
        const auto onDisk = std::clamp<std::int64_t>((takes - 4784) / 16, 0, samples);
        EXPECT_EQ(outcome.SamplesOnDisk, onDisk) << takes;
        EXPECT_EQ(outcome.SamplesLost, samples - onDisk) << takes;
        EXPECT_EQ(outcome.HeaderOnDisk, takes == sampleEnd + header) << takes;
        EXPECT_EQ(outcome.IsWhole(), outcome.HeaderOnDisk) << takes;
        EXPECT_EQ(State.SampledFrames, samples) << "the sampling goes on";
        const auto file = Bytes(wilsonPath);
        const auto length = static_cast<std::size_t>(onDisk) * 16;
        ASSERT_GE(file.size() + (onDisk == 0 ? firstSampleByte : 0), firstSampleByte + length);
        EXPECT_EQ(file.substr(std::min(file.size(), firstSampleByte), length), SampleBytes(frames).substr(0, length));
        std::filesystem::remove(Data.File(wilsonPath));
    }
}

TEST_F(RecordWriterTest, LeavesAGapWhereADeviceFailedForAWhile)
{
    Writer.Open(start);
    Sample({LevelFrame(1)});
    Device.BytesLeft = 5;
    Sample({LevelFrame(2), LevelFrame(3)});
    Device.BytesLeft = 100000;
    Device.Flushes = false;
    Sample({LevelFrame(4)});
    EXPECT_EQ(Writer.Close(), (RecordOutcome{"000000123\\20260309080507.W", 2, 2, true, false}));
    const std::string file = Bytes(wilsonPath);
    EXPECT_EQ(file.substr(firstSampleByte, 16), SampleBytes({LevelFrame(1)}));
    EXPECT_EQ(file.substr(firstSampleByte + 48), SampleBytes({LevelFrame(4)}));
}

TEST_F(RecordWriterTest, CountsAllAsLostWithoutAFile)
{
    const RecordOutcome nothing{"000000123\\20260309080507.W", 0, 4, false, false};
    Device.Opens = false;
    EXPECT_EQ(Record(SineFrames(4)), nothing);

    Device.Opens = true;
    Writer.Open(start);
    Sample(SineFrames(4));
    std::filesystem::remove_all(Data.File("000000123"));
    EXPECT_EQ(Writer.Close(), nothing) << "the folder vanished with all that was written";
    EXPECT_FALSE(std::filesystem::exists(Data.File("000000123")));

    std::ofstream(Data.File("000000123")) << "a file where the folder should be";
    EXPECT_FALSE(Writer.Open(start));
    Sample(SineFrames(4));
    EXPECT_EQ(Writer.Close(), nothing);
}

TEST_F(RecordWriterTest, WritesNowhereElse)
{
    State.CurrentPatient.No.Set("../x");
    Record(SineFrames(1));
    EXPECT_EQ(Bytes(".._x/20260309080507.W").size(), firstSampleByte + 16);
    State.CurrentPatient.No = {};
    Record(SineFrames(1));
    EXPECT_EQ(Bytes("20260309080507.W").size(), firstSampleByte + 16) << "without a number there is no folder";
    Writer.Open(start);
    Writer.WriteSample(299, ToSample(LevelFrame(1)));
    EXPECT_EQ(Writer.Close().SamplesLost, 1) << "the header's place is no sample's";
}

TEST_F(RecordWriterTest, SamplingAgainLeavesTheFolderAndAFinishedRecordAndOneOfTheSameSecondGoesOverIt)
{
    Writer.Open(start);
    Sample(SineFrames(20));
    EXPECT_TRUE(Writer.Delete());
    EXPECT_TRUE(std::filesystem::is_empty(Data.File("000000123")));
    Record(std::vector<Frame>(3, LevelFrame(1)));
    EXPECT_TRUE(Writer.Delete());
    State.DoctorName = "the second";
    Record({LevelFrame(2)});
    const std::string file = Bytes(wilsonPath);
    EXPECT_EQ(file.substr(4756, 10), "the second");
    EXPECT_EQ(file.substr(firstSampleByte), SampleBytes({LevelFrame(2), LevelFrame(1), LevelFrame(1)}));
}

}  // namespace
}  // namespace ecg
