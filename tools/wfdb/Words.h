// Lines of text taken apart into words and numbers.
#pragma once

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

namespace ecg {

// Takes the next blank-separated word off the front of `line`; empty when there is none.
inline std::string_view TakeWord(std::string_view& line)
{
    constexpr std::string_view blanks = " \t\r\n";
    line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
    const std::size_t end = std::min(line.find_first_of(blanks), line.size());
    const std::string_view word = line.substr(0, end);
    line.remove_prefix(end);
    return word;
}

// Takes what stands before the first `mark` off the front of `text`, and the mark itself.
inline std::string_view TakeUntil(std::string_view& text, char mark)
{
    const std::size_t end = std::min(text.find(mark), text.size());
    const std::string_view before = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return before;
}

// The whole of `text` as a number, or nothing.
template <class Number>
std::optional<Number> ParseNumber(std::string_view text)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

}  // namespace ecg
