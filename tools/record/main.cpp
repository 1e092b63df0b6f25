// ecg-record: works on stored records without the workstation. See README.md, or --help.
#include "record/ImportCommand.h"
#include "record/MeasureCommand.h"
#include "record/PlotBeat.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace ecg {
namespace {

constexpr int exitFailure = 1;
constexpr int exitUsage = 2;

constexpr const char* help =
    R"(ecg-record import HEADER.hea DATA_FOLDER [--patient NO] [--system W|F]
ecg-record measure RECORD [--start SLOT] [--beat K] [--all]
ecg-record plot RECORD [--start SLOT] [--beat K]

import
Makes a WFDB recording a record of the data folder, as if the amplifier box had sent it: a finished
record with its beat marks, for a patient who is entered when the data folder has none of that number.
Prints the path of the record. When it fails the data folder is as it was.

  --patient NO   the patient's medical number (the first free one from RUVO00000 on)
  --system W|F   Wilson or Frank leads (Wilson; Frank when the recording has no Wilson lead)

measure
Prints what a review of the record finds of one beat, as a JSON object on one line. Its view is 4400
samples long. A record whose name ends in .F has Frank leads.

  --start SLOT   where the view begins (300, the first sample)
  --beat K       which of the beats in the view, from 0 on (1)
  --all          every beat of the record instead, a line for each, in the middle of its own view

plot
Prints a picture (SVG) of that beat in each lead with the lines of P (green), QRS (blue) and T (red).
)";

// Reasons quote what was read, which may be anything.
int Complain(std::string reason, int exitCode)
{
    constexpr char firstPrintable = ' ';
    std::ranges::replace_if(
        reason, [](char c) { return c >= 0 && c < firstPrintable; }, '?');
    std::fprintf(stderr, "ecg-record: %s\n", reason.c_str());
    return exitCode;
}

int Import(std::span<const std::string> words)
{
    const auto options = ParseImport(words);
    if (!options)
        return Complain(options.Reason() + "; see ecg-record --help", exitUsage);
    SystemClock clock;
    DiskFileSystem disk;
    const auto record = ImportRecording(*options, clock, disk);
    if (!record)
        return Complain(record.Reason(), exitFailure);
    std::printf("%s\n", record->c_str());
    return 0;
}

int Measure(std::span<const std::string> words)
{
    const auto options = ParseMeasure(words);
    if (!options)
        return Complain(options.Reason() + "; see ecg-record --help", exitUsage);
    const auto beats = MeasureRecord(*options, [](const std::string& line) { std::printf("%s\n", line.c_str()); });
    return beats ? 0 : Complain(beats.Reason(), exitFailure);
}

int Plot(std::span<const std::string> words)
{
    const auto options = ParseMeasure(words);
    if (!options || options->All)
        return Complain((options ? "plot takes one beat" : options.Reason()) + "; see ecg-record --help", exitUsage);
    const auto picture = PlotBeat(*options);
    if (!picture)
        return Complain(picture.Reason(), exitFailure);
    std::printf("%s", picture->c_str());
    return 0;
}

int Main(const std::vector<std::string>& words)
{
    if (words.empty())
        return Complain("which command? see ecg-record --help", exitUsage);
    if (words[0] == "--help" || words[0] == "-h") {
        std::fputs(help, stdout);
        return 0;
    }
    if (words[0] == "import")
        return Import(std::span(words).subspan(1));
    if (words[0] == "measure")
        return Measure(std::span(words).subspan(1));
    if (words[0] == "plot")
        return Plot(std::span(words).subspan(1));
    return Complain("unknown command " + words[0] + "; see ecg-record --help", exitUsage);
}

}  // namespace
}  // namespace ecg

int main(int argc, char** argv)
{
    return ecg::Main({argv + std::min(argc, 1), argv + argc});
}
