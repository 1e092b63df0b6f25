// Answers every message with `Answer` and keeps what was shown.
#pragma once

#include "platform/MessageBox.h"

#include <functional>
#include <string>
#include <vector>

namespace ecg {

class ScriptedMessageBox final : public MessageBox {
public:
    struct Message {
        std::string Text;
        std::string Title;
        MessageButtons Buttons;
    };

    bool Show(std::string_view text, std::string_view title, MessageButtons buttons) override
    {
        Shown.push_back({std::string(text), std::string(title), buttons});
        OnShow();
        return Answer;
    }

    bool Answer = true;
    std::function<void()> OnShow = [] {};  // what happens while a message stands
    std::vector<Message> Shown;
};

}  // namespace ecg
