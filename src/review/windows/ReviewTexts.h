// The words of the review window that more than one of its files needs.
#pragma once

#include "core/Language.h"
#include "review/ReviewState.h"

#include <array>

namespace ecg::reviewtexts {

inline constexpr Twin WindowTitle{"心电图分析", "ECG Review"};

// Of reports and of the keys that change to them.
inline constexpr std::array<Twin, ReviewModeCount> ReportTitles{{{"12导同步心电图报告", "ECG Report"},
                                                                 {"12导频谱心电图报告", "FECG Report"},
                                                                 {"12导 Q-T离散度报告", "Q-T Analysis"},
                                                                 {"心率变异性分析报告", "HRV Report"},
                                                                 {"12导起搏心电图报告", "PECG Report"}}};

inline constexpr std::array<Twin, EcgFormCount> Forms{{{"12*1格式", "12*1 Form"},
                                                       {"6*2格式", "6*2 Form"},
                                                       {"4*3格式", "4*3 Form"},
                                                       {"4*3+1格式", "4*3+1 Form"},
                                                       {"4*3+2格式", "4*3+2 Form"},
                                                       {"2*1格式", "2*1 Form"},
                                                       {"12*1对照格式", "12*1 Contrast Form"}}};

}  // namespace ecg::reviewtexts
