// ecg-demo-data FOLDER: writes the demonstration files into a folder. Exit code 0 when all stand, 1 when one could not
// be written, 2 for a wrong call.
#include "demo/DemoFiles.h"

#include <cstdio>
#include <exception>

int main(int argc, char** argv)
try {
    if (argc != 2 || argv[1][0] == '\0' || argv[1][0] == '-') {
        std::fputs("usage: ecg-demo-data FOLDER\n"
                   "Writes EcgTest.dat, VcgTest.dat and Color.dat into FOLDER.\n",
                   stderr);
        return 2;
    }
    const auto failed = ecg::WriteDemoFiles(argv[1]);
    for (const auto& path : failed)
        std::fprintf(stderr, "ecg-demo-data: cannot write %s\n", path.c_str());
    return failed.empty() ? 0 : 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "ecg-demo-data: %s\n", error.what());
    return 1;
}
