#include "core/DataFolder.h"

#include <algorithm>
#include <string>

namespace ecg {

std::filesystem::path Folders::File(std::string_view storedPath) const
{
    std::string path(storedPath);
    std::replace(path.begin(), path.end(), '\\', '/');
    return Data / std::filesystem::path(path).relative_path();
}

Folders OpenDataFolder(const std::filesystem::path& program)
{
    std::error_code error;
    for (const char* spelling : {"Data", "data"})
        if (std::filesystem::is_directory(program / spelling, error))
            return {program, program / spelling};
    std::filesystem::create_directories(program / "Data", error);
    return {program, program / "Data"};
}

}  // namespace ecg
