#include "platform/qt/ElidingLabel.h"

#include <QPainter>

namespace ecg {

ElidingLabel::ElidingLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ElidingLabel::ShowText(const QString& text)
{
    setText(text);
    setToolTip(text);
}

QSize ElidingLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void ElidingLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), alignment(), fontMetrics().elidedText(text(), Qt::ElideRight, width()));
}

}  // namespace ecg
