// Files of a device that takes so many bytes and then no more, like a disk that is full.
#pragma once

#include "platform/ByteFile.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace ecg {

// What all files of one failing device share. A test may change it at any time.
struct FailingDevice {
    std::int64_t BytesLeft = std::numeric_limits<std::int64_t>::max();  // to be written, wherever they go
    bool Opens = true;
    bool Flushes = true;

    // Opens files of the disk on this device, which must outlive them.
    FileOpener Opener();
};

class FailingFile final : public ByteFile {
public:
    FailingFile(FailingDevice& device, std::unique_ptr<ByteFile> file) : device_(device), file_(std::move(file)) {}

    std::size_t ReadAt(std::int64_t offset, std::span<std::byte> bytes) override
    {
        return file_->ReadAt(offset, bytes);
    }

    // Writes as much as the device still takes.
    bool WriteAt(std::int64_t offset, std::span<const std::byte> bytes) override
    {
        const auto wanted = static_cast<std::int64_t>(bytes.size());
        const std::int64_t taken = std::min(wanted, device_.BytesLeft);
        device_.BytesLeft -= taken;
        return file_->WriteAt(offset, bytes.first(static_cast<std::size_t>(taken))) && taken == wanted;
    }

    std::int64_t Size() override { return file_->Size(); }
    bool Flush() override { return device_.Flushes && file_->Flush(); }

private:
    FailingDevice& device_;
    std::unique_ptr<ByteFile> file_;
};

inline FileOpener FailingDevice::Opener()
{
    return [this](const std::filesystem::path& path, OpenMode mode) -> std::unique_ptr<ByteFile> {
        auto file = Opens ? OpenFile(path, mode) : nullptr;
        return file ? std::make_unique<FailingFile>(*this, std::move(file)) : nullptr;
    };
}

}  // namespace ecg
