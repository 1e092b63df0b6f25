#include "review/report/Remark.h"

#include "core/formats/FixedText.h"

namespace ecg {
namespace {

constexpr std::size_t fullLine = 33;  // bytes

// One byte, or the two of a pair. `text` is not empty and ends with a whole character.
std::string_view FirstCharacter(std::string_view text)
{
    const std::string_view single = CutGbk(text, 1);
    return single.empty() ? CutGbk(text, 2) : single;
}

}  // namespace

std::vector<std::string> RemarkLines(std::string_view bytes)
{
    std::string_view rest = TrimField(bytes);
    rest = CutGbk(rest, rest.size());
    std::vector<std::string> lines;
    std::string line;
    const auto endLine = [&] {
        lines.push_back(Utf8FromGbk(line));
        line.clear();
    };
    while (!rest.empty() && lines.size() < LongestRemark) {
        const std::string_view character = FirstCharacter(rest);
        rest.remove_prefix(character.size());
        if (character == "\r" && rest.starts_with('\n'))
            rest.remove_prefix(1);
        const bool lineEnd = character == "\r" || character == "\n";
        const bool isControl = static_cast<unsigned char>(character.front()) < ' ';
        if (!lineEnd)
            line += isControl ? " " : character;
        if (lineEnd || line.size() >= fullLine)
            endLine();
    }
    if (!line.empty())
        endLine();
    return lines;
}

}  // namespace ecg
