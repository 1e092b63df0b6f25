// A program folder with an empty data folder, gone at the end of the test.
#pragma once

#include "core/DataFolder.h"

#include <cstdlib>
#include <filesystem>
#include <string>

namespace ecg {

class TemporaryDataFolder {
public:
    TemporaryDataFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "ecg-test-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            std::abort();
        folders_ = OpenDataFolder(name);
    }
    TemporaryDataFolder(const TemporaryDataFolder&) = delete;
    TemporaryDataFolder& operator=(const TemporaryDataFolder&) = delete;
    ~TemporaryDataFolder()
    {
        std::error_code error;
        std::filesystem::remove_all(folders_.Program, error);
    }

    const Folders& Paths() const { return folders_; }
    std::filesystem::path File(const char* name) const { return folders_.Data / name; }

private:
    Folders folders_;
};

}  // namespace ecg
