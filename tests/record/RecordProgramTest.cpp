// The program itself: what it prints, how it ends, and that a wrong call changes nothing.
#include "HandMadeRecording.h"
#include "record/Json.h"
#include "support/FileBytes.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <sys/wait.h>

namespace ecg {
namespace {

struct Ending {
    int ExitCode = -1;
    std::string Output;
    std::string Errors;
};

class RecordProgramTest : public testing::Test {
protected:
    RecordProgramTest() { WriteHandMade(Data); }

    // Runs the program in the program folder.
    Ending Start(const std::string& arguments) const
    {
        const auto& folder = Data.Paths().Program;
        const std::string command =
            "cd '" + folder.string() + "' && '" ECG_RECORD "' " + arguments + " >output 2>errors";
        const int status = std::system(command.c_str());
        Ending run{WIFEXITED(status) ? WEXITSTATUS(status) : -1, FileBytes(folder / "output"),
                   FileBytes(folder / "errors")};
        std::filesystem::remove(folder / "output");
        std::filesystem::remove(folder / "errors");
        return run;
    }

    const TemporaryDataFolder Data;
};

TEST_F(RecordProgramTest, PrintsThePathOfEachRecord)
{
    std::array<std::string, 2> paths;
    for (std::string& path : paths) {  // within one second as a rule: the second one waits for the next
        const Ending run = Start("import --patient 42 made.hea Data --system W");
        ASSERT_EQ(run.ExitCode, 0) << run.Errors;
        path = run.Output.substr(0, run.Output.find('\n'));
        EXPECT_EQ(run.Output, path + "\n");
        EXPECT_EQ(path.substr(0, 15), "Data/000000042/");
        EXPECT_EQ(std::filesystem::file_size(Data.Paths().Program / path), 164784U);
    }
    EXPECT_NE(paths[0], paths[1]);
}

TEST_F(RecordProgramTest, MeasuresBeatsAsLinesOfJson)
{
    const auto has = [](const std::string& json, const std::string& part) {
        EXPECT_NE(json.find(part), std::string::npos) << part << " is not in " << json;
    };
    const std::string record = Start("import --patient 42 made.hea Data").Output;
    const std::string measure = "measure " + record.substr(0, record.find('\n'));
    const std::string second = Start(measure).Output;
    has(second, R"({"SlotCount":10299,"BlockStart":300,"RFlagList":[400,800,1200,)");
    has(second, R"("CenterSlot":800,"HeartRate":75,"LocateTable":[[)");
    has(second, R"("UnifiedLines":[)");
    has(second, R"("MeasuredParams":{"Complex":[")");
    has(second, R"(10000,10000],"QTc":[)");
    // The beat has next to nothing in the chest leads, and no T in I and aVL.
    has(second, R"("Diagnosis":{"zh":["胸导联低电压","冠状动脉供血不足"],)");
    has(second, R"("en":["Chest lead low voltage","Coronary insufficiency"]})");
    has(second, R"("QtStats":[)");
    has(second,
        R"("Hrv":{"Analysis":19,"MaxNN":800,"MinNN":800,"AvagNN":800,"SDNN":0,"HRV":1,"RMSD":0,"SDSD":0,"Beat":24,)");
    has(second, R"("Spectrum":{"N":240,"Marks":[)");
    EXPECT_EQ(Start(measure + " --beat 1").Output, second);
    has(Start(measure + " --start 5000 --beat 0").Output, R"("BlockStart":5000,"RFlagList":[5200,)");
    has(Start(measure + " --start 10290").Output, R"("RFlagList":[],"CenterSlot":0,"HeartRate":0,)");

    const std::string all = Start(measure + " --all").Output;
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 25);
    has(all, R"("BlockStart":300,)");
    has(all, R"("CenterSlot":10000,"HeartRate":75,)");

    EXPECT_EQ(Json("a\"\\\n\u00e9"), R"("a\"\\\u000aé")");
    EXPECT_EQ(JsonNumbers(std::array{0.1F, -2.5F, std::nanf("")}), "[0.1,-2.5,null]");
}

TEST_F(RecordProgramTest, RefusesAWrongCallInWordsAndChangesNothing)
{
    constexpr int failure = 1;
    constexpr int usage = 2;
    std::ofstream(Data.Paths().Program / "cut.hea") << "cut 2 500 100\nmade.dat 16\n";
    std::ofstream(Data.Paths().Program / "lost.hea") << "lost 1 500 100\nnone.dat 16 200 16 0 0 0 0 ii\n";
    // clang-format off
    const std::tuple<const char*, int, const char*> calls[]{
        {"", usage, "which command"}, {"print", usage, "unknown command print"},
        {"measure", usage, "takes a record"}, {"measure made.dat --start 299", usage, "300 or more"},
        {"measure made.dat --beat 50", usage, "0 to 49"}, {"measure made.dat --beat", usage, "0 to 49"},
        {"measure made.dat --beat 2x", usage, "0 to 49"}, {"measure made.dat --lead 1", usage, "unknown option --lead"},
        {"measure made.dat --all --beat 1", usage, "neither --start nor --beat"},
        {"measure none.W", failure, "cannot read none.W"}, {"measure Data", failure, "cannot read Data"},
        {"measure cut.hea", failure, "cut.hea has no samples"}, {"measure made.dat --beat 0", failure, "has 0 beats"},
        {"import", usage, "a header and a data folder"}, {"import made.hea D 3", usage, "a header and a data folder"},
        {"import made.hea Data --patient ''", usage, "medical number"},
        {"import made.hea Data --system X", usage, "W or F"},
        {"import made.hea Data --bed 3", usage, "unknown option --bed"},
        {"import made.hea Data --patient 1234567890", failure, "1234567890"},
        {"import made.hea Data --system F", failure, "no leads X, Y and Z"},
        {"import made.hea nowhere", failure, "no folder nowhere"},
        {"import made.hea made.dat", failure, "no folder made.dat"}, {"import none.hea Data", failure, "none.hea"},
        {"import cut.hea Data", failure, ""}, {"import lost.hea Data", failure, "none.dat"}};
    // clang-format on
    const auto before = FolderContent(Data.Paths().Program);
    for (const auto& [arguments, exitCode, words] : calls) {
        const Ending run = Start(arguments);
        EXPECT_EQ(run.ExitCode, exitCode) << arguments;
        EXPECT_EQ(run.Output, "") << arguments;
        EXPECT_EQ(run.Errors.rfind("ecg-record: ", 0), 0U) << arguments;
        EXPECT_NE(run.Errors.find(words), std::string::npos) << arguments << ": " << run.Errors;
        EXPECT_TRUE(FolderContent(Data.Paths().Program) == before) << arguments;
    }
}

}  // namespace
}  // namespace ecg
