#include "platform/qt/SurfaceBox.h"

#include "platform/qt/QtSurface.h"

#include <utility>

namespace ecg {

SurfaceBox::SurfaceBox(const Pictures& pictures, std::function<void(Surface&)> draw, QWidget* parent)
    : QWidget(parent), pictures_(pictures), draw_(std::move(draw))
{}

void SurfaceBox::paintEvent(QPaintEvent*)
{
    ImageSurface image(width(), height(), devicePixelRatioF(), pictures_);
    draw_(image);
    QPainter(this).drawImage(0, 0, image.Image());
}

}  // namespace ecg
