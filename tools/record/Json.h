// Numbers, texts and tables written as JSON, on one line.
#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>
#include <type_traits>

namespace ecg {

// A number in the fewest digits that give it back; `null` for what is no number.
template <class Number>
std::string Json(Number value) requires std::is_arithmetic_v<Number>
{
    if constexpr (std::is_floating_point_v<Number>)
        if (!std::isfinite(value))
            return "null";
    std::array<char, 64> digits;
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return {digits.data(), written.ptr};
}

// A text in UTF-8.
std::string Json(std::string_view text);

// The elements of a row, each written by `write`.
template <class Row, class Write>
std::string JsonArray(const Row& row, Write write)
{
    std::string json;
    for (const auto& element : row)
        json += (json.empty() ? "" : ",") + write(element);
    return "[" + json + "]";
}

template <class Row>
std::string JsonNumbers(const Row& row)
{
    return JsonArray(row, [](auto value) { return Json(value); });
}

// An object, field by field.
class JsonObject {
public:
    // `json` is a value that has been written already.
    void Add(std::string_view name, const std::string& json)
    {
        fields_ += (fields_.empty() ? "" : ",") + Json(name) + ":" + json;
    }
    std::string Text() const { return "{" + fields_ + "}"; }

private:
    std::string fields_;
};

}  // namespace ecg
