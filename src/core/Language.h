// The two forms of every visible text, side by side where the text is used.
#pragma once

#include "core/formats/SysInfo.h"

namespace ecg {

inline constexpr Byte ChineseLanguage = 1;  // any other value of `SysInfo::Language` is English

inline bool IsChinese(const SysInfo& settings)
{
    return settings.Language == ChineseLanguage;
}

// One text in both languages, UTF-8.
struct Twin {
    const char* Chinese;
    const char* English;

    constexpr const char* In(bool chinese) const { return chinese ? Chinese : English; }
    const char* In(const SysInfo& settings) const { return In(IsChinese(settings)); }
};

}  // namespace ecg
