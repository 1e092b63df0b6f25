#include "review/windows/TraceView.h"

#include "review/PageSurface.h"
#include "review/ReviewPicture.h"
#include "review/TraceDrawing.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace ecg {
namespace {

constexpr double bottomMargin = 8;  // mm below the traces, for the bottom line
constexpr double rightMargin = 1;   // mm
constexpr QSize smallest(480, 320);

}  // namespace

TraceView::TraceView(RecordReview& review, const Pictures& pictures, QWidget* parent)
    : QWidget(parent), review_(review), pictures_(pictures), rrBox_(new MarkerStrip(this))
{
    setObjectName("PicFore");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(smallest);
}

QSize TraceView::PictureSize() const
{
    const double width = TraceWidth(review_, OneLine) - ScreenCorner.X + rightMargin;
    const double height = TraceAreaHeight - ScreenCorner.Y + bottomMargin;
    return (QSizeF(width, height) * review_.View.DisplayScale).toSize();
}

::QPoint TraceView::LargestOffset() const
{
    const QSize hidden = (PictureSize() - size()).expandedTo({0, 0});
    return {hidden.width(), hidden.height()};
}

void TraceView::SetOffset(::QPoint offset)
{
    const ::QPoint largest = LargestOffset();
    offset = {std::clamp(offset.x(), 0, largest.x()), std::clamp(offset.y(), 0, largest.y())};
    if (offset == offset_)
        return;
    offset_ = offset;
    RedrawAll();
    if (OnMoved)
        OnMoved();
}

void TraceView::RedrawAll()
{
    picBack_.reset();
    RedrawTraces();
}

void TraceView::RedrawTraces()
{
    foreIsOld_ = true;
    PlaceMarkers();
    update();
}

Point TraceView::CornerMm() const
{
    const double scale = review_.View.DisplayScale;
    return {ScreenCorner.X + offset_.x() / scale, ScreenCorner.Y + offset_.y() / scale};
}

Point TraceView::ToMm(QPointF pixel) const
{
    const double scale = review_.View.DisplayScale;
    const Point corner = CornerMm();
    return {corner.X + pixel.x() / scale, corner.Y + pixel.y() / scale};
}

double TraceView::ToPixelX(double mm) const
{
    return (mm - CornerMm().X) * review_.View.DisplayScale;
}

void TraceView::PlaceMarkers()
{
    const Rect box = MarkerBox(review_.Layout(OneLine), review_.View.AnalysisLead);
    const bool shown = review_.View.Mode == ReviewMode::Ecg && box.Width > 0;
    rrBox_->setVisible(shown);
    if (!shown)
        return;
    const double scale = review_.View.DisplayScale;
    const double left = std::round(ToPixelX(box.X));
    rrBox_->setGeometry(static_cast<int>(left), static_cast<int>(std::lround((box.Y - CornerMm().Y) * scale)),
                        static_cast<int>(std::lround(box.Width * scale)),
                        static_cast<int>(std::lround(box.Height * scale)));
    // The measured beat, and not the place of the selected one: after scrolling that names another beat.
    const std::int32_t measured = review_.File.CenterSlot;
    std::array<int, MarkerStrip::MarkerCount> places{};
    std::size_t selected = places.size();
    for (std::size_t i = 0; i < places.size(); ++i) {
        const std::int32_t slot = review_.File.RFlagList[i];
        const auto x =
            PlaceOfSlot({.Left = box.X, .Width = box.Width}, slot, review_.State().BlockStart, review_.Scale().Speed);
        places[i] = slot > 0 && x ? static_cast<int>(std::lround(ToPixelX(*x) - left)) : -1;
        if (slot > 0 && slot == measured)
            selected = i;
    }
    rrBox_->Place(places, selected);
}

void TraceView::DrawBack()
{
    picBack_ = std::make_unique<ImageSurface>(width(), height(), devicePixelRatioF(), pictures_);
    const PageLook look = ScreenLook(review_.State(), review_.View.DisplayScale);
    picBack_->Fill({0, 0, picBack_->Width(), picBack_->Height()}, look.Paper);
    PageSurface page(*picBack_, review_.View.DisplayScale, CornerMm());
    ecg::DrawBack(page, review_, OneLine, look);
}

void TraceView::DrawFore()
{
    if (!picFore_ || picFore_->Image().size() != picBack_->Image().size())
        picFore_ = std::make_unique<ImageSurface>(width(), height(), devicePixelRatioF(), pictures_);
    picFore_->Copy(*picBack_, {0, 0, picBack_->Width(), picBack_->Height()}, {0, 0});
    const PageLook look = ScreenLook(review_.State(), review_.View.DisplayScale);
    PageSurface page(*picFore_, review_.View.DisplayScale, CornerMm());
    DrawFront(page, review_, OneLine, look);
    DrawRule(page, review_, look);
    foreIsOld_ = false;
}

void TraceView::paintEvent(QPaintEvent*)
{
    // Another size, or a screen of another resolution.
    if (picBack_ && (picBack_->Image().deviceIndependentSize() != QSizeF(size()) ||
                     picBack_->Image().devicePixelRatio() != devicePixelRatioF()))
        picBack_.reset();
    if (!picBack_) {
        picFore_.reset();
        foreIsOld_ = true;
        DrawBack();
    }
    if (foreIsOld_)
        DrawFore();
    QPainter(this).drawImage(0, 0, picFore_->Image());
}

void TraceView::resizeEvent(QResizeEvent*)
{
    SetOffset(offset_);
    PlaceMarkers();
    if (OnMoved)
        OnMoved();
}

void TraceView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton && OnMenu)
        OnMenu(event->globalPosition().toPoint());
    if (event->button() != Qt::LeftButton)
        return;
    if (review_.View.Rule.On && HasTraces(review_.View.Mode)) {
        review_.View.Rule.Begin(ToMm(event->position()));
        RedrawTraces();
        return;
    }
    dragging_ = true;
    dragFrom_ = event->position().toPoint() + offset_;
}

void TraceView::mouseMoveEvent(QMouseEvent* event)
{
    if (!event->buttons().testFlag(Qt::LeftButton))
        return;
    if (review_.View.Rule.On && review_.View.Rule.Drawn) {
        review_.View.Rule.Follow(ToMm(event->position()));
        RedrawTraces();
    } else if (dragging_) {
        SetOffset(dragFrom_ - event->position().toPoint());
    }
}

void TraceView::mouseReleaseEvent(QMouseEvent*)
{
    dragging_ = false;
}

void TraceView::wheelEvent(QWheelEvent* event)
{
    constexpr int notch = 120;
    const int turned = event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    turned_ += turned;  // some wheels and pads turn by small parts of a notch
    const int steps = turned_ / notch;
    turned_ -= steps * notch;
    if (OnWheel && steps != 0)
        OnWheel(-steps);
}

}  // namespace ecg
