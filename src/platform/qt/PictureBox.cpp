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

void PictureBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    pictures_.Draw(painter, name_, QRectF(rect()));
}

} // namespace ecg
