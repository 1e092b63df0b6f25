#include "patients/PatientFolders.h"

#include "core/PatientNumber.h"

namespace ecg {

std::filesystem::path PatientFolders::PathOf(std::string_view number) const
{
    const std::string name = PatientFolderName(number);
    if (name.empty())
        return {};
    const std::filesystem::path exact = data_ / name;
    const bool hasLetters = name.find_first_not_of("0123456789") != std::string::npos;
    if (!hasLetters || IsFolder(exact))
        return exact;
    const std::string upper = UpperCase(name);
    for (const std::string& other : ListFolder(data_, EntryKind::Folder))
        if (UpperCase(other) == upper)
            return data_ / other;
    return exact;
}

bool PatientFolders::Exists(std::string_view number) const
{
    const auto path = PathOf(number);
    return !path.empty() && IsFolder(path);
}

bool PatientFolders::Make(std::string_view number)
{
    const auto path = PathOf(number);
    return !path.empty() && (IsFolder(path) || files_.MakeFolder(path));
}

std::vector<std::string> PatientFolders::Files(std::string_view number) const
{
    const auto path = PathOf(number);
    return path.empty() ? std::vector<std::string>{} : ListFolder(path, EntryKind::File);
}

std::int32_t PatientFolders::CountFiles(std::string_view number) const
{
    const auto path = PathOf(number);
    return path.empty() ? 0 : ecg::CountFiles(path);
}

FolderIndex::FolderIndex(const std::filesystem::path& data) : data_(data)
{
    for (const std::string& name : ListFolder(data, EntryKind::Folder))
        names_.emplace(UpperCase(name), name);
}

const std::string* FolderIndex::Find(std::string_view number) const
{
    const auto found = names_.find(UpperCase(PatientFolderName(number)));
    return found == names_.end() ? nullptr : &found->second;
}

std::int32_t FolderIndex::CountFiles(std::string_view number) const
{
    const std::string* name = Find(number);
    return name == nullptr ? 0 : ecg::CountFiles(data_ / *name);
}

}  // namespace ecg
