#include "record/Json.h"

namespace ecg {

std::string Json(std::string_view text)
{
    constexpr char firstPrintable = ' ';
    constexpr const char* hex = "0123456789abcdef";
    std::string json = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            json += std::string("\\") + c;
        else if (c >= 0 && c < firstPrintable)
            json += std::string("\\u00") + hex[c / 16] + hex[c % 16];
        else
            json += c;
    }
    return json + "\"";
}

}  // namespace ecg
