// Drives the windows as a user would, and takes their pictures: what the scenes of the tour are written with.
#pragma once

#include <QString>
#include <QWidget>

#include <filesystem>
#include <functional>

namespace ecg {

class TourDriver {
public:
    // Pictures go to `folder` as 01-name.png, 02-name.png and so on.
    explicit TourDriver(std::filesystem::path folder);

    // Lets the program run for so long.
    void Wait(int milliseconds);

    // Lets the program run until `condition` holds; false when it does not within `milliseconds`.
    bool WaitUntil(const std::function<bool()>& condition, int milliseconds);

    // The control of that object name; ends the tour when there is none.
    template <class Control = QWidget>
    Control& Find(const QWidget& window, const QString& name)
    {
        auto* control = window.findChild<Control*>(name);
        if (control == nullptr)
            Fail("no control " + name);
        return *control;
    }

    void Click(const QWidget& window, const QString& control, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    // Types into a line in place of what it holds.
    void Type(const QWidget& window, const QString& line, const QString& text);

    // Picks entry `index` of a selector with the keyboard.
    void Select(const QWidget& window, const QString& selector, int index);

    // The window of that name that shows; ends the tour when there is none.
    QWidget& Window(const QString& name);

    // Runs `scene` on the window of that name as soon as it has opened; `open` may return only when it has closed again.
    void InWindow(const QString& window, const std::function<void()>& open, const std::function<void(QWidget&)>& scene);

    // The same for a question of the message box, which is answered with OK after its picture was taken.
    void Agree(const std::function<void()>& open, const QString& picture);

    void Picture(QWidget& window, const QString& name);

    // Notes whether something holds; the tour goes on either way.
    void Check(bool holds, const QString& what);

    int FailureCount() const { return failures_; }

private:
    [[noreturn]] void Fail(const QString& why);

    std::filesystem::path folder_;
    int pictures_ = 0;
    int failures_ = 0;
};

}  // namespace ecg
