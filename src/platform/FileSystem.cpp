#include "platform/FileSystem.h"

#include <algorithm>
#include <dirent.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>

namespace ecg {
namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

bool IsOfKind(DIR* folder, const dirent& entry, EntryKind kind)
{
    // Most file systems tell the kind with the name; only some, and links, need a look at the entry itself.
    if (entry.d_type == DT_REG || entry.d_type == DT_DIR)
        return (entry.d_type == DT_REG) == (kind == EntryKind::File);
    struct stat status {};
    if (fstatat(dirfd(folder), entry.d_name, &status, 0) != 0)
        return false;
    return kind == EntryKind::File ? S_ISREG(status.st_mode) : S_ISDIR(status.st_mode);
}

template <class Visitor>
void VisitFolder(const std::filesystem::path& path, EntryKind kind, Visitor visit)
{
    const std::unique_ptr<DIR, CloseFolder> folder(opendir(path.c_str()));
    if (!folder)
        return;
    while (const dirent* entry = readdir(folder.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != ".." && IsOfKind(folder.get(), *entry, kind))
            visit(name);
    }
}

}  // namespace

std::unique_ptr<ByteFile> DiskFileSystem::Open(const std::filesystem::path& path, OpenMode mode)
{
    return open_(path, mode);
}

bool DiskFileSystem::Rename(const std::filesystem::path& from, const std::filesystem::path& to)
{
    std::error_code error;
    std::filesystem::rename(from, to, error);
    if (error)
        return false;
    FlushFolder(to.parent_path());
    if (from.parent_path() != to.parent_path())
        FlushFolder(from.parent_path());
    return true;
}

bool DiskFileSystem::Remove(const std::filesystem::path& path)
{
    std::error_code error;
    return std::filesystem::remove(path, error) && !error;
}

bool DiskFileSystem::MakeFolder(const std::filesystem::path& path)
{
    std::error_code error;
    std::filesystem::create_directory(path, error);
    return IsFolder(path);
}

bool DiskFileSystem::Shorten(const std::filesystem::path& path, std::int64_t bytes)
{
    std::error_code error;
    std::filesystem::resize_file(path, static_cast<std::uintmax_t>(bytes), error);
    return !error;
}

std::vector<std::string> ListFolder(const std::filesystem::path& folder, EntryKind kind)
{
    std::vector<std::string> names;
    VisitFolder(folder, kind, [&](std::string_view name) { names.emplace_back(name); });
    std::sort(names.begin(), names.end());
    return names;
}

std::int32_t CountFiles(const std::filesystem::path& folder)
{
    std::int32_t count = 0;
    VisitFolder(folder, EntryKind::File, [&](std::string_view) { ++count; });
    return count;
}

bool IsFolder(const std::filesystem::path& path)
{
    std::error_code error;
    return std::filesystem::is_directory(path, error);
}

bool IsFile(const std::filesystem::path& path)
{
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

}  // namespace ecg
