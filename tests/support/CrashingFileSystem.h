// The disk, until the process "dies": after so many changing steps every operation fails and changes nothing. The
// write in which it dies reaches the disk half.
#pragma once

#include "platform/FileSystem.h"

namespace ecg {

class CrashingFileSystem final : public FileSystem {
public:
    explicit CrashingFileSystem(int stepsToLive) : steps_(stepsToLive) {}

    void DieAfter(int steps) { steps_ = steps; }
    bool Dead() const { return steps_ < 0; }

    std::unique_ptr<ByteFile> Open(const std::filesystem::path& path, OpenMode mode) override
    {
        const bool makes = mode == OpenMode::ReadWrite && !IsFile(path);
        if (Dead() || (makes && !Step()))
            return nullptr;
        auto file = OpenFile(path, mode);
        return file ? std::make_unique<CrashingFile>(*this, std::move(file)) : nullptr;
    }
    bool Rename(const std::filesystem::path& from, const std::filesystem::path& to) override
    {
        return Step() && disk_.Rename(from, to);
    }
    bool Remove(const std::filesystem::path& path) override { return Step() && disk_.Remove(path); }
    bool MakeFolder(const std::filesystem::path& path) override { return Step() && disk_.MakeFolder(path); }
    bool Shorten(const std::filesystem::path& path, std::int64_t bytes) override
    {
        return Step() && disk_.Shorten(path, bytes);
    }

private:
    class CrashingFile final : public ByteFile {
    public:
        CrashingFile(CrashingFileSystem& system, std::unique_ptr<ByteFile> file)
            : system_(system), file_(std::move(file))
        {}
        std::size_t ReadAt(std::int64_t offset, std::span<std::byte> bytes) override
        {
            return system_.Dead() ? 0 : file_->ReadAt(offset, bytes);
        }
        bool WriteAt(std::int64_t offset, std::span<const std::byte> bytes) override
        {
            if (system_.Dead())
                return false;
            if (system_.Step())
                return file_->WriteAt(offset, bytes);
            file_->WriteAt(offset, bytes.first(bytes.size() / 2));
            return false;
        }
        std::int64_t Size() override { return file_->Size(); }
        bool Flush() override { return system_.Step() && file_->Flush(); }

    private:
        CrashingFileSystem& system_;
        std::unique_ptr<ByteFile> file_;
    };

    // False from the step on in which the process dies.
    bool Step() { return !Dead() && --steps_ >= 0; }

    DiskFileSystem disk_;
    int steps_;
};

}  // namespace ecg
