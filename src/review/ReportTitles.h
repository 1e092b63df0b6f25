// The titles of the reports, which are also the words of the keys that change to them.
#pragma once

#include "core/Language.h"
#include "review/ReviewState.h"

#include <array>

namespace ecg::reviewtexts {

inline constexpr std::array<Twin, ReviewModeCount> ReportTitles{{{"12导同步心电图报告", "ECG Report"},
                                                                 {"12导频谱心电图报告", "FECG Report"},
                                                                 {"12导 Q-T离散度报告", "Q-T Analysis"},
                                                                 {"心率变异性分析报告", "HRV Report"},
                                                                 {"12导起搏心电图报告", "PECG Report"}}};

}  // namespace ecg::reviewtexts
