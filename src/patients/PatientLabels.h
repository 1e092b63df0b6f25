// The words for the fields of a patient, shared by the windows that show, type and search them.
#pragma once

#include "core/Language.h"
#include "core/formats/SysInfo.h"

#include <array>
#include <string>

namespace ecg::labels {

// Number, then the fields of the first page and the second one of the entry window, as the detail panel lists them.
inline constexpr std::array<Twin, 12> PatientFields{{{"病历号", "Med No."},
                                                     {"患者姓名", "Name"},
                                                     {"患者性别", "Sex"},
                                                     {"患者年龄", "Age"},
                                                     {"患者身高", "Height"},
                                                     {"患者体重", "Weight"},
                                                     {"地址", "Address"},
                                                     {"邮编", "P.C."},
                                                     {"电话", "Tel"},
                                                     {"电子信箱", "eMail"},
                                                     {"身份证号", "I.D."},
                                                     {"医保卡号", "Med Card"}}};

inline constexpr std::size_t RiskFactorCount = 6;  // the first of the flags; the others are symptom types
inline constexpr Twin RiskFactors{"危险因子", "Warn Factor"};
inline constexpr Twin SymptomTypes{"症状类型", "Symptom Type"};

// In the order of `PatientRecord::Flags`.
inline constexpr std::array<Twin, 10> PatientFlags{{{"高血压", "Hypertension"},
                                                    {"高血脂", "Hyperlipemia"},
                                                    {"先天性心脏病", "Congenital Herat Disease"},
                                                    {"糖尿病", "Diabetes"},
                                                    {"家族病史", "Familial Disease"},
                                                    {"吸烟", "Smoking"},
                                                    {"典型心绞痛", "Typical Stenocardia"},
                                                    {"非典型心绞痛", "Untypical Stenocardia"},
                                                    {"无心绞痛", "No Stenocardia"},
                                                    {"无症状", "No Symptom"}}};

// The name of custom item 0 to 3: the one of the settings, or "Item1" and so on.
inline std::string CustomItem(const SysInfo& settings, std::size_t item)
{
    std::string name = settings.CustomItemName[item].Text();
    constexpr Twin unnamed{"自定义项", "Item"};
    return name.empty() ? unnamed.In(settings) + std::to_string(item + 1) : name;
}

}  // namespace ecg::labels
