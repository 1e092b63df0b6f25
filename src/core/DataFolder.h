// Where the files are: the program folder and its data folder.
#pragma once

#include <filesystem>
#include <string_view>

namespace ecg {

struct Folders {
    std::filesystem::path Program;
    std::filesystem::path Data;  // the working directory of the whole run

    // The file of a stored path: relative to the data folder, UTF-8, its pieces joined by backslashes.
    std::filesystem::path File(std::string_view storedPath) const;
};

// Finds the data folder of `program`, spelled "Data" or "data", or makes "Data". The folder's path is set even when
// it could not be made; every later file operation then fails and is passed over.
Folders OpenDataFolder(const std::filesystem::path& program);

}  // namespace ecg
