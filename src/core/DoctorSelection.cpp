#include "core/DoctorSelection.h"

namespace ecg {
namespace {

std::string WithoutBlanksAround(const std::string& text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

DoctorNames StoredDoctorNames(const SysInfo& settings)
{
    DoctorNames names;
    for (std::size_t i = 0; i < DoctorCount; ++i)
        names[i] = settings.DoctorNames[i].Text();
    return names;
}

std::optional<std::size_t> FirstNamedDoctor(const SysInfo& settings)
{
    for (std::size_t i = 0; i < DoctorCount; ++i)
        if (!settings.DoctorNames[i].IsBlank())
            return i;
    return std::nullopt;
}

DoctorChoice SelectDoctor(SharedState& state, const DoctorNames& names, std::size_t chosen)
{
    auto& stored = state.SysInfo.DoctorNames;
    for (std::size_t i = 0; i < DoctorCount; ++i)
        SetIfChanged(stored[i], names[i]);
    // As stored, so that the name is the same now as it will be in every file and at the next start.
    state.DoctorName = chosen < DoctorCount ? WithoutBlanksAround(stored[chosen].Text()) : std::string{};
    return {!state.DoctorName.empty(), WriteSettings(state.SettingsFile(), state.SysInfo)};
}

}  // namespace ecg
