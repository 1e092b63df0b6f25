#include "wfdb/WholeFile.h"

#include "platform/ByteFile.h"

namespace ecg {

Outcome<std::vector<std::byte>> ReadWholeFile(const std::filesystem::path& path, std::int64_t mostBytes)
{
    using Result = Outcome<std::vector<std::byte>>;
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return Result::Failure("there is no file " + path.string());
    const auto file = OpenFile(path, OpenMode::Read);
    if (!file)
        return Result::Failure("cannot open " + path.string());
    if (file->Size() > mostBytes)
        return Result::Failure(path.string() + " is larger than " + std::to_string(mostBytes) + " bytes");
    std::vector<std::byte> bytes(static_cast<std::size_t>(file->Size()));
    bytes.resize(file->ReadAt(0, bytes));
    return bytes;
}

}  // namespace ecg
