#include "platform/qt/PictureKey.h"

#include "platform/qt/Style.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>

#include <utility>

namespace ecg {
namespace {

constexpr int captionDrop = 3;  // pixels; leaves room for a lamp above the caption

bool IsPressKey(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Space || event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}  // namespace

PictureKey::PictureKey(const Pictures& pictures, Faces faces, QWidget* parent)
    : PictureBox(pictures, faces.Released, parent), faces_(std::move(faces)), caption_(new QLabel(this))
{
    setFocusPolicy(Qt::StrongFocus);
    caption_->setAlignment(Qt::AlignCenter);
    caption_->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PictureKey::ShowPressed(bool pressed)
{
    pressed_ = pressed;
    ShowFace();
}

void PictureKey::ActOnRelease(std::function<void()> act)
{
    style::SetHandCursor(*this);
    OnKeyDown = [this] { ShowPressed(true); };
    OnKeyUp = [this, act = std::move(act)](int x, int y) {
        ShowPressed(false);
        if (rect().contains(x, y))
            act();
    };
}

void PictureKey::ShowFace()
{
    SetPicture(!isEnabled()   ? faces_.Disabled
               : pressed_     ? faces_.Pressed
               : underMouse() ? faces_.Hovered
                              : faces_.Released);
    caption_->setGeometry(rect().translated(0, captionDrop + (pressed_ && isEnabled() ? 1 : 0)));
    update();
}

void PictureKey::paintEvent(QPaintEvent* event)
{
    PictureBox::paintEvent(event);
    if (!isEnabled() || !hasFocus())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(style::Accent, 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
}

void PictureKey::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && OnKeyDown)
        OnKeyDown();
}

void PictureKey::mouseReleaseEvent(QMouseEvent* event)
{
    const QPoint place = event->position().toPoint();
    if (event->button() == Qt::LeftButton && OnKeyUp)
        OnKeyUp(place.x(), place.y());
}

void PictureKey::keyPressEvent(QKeyEvent* event)
{
    if (!IsPressKey(*event)) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (event->isAutoRepeat() || heldByKeyboard_)
        return;
    heldByKeyboard_ = true;
    if (OnKeyDown)
        OnKeyDown();
}

void PictureKey::keyReleaseEvent(QKeyEvent* event)
{
    if (!IsPressKey(*event)) {
        QWidget::keyReleaseEvent(event);
        return;
    }
    if (event->isAutoRepeat() || !heldByKeyboard_)
        return;
    heldByKeyboard_ = false;
    if (OnKeyUp)
        OnKeyUp(width() - 1, height() - 1);
}

void PictureKey::focusOutEvent(QFocusEvent* event)
{
    // A press that loses the keyboard is no press: it ends as if it were dragged off the key.
    if (std::exchange(heldByKeyboard_, false) && OnKeyUp)
        OnKeyUp(-1, -1);
    QWidget::focusOutEvent(event);
    update();
}

void PictureKey::enterEvent(QEnterEvent*)
{
    ShowFace();
}

void PictureKey::leaveEvent(QEvent*)
{
    ShowFace();
}

void PictureKey::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange)
        ShowFace();
    PictureBox::changeEvent(event);
}

void PictureKey::resizeEvent(QResizeEvent*)
{
    ShowFace();
}

}  // namespace ecg
