// The system's message box: a blocking question or notice with the buttons of the platform.
#pragma once

#include <string_view>

namespace ecg {

enum class MessageButtons {
    Ok,
    OkCancel,
    OkIgnore,  // `OkCancel` whose Chinese button is "忽略" (ignore), for texts that speak of it
    YesNo
};

class MessageBox {
public:
    virtual ~MessageBox() = default;

    // Shows UTF-8 text and blocks. True for OK or Yes; false for Cancel, Ignore, No, or a closed box.
    virtual bool Show(std::string_view text, std::string_view title, MessageButtons buttons) = 0;

    void Tell(std::string_view text, std::string_view title) { Show(text, title, MessageButtons::Ok); }
};

}  // namespace ecg
