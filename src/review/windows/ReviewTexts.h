// The words of the review window that more than one of its files needs.
#pragma once

#include "core/Language.h"
#include "review/ReportTitles.h"
#include "review/ReviewState.h"

#include <array>

namespace ecg::reviewtexts {

inline constexpr Twin WindowTitle{"心电图分析", "ECG Review"};

inline constexpr std::array<Twin, EcgFormCount> Forms{{{"12*1格式", "12*1 Form"},
                                                       {"6*2格式", "6*2 Form"},
                                                       {"4*3格式", "4*3 Form"},
                                                       {"4*3+1格式", "4*3+1 Form"},
                                                       {"4*3+2格式", "4*3+2 Form"},
                                                       {"2*1格式", "2*1 Form"},
                                                       {"12*1对照格式", "12*1 Contrast Form"}}};

inline constexpr Twin RecordLost{
    "记录文件已被删除、变短或无法读取。现在显示的仍是原来的波形。",
    "The file of the record is gone, shorter than before or cannot be read.\nThe traces shown are "
    "the ones from before."};

}  // namespace ecg::reviewtexts
