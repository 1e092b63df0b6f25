// The two ways in which a number loses its fraction.
//
// Wherever a value becomes an integer it goes to the nearest one, ties to the even one. A number shown through a text
// format ("0", "0.0", "0.000") rounds ties away from zero instead.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace ecg {

// Nearest integer, ties to even. The default rounding mode of the machine is never changed by this program.
inline double RoundHalfEven(double value)
{
    return std::nearbyint(value);
}

inline std::int32_t RoundToInt(double value)
{
    return static_cast<std::int32_t>(std::nearbyint(value));
}

// The same in 16 bits; nothing when it does not fit.
inline std::optional<std::int16_t> RoundToInt16(double value)
{
    using Limits = std::numeric_limits<std::int16_t>;
    const double whole = std::nearbyint(value);
    if (!(whole >= Limits::min() && whole <= Limits::max()))
        return std::nullopt;
    return static_cast<std::int16_t>(whole);
}

// Decimal text with `decimals` digits behind the point (0 to 9), ties away from zero: FormatDecimal(0.25, 1) is
// "0.3". A value too large for 18 digits, or not a number, gives "".
std::string FormatDecimal(double value, int decimals);

// `value` with at least `width` digits: FormatZeros(7, 2) is "07".
std::string FormatZeros(std::int64_t value, int width);

// The value of a decimal number as a person types it: digits, at most one point, perhaps a minus, blanks around.
// Anything else, an exponent, or more than 64 characters is no number.
std::optional<double> ParseDecimal(std::string_view text);

}  // namespace ecg
