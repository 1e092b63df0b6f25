#include "review/windows/MarkerStrip.h"

#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"

#include <QMouseEvent>
#include <QPainter>

namespace ecg {
namespace {

// In pixels. A marker points down to its beat.
constexpr int markerWidth = 15;
constexpr double plainHalf = 4;
constexpr double selectedHalf = 6;
constexpr double outline = 1.5;
constexpr double heightOfHalf = 1.5;  // the height of the triangle in parts of half its width

}  // namespace

BeatMarker::BeatMarker(QWidget* parent) : QWidget(parent)
{
    style::SetHandCursor(*this);
}

void BeatMarker::SetSelected(bool selected)
{
    selected_ = selected;
    update();
}

void BeatMarker::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(style::Accent, outline));
    painter.setBrush(selected_ ? QBrush(style::Accent) : QBrush(style::Field));
    const double middle = width() / 2.0;
    const double half = selected_ ? selectedHalf : plainHalf;
    const double bottom = height() - outline;
    const double top = bottom - heightOfHalf * half;
    painter.drawPolygon(QPolygonF{{middle - half, top}, {middle + half, top}, {middle, bottom}});
}

void BeatMarker::mousePressEvent(QMouseEvent* event)
{
    if (OnClick)
        OnClick(event->button(), event->globalPosition().toPoint());
}

MarkerStrip::MarkerStrip(QWidget* parent) : QWidget(parent)
{
    setObjectName("rrBox");
    for (std::size_t i = 0; i < MarkerCount; ++i) {
        Label2_[i] = Named(new BeatMarker(this), "Label2", i);
        Label2_[i]->hide();
        Label2_[i]->OnClick = [this, i](Qt::MouseButton button, const ::QPoint& place) {
            if (button == Qt::RightButton && OnMarkerMenu)
                OnMarkerMenu(i, place);
            else if (button == Qt::LeftButton && OnSelect)
                OnSelect(i);
        };
    }
}

void MarkerStrip::Place(const std::array<int, MarkerCount>& places, std::size_t selected)
{
    for (std::size_t i = 0; i < MarkerCount; ++i) {
        Label2_[i]->setVisible(places[i] >= 0);
        Label2_[i]->setGeometry(places[i] - markerWidth / 2, 0, markerWidth, height());
        Label2_[i]->SetSelected(i == selected);
    }
}

// The left button belongs to the traces below: the rule may begin here.
void MarkerStrip::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::RightButton || !OnMenu) {
        event->ignore();
        return;
    }
    OnMenu(event->position().toPoint().x(), event->globalPosition().toPoint());
}

}  // namespace ecg
