#include "patients/PatientDraft.h"

#include "core/Numbers.h"
#include "patients/PatientAge.h"

#include <algorithm>

namespace ecg {
namespace {

struct Range {
    PatientField Field;
    double Lowest;
    double Highest;
};

constexpr std::array<Range, 3> ranges{
    {{PatientField::Age, 0, 200}, {PatientField::Height, 40, 250}, {PatientField::Weight, 5, 250}}};

// 0 for an empty text; nothing outside a byte ever comes this far.
int WholeNumber(std::string_view text)
{
    constexpr double highestByte = 255;
    return RoundToInt(std::clamp(ParseDecimal(text).value_or(0), 0.0, highestByte));
}

std::size_t CustomIndex(std::size_t item)
{
    return static_cast<std::size_t>(PatientField::CustomItem1) + item;
}

}  // namespace

PatientDraft DraftOf(const PatientRecord& patient, int year)
{
    const auto age = ListedAge(patient, year);
    PatientDraft draft;
    draft[PatientField::Number] = patient.No.Text();
    draft[PatientField::Name] = patient.Name.Text();
    draft[PatientField::Age] = age ? std::to_string(*age) : "";
    draft[PatientField::Height] = std::to_string(patient.Height);
    draft[PatientField::Weight] = std::to_string(patient.Weight);
    draft[PatientField::Address] = patient.Address.Text();
    draft[PatientField::PostCode] = patient.PostCode.Text();
    draft[PatientField::Telephone] = patient.Telephone.Text();
    draft[PatientField::EMail] = patient.EMail.Text();
    draft[PatientField::IdNumber] = patient.IdNumber.Text();
    draft[PatientField::MedCard] = patient.MedCard.Text();
    for (std::size_t item = 0; item < patient.CustomItem.size(); ++item)
        draft.Texts[CustomIndex(item)] = patient.CustomItem[item].Text();
    draft.Male = patient.Sex == 0;
    std::transform(patient.Flags.begin(), patient.Flags.end(), draft.Flags.begin(),
                   [](Byte flag) { return flag != 0; });
    return draft;
}

PatientRecord GatherPatient(const PatientDraft& draft, int year, PatientRecord patient)
{
    SetIfChanged(patient.No, draft[PatientField::Number]);
    SetIfChanged(patient.Name, draft[PatientField::Name]);
    patient.Sex = draft.Male ? 0 : 1;
    SetIfChanged(patient.BirthYear, std::to_string(year - WholeNumber(draft[PatientField::Age])));
    patient.Height = static_cast<Byte>(WholeNumber(draft[PatientField::Height]));
    patient.Weight = static_cast<Byte>(WholeNumber(draft[PatientField::Weight]));
    SetIfChanged(patient.Address, draft[PatientField::Address]);
    SetIfChanged(patient.PostCode, draft[PatientField::PostCode]);
    SetIfChanged(patient.Telephone, draft[PatientField::Telephone]);
    SetIfChanged(patient.EMail, draft[PatientField::EMail]);
    SetIfChanged(patient.IdNumber, draft[PatientField::IdNumber]);
    SetIfChanged(patient.MedCard, draft[PatientField::MedCard]);
    for (std::size_t item = 0; item < patient.CustomItem.size(); ++item)
        SetIfChanged(patient.CustomItem[item], draft.Texts[CustomIndex(item)]);
    std::transform(draft.Flags.begin(), draft.Flags.end(), patient.Flags.begin(),
                   [](bool flag) { return static_cast<Byte>(flag ? 1 : 0); });
    return patient;
}

bool IsNumericField(PatientField field)
{
    return field == PatientField::Age || field == PatientField::Height || field == PatientField::Weight ||
           field == PatientField::PostCode;
}

bool InRange(PatientField field, std::string_view text)
{
    const auto range =
        std::find_if(ranges.begin(), ranges.end(), [&](const Range& candidate) { return candidate.Field == field; });
    if (range == ranges.end() || text.empty())
        return true;
    const auto value = ParseDecimal(text);
    return value && RoundHalfEven(*value) >= range->Lowest && RoundHalfEven(*value) <= range->Highest;
}

std::string StorableNumber(std::string_view typed)
{
    FixedText<9> number;
    number.Set(typed);
    return number.Text();
}

}  // namespace ecg
