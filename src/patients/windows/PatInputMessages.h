// What the two halves of the entry window tell, and how: the window shows the message under its own title.
#pragma once

#include "core/Language.h"

#include <functional>

namespace ecg {

using PatInputTeller = std::function<void(const Twin& refusal)>;

inline constexpr Twin PatInputNotANumber{"输入的内容必须是数字！", "Must be digital!"};

}  // namespace ecg
