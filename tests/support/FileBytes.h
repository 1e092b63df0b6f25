// The bytes of files and of what should be in them, as strings that a test can compare.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

namespace ecg {

// Empty when there is no file.
inline std::string FileBytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The bytes of each file in a folder and below, by path, and "folder" for each folder.
inline std::map<std::string, std::string> FolderContent(const std::filesystem::path& folder)
{
    std::map<std::string, std::string> content;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        content[entry.path().string()] = entry.is_directory() ? "folder" : FileBytes(entry.path());
    return content;
}

// The bytes of fixed records one behind the other.
template <class Record>
std::string BytesOf(const std::vector<Record>& records)
{
    return {reinterpret_cast<const char*>(records.data()), records.size() * sizeof(Record)};
}

}  // namespace ecg
