// The message box of the toolkit, with its buttons in the language that runs.
#pragma once

#include "platform/MessageBox.h"

#include <functional>

namespace ecg {

class QtMessageBox final : public MessageBox {
public:
    explicit QtMessageBox(std::function<bool()> chinese);

    bool Show(std::string_view text, std::string_view title, MessageButtons buttons) override;

private:
    std::function<bool()> chinese_;
};

}  // namespace ecg
