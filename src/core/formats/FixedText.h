// A text of fixed width as it stands in the files: GBK bytes, left aligned, padded with blanks, not terminated.
#pragma once

#include "core/formats/CodePage.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace ecg {

// The bytes up to the last one that is neither blank nor NUL. Leading blanks stay.
constexpr std::string_view TrimField(std::string_view bytes)
{
    constexpr std::string_view padding{" \0", 2};
    const auto last = bytes.find_last_not_of(padding);
    return last == std::string_view::npos ? std::string_view{} : bytes.substr(0, last + 1);
}

template <std::size_t Width>
class FixedText {
public:
    FixedText() { bytes_.fill(' '); }

    // Stores a UTF-8 text. What does not fit is cut at a character's edge; the rest of the field is blank.
    void Set(std::string_view utf8)
    {
        const std::string gbk = GbkFromUtf8(utf8);
        const std::string_view cut = CutGbk(gbk, Width);
        bytes_.fill(' ');
        std::copy(cut.begin(), cut.end(), bytes_.begin());
    }

    // The text in UTF-8 without its padding. A field ending in half a character (a damaged file) drops that half.
    std::string Text() const { return Utf8FromGbk(TrimField(CutGbk(Bytes(), Width))); }

    bool IsBlank() const { return TrimField(Bytes()).empty(); }
    std::string_view Bytes() const { return {bytes_.data(), Width}; }

    friend bool operator==(const FixedText&, const FixedText&) = default;

private:
    std::array<char, Width> bytes_;
};

// Stores a text that was shown and perhaps edited. One that comes back as it was shown leaves the bytes alone, so that
// looking at a field whose bytes are no valid text does not change it.
template <std::size_t Width>
void SetIfChanged(FixedText<Width>& field, std::string_view utf8)
{
    if (field.Text() != utf8)
        field.Set(utf8);
}

}  // namespace ecg
