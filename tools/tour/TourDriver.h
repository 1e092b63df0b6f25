// Drives the windows as a user would, and takes their pictures: what the scenes of the tour are written with.
#pragma once

#include <QImage>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <filesystem>
#include <functional>

namespace ecg {

class TourDriver {
public:
    // Pictures go to `folder` as 001-name.png, 002-name.png and so on.
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

    // Clicks on row `row` of a grid.
    void ClickRow(const QWidget& window, const QString& grid, int row);

    // The first row of a grid that holds `text` in one of its cells, or -1.
    int RowOf(const QWidget& window, const QString& grid, const QString& text);

    // Opens a pop-up menu and clicks the entries of `path` one after the other, the names of submenus or of what the
    // last menu offers. With `picture` the last menu is pictured.
    void Choose(const std::function<void()>& open, const QStringList& path, const QString& picture = {});

    // The window of that name that shows; ends the tour when there is none.
    QWidget& Window(const QString& name);

    // Runs `scene` on the window of that name as soon as it has opened; one that shows already does not count. `open`
    // may return only when it has closed again.
    void InWindow(const QString& window, const std::function<void()>& open, const std::function<void(QWidget&)>& scene);

    // The same for a question of the message box, which is answered with OK after its picture was taken.
    void Agree(const std::function<void()>& open, const QString& picture);

    // The same, answered with the other button.
    void Decline(const std::function<void()>& open, const QString& picture);

    void Picture(QWidget& window, const QString& name);
    void Picture(const QImage& image, const QString& name);

    // Notes whether something holds; the tour goes on either way.
    void Check(bool holds, const QString& what);

    int FailureCount() const { return failures_; }

private:
    void Answer(const std::function<void()>& open, const QString& picture, const char* button);
    [[noreturn]] void Fail(const QString& why);

    std::filesystem::path folder_;
    int pictures_ = 0;
    int failures_ = 0;
};

}  // namespace ecg
