// The folders of patients below the data folder. A folder bears the formatted number of its patient; a number typed in
// other letter cases finds the same folder.
#pragma once

#include "platform/FileSystem.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ecg {

class PatientFolders {
public:
    // `files` must outlive this object.
    PatientFolders(FileSystem& files, std::filesystem::path data) : files_(files), data_(std::move(data)) {}

    // The folder of `number`: the one that exists, else the one that would be made. Empty for a blank number.
    std::filesystem::path PathOf(std::string_view number) const;

    bool Exists(std::string_view number) const;

    // True when the folder stands afterwards.
    bool Make(std::string_view number);

    // Plain files of the folder, sorted by name; none when it does not exist.
    std::vector<std::string> Files(std::string_view number) const;
    std::int32_t CountFiles(std::string_view number) const;

private:
    FileSystem& files_;
    std::filesystem::path data_;
};

// All folders of the data folder, read at once: what exists is known without asking for each of 100,000.
class FolderIndex {
public:
    explicit FolderIndex(const std::filesystem::path& data);

    bool Has(std::string_view number) const { return Find(number) != nullptr; }
    std::int32_t CountFiles(std::string_view number) const;

private:
    const std::string* Find(std::string_view number) const;

    std::filesystem::path data_;
    std::unordered_map<std::string, std::string> names_;  // by upper case
};

}  // namespace ecg
