#include "patients/PatientDetails.h"

#include "core/Labels.h"
#include "core/PatientNumber.h"
#include "patients/PatientAge.h"

#include <algorithm>

namespace ecg {
namespace {

constexpr Twin customItem{"自定义项", "Item"};
constexpr Twin years{" 岁", " Years"};

}  // namespace

std::string CustomItemCaption(const SysInfo& settings, std::size_t item)
{
    const std::string name = settings.CustomItemName[item].Text();
    return name.empty() ? customItem.In(settings) + std::to_string(item + 1) : name;
}

PatientDetails DetailsOf(const PatientRecord& patient, int year, bool chinese)
{
    const auto age = ListedAge(patient, year);
    PatientDetails details;
    details.Texts = {PatientFolderName(patient.No.Text()),
                     patient.Name.Text(),
                     labels::Sexes[patient.Sex == 0 ? 0 : 1].In(chinese),
                     age ? std::to_string(*age) + years.In(chinese) : "",
                     std::to_string(patient.Height) + " cm",
                     std::to_string(patient.Weight) + " kg",
                     patient.Address.Text(),
                     patient.PostCode.Text(),
                     patient.Telephone.Text(),
                     patient.EMail.Text(),
                     patient.IdNumber.Text(),
                     patient.MedCard.Text(),
                     patient.CustomItem[0].Text(),
                     patient.CustomItem[1].Text(),
                     patient.CustomItem[2].Text(),
                     patient.CustomItem[3].Text()};
    std::transform(patient.Flags.begin(), patient.Flags.end(), details.Flags.begin(),
                   [](Byte flag) { return flag != 0; });
    return details;
}

}  // namespace ecg
