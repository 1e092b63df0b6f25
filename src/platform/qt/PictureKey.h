// A key of the main window: a picture that changes while it is pressed, with a caption of its own.
//
// The key only reports what happens to it; unless it is an ordinary button, its owner decides which picture it shows
// and what it does. Space and Enter press it from the keyboard like the mouse.
#pragma once

#include "platform/qt/PictureBox.h"

#include <functional>

class QLabel;

namespace ecg {

class PictureKey final : public PictureBox {
public:
    // Names of the pictures.
    struct Faces {
        QString Released;
        QString Pressed;
        QString Hovered;
        QString Disabled;
    };

    PictureKey(const Pictures& pictures, Faces faces, QWidget* parent);

    // The label on the key, which the key keeps centred; it takes no mouse events.
    QLabel* Caption() const { return caption_; }

    void ShowPressed(bool pressed);

    // Makes it an ordinary button: it shows when it is pressed, and `act` runs when it is released over itself.
    void ActOnRelease(std::function<void()> act);

    std::function<void()> OnKeyDown;

    // The place of the release in the key's pixels; outside the key when it was dragged off.
    std::function<void(int x, int y)> OnKeyUp;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ShowFace();

    Faces faces_;
    QLabel* caption_;
    bool pressed_ = false;  // the pressed picture shows
    bool heldByKeyboard_ = false;
};

}  // namespace ecg
