// The bytes of a file and of what should be in it, as strings that a test can compare.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace ecg {

// Empty when there is no file.
inline std::string FileBytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The bytes of fixed records one behind the other.
template <class Record>
std::string BytesOf(const std::vector<Record>& records)
{
    return {reinterpret_cast<const char*>(records.data()), records.size() * sizeof(Record)};
}

} // namespace ecg
