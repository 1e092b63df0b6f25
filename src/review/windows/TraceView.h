// The traces of the review window: `PicFore` on the grid `PicBack`, two pictures of one size. The view shows a part of
// a larger picture and can be moved over it.
#pragma once

#include "platform/qt/QtSurface.h"
#include "review/RecordReview.h"
#include "review/windows/MarkerStrip.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace ecg {

class TraceView final : public QWidget {
public:
    TraceView(RecordReview& review, const Pictures& pictures, QWidget* parent);

    // The whole picture at the scale in use, in pixels.
    QSize PictureSize() const;

    // The pixel of the picture that stands at the top left; kept inside the picture.
    ::QPoint Offset() const { return offset_; }
    void SetOffset(::QPoint offset);

    // How far the picture is larger than the view: the largest offset.
    ::QPoint LargestOffset() const;

    void RedrawAll();     // another scale, form or colour
    void RedrawTraces();  // other samples, on the same grid

    MarkerStrip& rrBox() { return *rrBox_; }

    std::function<void()> OnMoved;     // the offset or the size has changed
    std::function<void(int)> OnWheel;  // steps forward in time
    std::function<void(const ::QPoint& place)> OnMenu;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void PlaceMarkers();
    void DrawBack();
    void DrawFore();
    Point CornerMm() const;
    Point ToMm(QPointF pixel) const;
    double ToPixelX(double mm) const;

    RecordReview& review_;
    const Pictures& pictures_;
    MarkerStrip* rrBox_;
    std::unique_ptr<ImageSurface> picBack_;
    std::unique_ptr<ImageSurface> picFore_;
    bool foreIsOld_ = true;
    ::QPoint offset_;
    ::QPoint dragFrom_;  // where a hand that moves the picture took it
    bool dragging_ = false;
    int turned_ = 0;  // eighths of a degree of the wheel that are no step yet
};

}  // namespace ecg
