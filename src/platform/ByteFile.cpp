#include "platform/ByteFile.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace ecg {
namespace {

constexpr int newFileMode = 0644;

class DiskFile final : public ByteFile {
public:
    explicit DiskFile(int handle) : handle_(handle) {}
    DiskFile(const DiskFile&) = delete;
    DiskFile& operator=(const DiskFile&) = delete;
    ~DiskFile() override { close(handle_); }

    std::size_t ReadAt(std::int64_t offset, std::span<std::byte> bytes) override
    {
        std::size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t got =
                pread(handle_, bytes.data() + done, bytes.size() - done, offset + static_cast<std::int64_t>(done));
            if (got < 0 && errno == EINTR)
                continue;
            if (got <= 0)
                break;
            done += static_cast<std::size_t>(got);
        }
        return done;
    }

    bool WriteAt(std::int64_t offset, std::span<const std::byte> bytes) override
    {
        std::size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t put =
                pwrite(handle_, bytes.data() + done, bytes.size() - done, offset + static_cast<std::int64_t>(done));
            if (put < 0 && errno == EINTR)
                continue;
            if (put <= 0)
                return false;
            done += static_cast<std::size_t>(put);
        }
        return true;
    }

    std::int64_t Size() override
    {
        struct stat status {};
        return fstat(handle_, &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : 0;
    }

    bool Flush() override { return fsync(handle_) == 0; }

private:
    int handle_;
};

}  // namespace

void FlushFolder(const std::filesystem::path& folder)
{
    const int handle = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    fsync(handle);
    close(handle);
}

std::unique_ptr<ByteFile> OpenFile(const std::filesystem::path& path, OpenMode mode)
{
    const int flags = mode == OpenMode::Read ? O_RDONLY : O_RDWR | O_CREAT;
    const int handle = open(path.c_str(), flags | O_CLOEXEC, newFileMode);
    return handle < 0 ? nullptr : std::make_unique<DiskFile>(handle);
}

bool ReplaceFile(const std::filesystem::path& path, std::span<const std::byte> bytes)
{
    std::filesystem::path aside = path;
    aside += ".new";
    const int handle = open(aside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, newFileMode);
    if (handle < 0)
        return false;
    bool written = false;
    {
        DiskFile file(handle);
        written = file.WriteAt(0, bytes) && file.Flush();
    }
    std::error_code error;
    if (written)
        std::filesystem::rename(aside, path, error);
    if (!written || error) {
        std::filesystem::remove(aside, error);
        return false;
    }
    FlushFolder(path.parent_path());
    return true;
}

}  // namespace ecg
