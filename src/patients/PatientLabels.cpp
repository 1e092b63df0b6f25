#include "patients/PatientLabels.h"

#include <array>

namespace ecg {
namespace {

constexpr Twin unnamedItem{"自定义项", "Item"};

// In the order of `PatientField`; the custom items have none of their own.
constexpr std::array<Twin, PatientFieldCount> captions{{{"患者姓名", "Name"},
                                                        {"患者年龄", "Age"},
                                                        {"患者身高", "Height"},
                                                        {"患者体重", "Weight"},
                                                        {"地址", "Address"},
                                                        {"邮编", "P.C."},
                                                        {"电话", "Tel"},
                                                        {"电子信箱", "eMail"},
                                                        {"身份证号", "I.D."},
                                                        {"医保卡号", "Med Card"},
                                                        {"病历号", "Med No."},
                                                        {"", ""},
                                                        {"", ""},
                                                        {"", ""},
                                                        {"", ""},
                                                        {"床位号", "Bed"}}};

std::string CustomItemCaption(const SysInfo& settings, std::size_t item)
{
    const std::string name = settings.CustomItemName[item].Text();
    return name.empty() ? unnamedItem.In(settings) + std::to_string(item + 1) : name;
}

}  // namespace

std::string CaptionOf(PatientField field, const SysInfo& settings)
{
    if (field >= PatientField::CustomItem1 && field <= PatientField::CustomItem4)
        return CustomItemCaption(settings,
                                 static_cast<std::size_t>(field) - static_cast<std::size_t>(PatientField::CustomItem1));
    return captions[static_cast<std::size_t>(field)].In(settings);
}

}  // namespace ecg
