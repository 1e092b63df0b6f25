#include "platform/qt/PictureBox.h"

#include <utility>

namespace ecg {

PictureBox::PictureBox(const Pictures& pictures, QString name, QWidget* parent)
    : QWidget(parent), pictures_(pictures), name_(std::move(name))
{}

void PictureBox::SetPicture(const QString& name)
{
    if (name == name_)
        return;
    name_ = name;
    update();
}

// A picture is drawn once for its size and shown from then on: the boxes of a window are repainted far more often.
void PictureBox::paintEvent(QPaintEvent*)
{
    const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
    if (drawnName_ != name_ || drawn_.size() != pixels) {
        drawn_ = QPixmap(pixels);
        drawn_.fill(Qt::transparent);
        drawn_.setDevicePixelRatio(devicePixelRatioF());
        QPainter painter(&drawn_);
        pictures_.Draw(painter, name_, QRectF(rect()));
        drawnName_ = name_;
    }
    QPainter(this).drawPixmap(0, 0, drawn_);
}

}  // namespace ecg
