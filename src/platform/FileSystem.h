// Files and folders as things that are made, renamed and removed. Work that changes several of them goes through this
// interface, so that a test can stop it after any step, as a crash would.
#pragma once

#include "platform/ByteFile.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace ecg {

class FileSystem {
public:
    virtual ~FileSystem() = default;

    // Null when the file cannot be opened.
    virtual std::unique_ptr<ByteFile> Open(const std::filesystem::path& path, OpenMode mode) = 0;

    // Gives a file or folder another name at once, and has the disk confirm it. A file takes the place of the one that
    // had the name; a folder only that of an empty one.
    virtual bool Rename(const std::filesystem::path& from, const std::filesystem::path& to) = 0;

    // Removes a file or an empty folder. False when it is still there, or never was.
    virtual bool Remove(const std::filesystem::path& path) = 0;

    // True when the folder stands afterwards. Its parent must exist.
    virtual bool MakeFolder(const std::filesystem::path& path) = 0;

    // Takes what lies behind `bytes` off a file.
    virtual bool Shorten(const std::filesystem::path& path, std::int64_t bytes) = 0;
};

class DiskFileSystem final : public FileSystem {
public:
    explicit DiskFileSystem(FileOpener open = OpenFile) : open_(std::move(open)) {}

    std::unique_ptr<ByteFile> Open(const std::filesystem::path& path, OpenMode mode) override;
    bool Rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
    bool Remove(const std::filesystem::path& path) override;
    bool MakeFolder(const std::filesystem::path& path) override;
    bool Shorten(const std::filesystem::path& path, std::int64_t bytes) override;

private:
    FileOpener open_;
};

enum class EntryKind { File, Folder };

// The names of all plain files, or of all folders, directly in `folder`, sorted by their bytes. Empty when the folder
// cannot be read.
std::vector<std::string> ListFolder(const std::filesystem::path& folder, EntryKind kind);

// How many plain files lie directly in `folder`, without asking for each.
std::int32_t CountFiles(const std::filesystem::path& folder);

bool IsFolder(const std::filesystem::path& path);
bool IsFile(const std::filesystem::path& path);

}  // namespace ecg
