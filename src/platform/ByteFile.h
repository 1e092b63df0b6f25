// A file as bytes at offsets. Everything that reads or writes stored data goes through this interface, so that a
// test can put a file in its place that fails after so many bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>

namespace ecg {

class ByteFile {
public:
    virtual ~ByteFile() = default;

    // Reads up to `bytes.size()` bytes; returns how many there were.
    virtual std::size_t ReadAt(std::int64_t offset, std::span<std::byte> bytes) = 0;

    // False when not all bytes could be written.
    virtual bool WriteAt(std::int64_t offset, std::span<const std::byte> bytes) = 0;

    virtual std::int64_t Size() = 0;

    // Brings what was written to the disk itself.
    virtual bool Flush() = 0;
};

enum class OpenMode {
    Read,       // the file must exist
    ReadWrite,  // the file is made when it does not exist
};

// Opens a file of the disk; null when that fails.
std::unique_ptr<ByteFile> OpenFile(const std::filesystem::path& path, OpenMode mode);

// `OpenFile`, or what a test puts in its place.
using FileOpener = std::function<std::unique_ptr<ByteFile>(const std::filesystem::path&, OpenMode)>;

// Puts `bytes` in the place of the whole file: written aside, flushed, then renamed over the old one, so that a
// crash leaves the one or the other. False when the old file stands unchanged.
bool ReplaceFile(const std::filesystem::path& path, std::span<const std::byte> bytes);

// Brings the names in `folder` to the disk: a rename lives in the folder, not in the file.
void FlushFolder(const std::filesystem::path& folder);

}  // namespace ecg
