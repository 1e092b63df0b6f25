// The label tables that several windows share.
#pragma once

#include "core/Language.h"

#include <array>

namespace ecg::labels {

// The name of the program, on its windows and messages.
inline constexpr Twin Program{"心电工作站", "ECG Workstation"};

inline constexpr Twin NotInThisVersion{"本版本尚未提供此功能。", "This version does not have this function yet."};

inline constexpr std::array<Twin, 7> Weekdays{{{"星期日", "Sunday"},
                                               {"星期一", "Monday"},
                                               {"星期二", "Tuesday"},
                                               {"星期三", "Wednesday"},
                                               {"星期四", "Thursday"},
                                               {"星期五", "Friday"},
                                               {"星期六", "Saturday"}}};

inline constexpr std::array<Twin, 2> Sexes{{{"男", "Male"}, {"女", "Female"}}};

// What a doctor may mark of a patient, in the order of `PatientRecord::Flags`: risk factors, then types of symptoms.
inline constexpr std::size_t RiskFactorCount = 6;
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
inline constexpr Twin RiskFactors{"危险因子", "Warn Factor"};
inline constexpr Twin SymptomTypes{"症状类型", "Symptom Type"};

// What stands before the filter states that the box reports.
inline constexpr Twin AcPrefix{"抗噪:", "ACF:"};
inline constexpr Twin MusclePrefix{"肌电:", "MUF:"};
inline constexpr Twin BaselinePrefix{"基漂:", "PLF:"};

inline constexpr std::array<const char*, 5> Gains{"5mm/mv", "10mm/mv", "20mm/mv", "40mm/mv", "80mm/mv"};
inline constexpr std::array<const char*, 5> Speeds{"12.5mm/s", "25mm/s", "50mm/s", "100mm/s", "200mm/s"};
inline constexpr std::array<const char*, 12> Leads{"I",  "II", "III", "avR", "avL", "avF",
                                                   "V1", "V2", "V3",  "V4",  "V5",  "V6"};
inline constexpr std::array<const char*, 3> VectorLeads{"X", "Y", "Z"};

// The nine examinations, in the order of `SysInfo::SampleTime`.
inline constexpr std::array<Twin, ExaminationCount> Examinations{{{"常规心电", "ECG"},
                                                                  {"频谱心电", "FCG"},
                                                                  {"QT离散度", "QT"},
                                                                  {"心率变异", "HRV"},
                                                                  {"起搏心电", "PECG"},
                                                                  {"心电向量", "VCG"},
                                                                  {"时间向量", "TVCG"},
                                                                  {"高频心电", "HECG"},
                                                                  {"心晚电位", "VLP"}}};

// The hues of a printed colour grid, in the order of `SysInfo::GridHue`.
inline constexpr std::array<Twin, 3> Hues{{{"红色", "Red"}, {"绿色", "Green"}, {"蓝色", "Blue"}}};

}  // namespace ecg::labels
