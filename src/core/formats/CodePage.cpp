#include "core/formats/CodePage.h"

#include <array>
#include <cstdint>
#include <iconv.h>
#include <memory>
#include <vector>

namespace ecg {
namespace {

constexpr unsigned firstLead = 0x81;
constexpr unsigned lastLead = 0xFE;
constexpr unsigned firstTrail = 0x40;
constexpr unsigned trailCount = 0xFF - firstTrail;
constexpr char32_t replacement = U'?';

bool IsLead(unsigned char byte)
{
    return byte >= firstLead && byte <= lastLead;
}

// Both directions of the code page as plain tables, filled once from the C library's own converter. All characters
// of GBK lie in the Basic Multilingual Plane, so 16 bits hold each of them.
class Tables {
public:
    Tables() : fromUnicode_(0x10000, 0)
    {
        const iconv_t converter = iconv_open("UTF-16LE", "GBK");
        if (converter == reinterpret_cast<iconv_t>(-1))
            return;  // every two-byte character then reads as "?"
        for (unsigned lead = firstLead; lead <= lastLead; ++lead)
            for (unsigned trail = firstTrail; trail <= 0xFE; ++trail)
                Add(converter, lead, trail);
        iconv_close(converter);
    }

    char16_t ToUnicode(unsigned lead, unsigned trail) const
    {
        return trail < firstTrail || trail > 0xFE ? char16_t{0} : toUnicode_[Index(lead, trail)];
    }

    // Lead byte in the high half, trail byte in the low half; 0 when the code page lacks the character.
    std::uint16_t FromUnicode(char32_t character) const
    {
        return character > 0xFFFF ? std::uint16_t{0} : fromUnicode_[character];
    }

private:
    static std::size_t Index(unsigned lead, unsigned trail)
    {
        return (lead - firstLead) * trailCount + (trail - firstTrail);
    }

    void Add(iconv_t converter, unsigned lead, unsigned trail)
    {
        std::array<char, 2> pair{static_cast<char>(lead), static_cast<char>(trail)};
        std::array<unsigned char, 4> wide{};
        char* in = pair.data();
        char* out = reinterpret_cast<char*>(wide.data());
        std::size_t inLeft = pair.size();
        std::size_t outLeft = wide.size();
        iconv(converter, nullptr, nullptr, nullptr, nullptr);
        if (iconv(converter, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1) || outLeft != 2)
            return;
        const auto character = static_cast<char16_t>(wide[0] | wide[1] << 8);
        toUnicode_[Index(lead, trail)] = character;
        fromUnicode_[character] = static_cast<std::uint16_t>(lead << 8 | trail);
    }

    std::array<char16_t, (lastLead - firstLead + 1) * trailCount> toUnicode_{};
    std::vector<std::uint16_t> fromUnicode_;
};

const Tables& CodePageTables()
{
    static const auto tables = std::make_unique<const Tables>();
    return *tables;
}

void AppendUtf8(std::string& text, char32_t character)
{
    const auto push = [&text](char32_t bits) { text.push_back(static_cast<char>(bits)); };
    if (character < 0x80) {
        push(character);
    } else if (character < 0x800) {
        push(0xC0 | character >> 6);
        push(0x80 | (character & 0x3F));
    } else {
        push(0xE0 | character >> 12);
        push(0x80 | (character >> 6 & 0x3F));
        push(0x80 | (character & 0x3F));
    }
}

// Takes one character off the front of `utf8`, or one byte and `replacement` where the sequence is malformed.
char32_t TakeUtf8(std::string_view& utf8)
{
    const auto byte = [&utf8](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
    const unsigned char first = byte(0);
    const std::size_t length = first < 0x80 ? 1 : first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC2 ? 2 : 0;
    char32_t character = length == 1 ? first : length == 0 ? 0 : first & (0xFFU >> (length + 1));
    bool valid = length != 0 && length <= utf8.size() && first <= 0xF4;
    for (std::size_t i = 1; valid && i < length; ++i) {
        valid = (byte(i) & 0xC0) == 0x80;
        character = character << 6 | (byte(i) & 0x3F);
    }
    const bool overlong = (length == 3 && character < 0x800) || (length == 4 && character < 0x10000);
    utf8.remove_prefix(valid ? length : 1);
    return valid && !overlong ? character : replacement;
}

}  // namespace

std::string Utf8FromGbk(std::string_view gbk)
{
    std::string utf8;
    utf8.reserve(gbk.size() * 3 / 2);
    for (std::size_t i = 0; i < gbk.size(); ++i) {
        const auto byte = static_cast<unsigned char>(gbk[i]);
        if (byte < 0x80) {
            utf8.push_back(gbk[i]);
            continue;
        }
        char16_t character = 0;
        if (IsLead(byte) && i + 1 < gbk.size()) {
            character = CodePageTables().ToUnicode(byte, static_cast<unsigned char>(gbk[i + 1]));
            // An undefined pair is one bad character, but a plain ASCII byte behind a stray lead is kept.
            if (character != 0 || static_cast<unsigned char>(gbk[i + 1]) >= 0x80)
                ++i;
        }
        AppendUtf8(utf8, character != 0 ? character : replacement);
    }
    return utf8;
}

std::string GbkFromUtf8(std::string_view utf8)
{
    std::string gbk;
    gbk.reserve(utf8.size());
    while (!utf8.empty()) {
        const char32_t character = TakeUtf8(utf8);
        if (character < 0x80) {
            gbk.push_back(static_cast<char>(character));
            continue;
        }
        const std::uint16_t pair = CodePageTables().FromUnicode(character);
        if (pair == 0) {
            gbk.push_back('?');
        } else {
            gbk.push_back(static_cast<char>(pair >> 8));
            gbk.push_back(static_cast<char>(pair & 0xFF));
        }
    }
    return gbk;
}

std::string_view CutGbk(std::string_view gbk, std::size_t width)
{
    std::size_t end = 0;
    while (end < gbk.size()) {
        const std::size_t next = end + (IsLead(static_cast<unsigned char>(gbk[end])) ? 2 : 1);
        if (next > width || next > gbk.size())
            break;
        end = next;
    }
    return gbk.substr(0, end);
}

}  // namespace ecg
