#include "patients/PatientSearch.h"

#include "core/Numbers.h"
#include "core/PatientNumber.h"
#include "patients/PatientAge.h"

#include <algorithm>
#include <limits>

namespace ecg {
namespace {

constexpr std::size_t firstFlagBox = 6;

bool FitsPattern(std::string pattern, std::string text)
{
    pattern = UpperCase(pattern);
    text = UpperCase(text);
    if (!pattern.ends_with('*'))
        return text == pattern;
    pattern.pop_back();
    return text.starts_with(pattern);
}

bool Inside(int value, const ByteRange& range)
{
    return value >= range.Lowest && value <= range.Highest;
}

bool AgeInside(const PatientRecord& patient, const ByteRange& range, int year)
{
    const auto age = AgeOf(patient, year);
    return age && Inside(*age, range);
}

bool FlagsMatch(const PatientRecord& patient, const SearchConditions& conditions)
{
    for (std::size_t i = 0; i < patient.Flags.size(); ++i)
        if (conditions.UseFlag[i] && (patient.Flags[i] != 0) != conditions.FlagWanted[i])
            return false;
    return true;
}

void ShowRange(SearchForm& form, std::size_t firstText, bool use, const ByteRange& range)
{
    if (!use && range.Lowest == 0 && range.Highest == 0)
        return;
    form.Texts[firstText] = std::to_string(range.Lowest);
    form.Texts[firstText + 1] = std::to_string(range.Highest);
}

void TakeBound(Byte& bound, double value)
{
    const double rounded = RoundHalfEven(value);
    if (rounded >= 0 && rounded <= std::numeric_limits<Byte>::max())
        bound = static_cast<Byte>(rounded);
}

// Returns whether the condition is in use.
bool TakeRange(const SearchForm& form, std::size_t box, std::size_t firstText, ByteRange& range)
{
    const auto lowest = ParseDecimal(form.Texts[firstText]);
    const auto highest = ParseDecimal(form.Texts[firstText + 1]);
    if (!form.Checked[box] || !lowest || !highest)
        return false;
    TakeBound(range.Lowest, *lowest);
    TakeBound(range.Highest, *highest);
    return true;
}

template <std::size_t Width>
bool TakePattern(const SearchForm& form, std::size_t box, FixedText<Width>& pattern)
{
    const std::string_view text = TrimField(form.Texts[box]);
    if (!form.Checked[box] || text.empty())
        return false;
    pattern.Set(text);
    return true;
}

}  // namespace

SearchForm FormOf(const SearchConditions& conditions)
{
    SearchForm form;
    form.Checked = {conditions.UseNo,  conditions.UseName,   conditions.UseSex,
                    conditions.UseAge, conditions.UseHeight, conditions.UseWeight};
    std::copy(conditions.UseFlag.begin(), conditions.UseFlag.end(), form.Checked.begin() + firstFlagBox);
    form.Texts[0] = conditions.No.Text();
    form.Texts[1] = conditions.Name.Text();
    ShowRange(form, 2, conditions.UseAge, conditions.Age);
    ShowRange(form, 4, conditions.UseHeight, conditions.Height);
    ShowRange(form, 6, conditions.UseWeight, conditions.Weight);
    form.Male = conditions.Sex == 0;
    form.FlagYes = conditions.FlagWanted;
    return form;
}

void TakeForm(SearchConditions& conditions, const SearchForm& form)
{
    conditions.UseNo = TakePattern(form, 0, conditions.No);
    conditions.UseName = TakePattern(form, 1, conditions.Name);
    conditions.UseSex = form.Checked[2];
    conditions.Sex = form.Male ? 0 : 1;
    conditions.UseAge = TakeRange(form, 3, 2, conditions.Age);
    conditions.UseHeight = TakeRange(form, 4, 4, conditions.Height);
    conditions.UseWeight = TakeRange(form, 5, 6, conditions.Weight);
    std::copy(form.Checked.begin() + firstFlagBox, form.Checked.end(), conditions.UseFlag.begin());
    conditions.FlagWanted = form.FlagYes;
}

bool Matches(const PatientRecord& patient, const SearchConditions& conditions, int year)
{
    if (conditions.UseNo && !FitsPattern(PatientFolderName(conditions.No.Text()), PatientFolderName(patient.No.Text())))
        return false;
    if (conditions.UseName && !FitsPattern(conditions.Name.Text(), patient.Name.Text()))
        return false;
    return (!conditions.UseSex || patient.Sex == conditions.Sex) &&
           (!conditions.UseAge || AgeInside(patient, conditions.Age, year)) &&
           (!conditions.UseHeight || Inside(patient.Height, conditions.Height)) &&
           (!conditions.UseWeight || Inside(patient.Weight, conditions.Weight)) && FlagsMatch(patient, conditions);
}

void FilterPatients(PatientTable& patients, const PatientFile& file, const SearchConditions& conditions, int year)
{
    const auto live = file.ReadLive();  // ascending positions
    for (int row = 0; row < patients.RowCount(); ++row) {
        const std::int32_t position = patients.Row(row).Position;
        const auto slot =
            std::lower_bound(live.begin(), live.end(), position, [](const StoredPatient& patient, std::int32_t wanted) {
                return patient.Position < wanted;
            });
        if (slot != live.end() && slot->Position == position)
            patients.Show(row, Matches(slot->Record, conditions, year));
    }
}

}  // namespace ecg
