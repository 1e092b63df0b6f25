#include "core/Numbers.h"

#include <cstdlib>

namespace ecg {

std::string FormatZeros(std::int64_t value, int width)
{
    std::string digits = std::to_string(std::llabs(value));
    if (digits.size() < static_cast<std::size_t>(width))
        digits.insert(0, static_cast<std::size_t>(width) - digits.size(), '0');
    return value < 0 ? "-" + digits : digits;
}

std::string FormatDecimal(double value, int decimals)
{
    constexpr double largest = 1e17;
    double scale = 1;
    for (int i = 0; i < decimals; ++i)
        scale *= 10;
    const double scaled = std::round(std::fabs(value) * scale);
    if (!(scaled < largest))
        return {};
    const auto units = static_cast<std::int64_t>(scaled);
    const auto factor = static_cast<std::int64_t>(scale);
    std::string text = std::to_string(units / factor);
    if (decimals > 0)
        text += "." + FormatZeros(units % factor, decimals);
    return value < 0 && units != 0 ? "-" + text : text;
}

} // namespace ecg
