// The Chinese code page of all stored texts (GBK, code page 936), and its conversion to the UTF-8 used inside.
//
// A byte below 0x80 is one character; a byte from 0x81 to 0xFE leads a two-byte character. The file formats count
// bytes, so a text is always cut at a character's edge: half a character would swallow the blank behind it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ecg {

// Converts GBK bytes to UTF-8. A byte or pair that the code page does not define becomes "?".
std::string Utf8FromGbk(std::string_view gbk);

// Converts UTF-8 to GBK. A character the code page lacks, and each malformed sequence, becomes "?".
std::string GbkFromUtf8(std::string_view utf8);

// The longest beginning of `gbk` that fits `width` bytes and does not end in half a two-byte character.
std::string_view CutGbk(std::string_view gbk, std::size_t width);

}  // namespace ecg
