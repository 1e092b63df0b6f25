// Drawing on a Qt painter: the screen's images, a printer, a PDF.
#pragma once

#include "platform/Surface.h"
#include "platform/qt/Pictures.h"

#include <QImage>
#include <QPainter>

namespace ecg {

class QtSurface : public Surface {
public:
    // Draws with `painter`, which outlives this object, on an area of `width` by `height` of its current units.
    QtSurface(QPainter& painter, double width, double height, const Pictures& pictures);

    double Width() const override { return width_; }
    double Height() const override { return height_; }

    void Fill(const Rect& area, Colour colour) override;
    void Copy(const Surface&, const Rect&, Point) override {}  // a page cannot be read again
    void SetPenWidth(double width) override { penWidth_ = width; }
    void Line(Point from, Point to, Colour colour) override;
    void Polyline(std::span<const Point> points, Colour colour) override;
    void Arc(Point centre, double radius, double startDegrees, double spanDegrees, Colour colour) override;
    void Dot(Point centre, double diameter, Colour colour) override;
    void Text(Point at, std::string_view text, const TextStyle& style) override;
    double TextWidth(std::string_view text, const TextStyle& style) const override;
    void Picture(std::string_view name, const Rect& area) override;

protected:
    void SetPixelCentres(double offset) { offset_ = offset; }
    double PenWidth() const { return penWidth_; }

private:
    QPen Pen(Colour colour) const;
    QPointF At(Point point) const { return {point.X + offset_, point.Y + offset_}; }

    QPainter& painter_;
    double width_;
    double height_;
    double penWidth_ = 1;
    double offset_ = 0;  // brings lines to the middle of a pixel, where they are sharp
    const Pictures& pictures_;
};

// An image and its open painter, made before the surface that draws with them.
struct ImageCanvas {
    ImageCanvas(int width, int height, double scale);

    QImage Pixels;
    QPainter Painter;
};

// A surface on an image of its own, in pixels of the design resolution, drawn at the screen's own resolution.
class ImageSurface final : private ImageCanvas, public QtSurface {
public:
    // `scale` is device pixels per pixel. A width or height below 1 counts as 1.
    ImageSurface(int width, int height, double scale, const Pictures& pictures);

    // Upright and level lines lie on whole device pixels.
    void Line(Point from, Point to, Colour colour) override;

    // Copies whole device pixels, between images of one scale.
    void Copy(const Surface& source, const Rect& area, Point to) override;

    const QImage& Image() const { return Pixels; }
};

}  // namespace ecg
