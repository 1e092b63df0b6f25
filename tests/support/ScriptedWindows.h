// Windows that are played by the test: opening one runs what the test has written for it.
#pragma once

#include "core/WindowOpener.h"

#include <functional>
#include <map>
#include <vector>

namespace ecg {

class ScriptedWindows final : public WindowOpener {
public:
    // A window without a script is one that this system does not have.
    bool ShowBlocking(WindowName window) override { return Play(window); }
    bool Show(WindowName window) override { return Play(window); }
    void Close(WindowName window) override { Closed.push_back(window); }
    void PumpMessages() override {}

    std::map<WindowName, std::function<void()>> Scripts;
    std::vector<WindowName> Opened;
    std::vector<WindowName> Closed;

private:
    bool Play(WindowName window)
    {
        Opened.push_back(window);
        const auto script = Scripts.find(window);
        if (script == Scripts.end())
            return false;
        script->second();
        return true;
    }
};

}  // namespace ecg
