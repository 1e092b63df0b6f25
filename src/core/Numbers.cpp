#include "core/Numbers.h"

#include <charconv>
#include <cstdlib>
#include <system_error>

namespace ecg {

std::string FormatZeros(std::int64_t value, int width)
{
    std::string digits = std::to_string(std::llabs(value));
    if (digits.size() < static_cast<std::size_t>(width))
        digits.insert(0, static_cast<std::size_t>(width) - digits.size(), '0');
    return value < 0 ? "-" + digits : digits;
}

std::optional<double> ParseDecimal(std::string_view text)
{
    constexpr std::size_t longestText = 64;
    const auto first = text.find_first_not_of(' ');
    if (text.size() > longestText || first == std::string_view::npos)
        return std::nullopt;
    text = text.substr(first, text.find_last_not_of(' ') - first + 1);
    // The library would also take "inf", "nan" and their like.
    if (text.find_first_not_of("-.0123456789") != std::string_view::npos)
        return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return value;
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

}  // namespace ecg
