// Finds the controls of a window by their names and works them as a user does.
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace ecg {

// The one window that a test has on the screen.
class OneWindow {
public:
    // In place of the one that was shown before.
    template <class Window, class... Arguments>
    Window& Show(Arguments&... arguments)
    {
        auto window = std::make_unique<Window>(arguments...);
        Window& shown = *window;
        window_ = std::move(window);
        shown.show();
        return shown;
    }

    // To be called before what the window was given is gone.
    void CloseWindow() { window_.reset(); }

private:
    std::unique_ptr<QWidget> window_;
};

// The control `name`, for example "Text1_3". A window without it is a fault of the test or the window: the test ends.
template <class Control>
Control& Find(QWidget& window, const std::string& name)
{
    auto* control = window.findChild<Control*>(QString::fromStdString(name));
    if (control == nullptr) {
        ADD_FAILURE() << "no control " << name;
        std::abort();
    }
    return *control;
}

inline void Click(QWidget& window, const std::string& name)
{
    QTest::mouseClick(&Find<QAbstractButton>(window, name), Qt::LeftButton);
}

// Clicks on the mark of a check or radio box; the middle of a wide one is empty.
inline void ClickMark(QWidget& window, const std::string& name)
{
    auto& box = Find<QAbstractButton>(window, name);
    QTest::mouseClick(&box, Qt::LeftButton, {}, {8, box.height() / 2});
}

inline void Type(QWidget& window, const std::string& name, const std::string& text)
{
    auto& box = Find<QLineEdit>(window, name);
    box.setFocus();
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, QString::fromStdString(text));
}

inline std::string TextOf(QWidget& window, const std::string& name)
{
    return Find<QLineEdit>(window, name).text().toStdString();
}

inline std::string LabelOf(QWidget& window, const std::string& name)
{
    return Find<QLabel>(window, name).text().toStdString();
}

}  // namespace ecg
