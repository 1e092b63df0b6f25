#include "platform/qt/QtSurface.h"

#include "platform/qt/Controls.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace ecg {
namespace {

QColor ToQt(Colour colour)
{
    return {colour.R, colour.G, colour.B};
}

// Fonts know whole pixels only, so text is set at this size and scaled to the height that is asked for.
constexpr int typesetPixels = 64;

QFont TypesetFont(const TextStyle& style)
{
    QFont font;
    font.setPixelSize(typesetPixels);
    font.setBold(style.Bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    // Shaping would put glyphs in the place of digits for which a PDF has no character, so that they could not be
    // searched.
    font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}

double TypesetScale(const TextStyle& style, const QFontMetricsF& metrics)
{
    return style.Height / metrics.height();
}

}  // namespace

QtSurface::QtSurface(QPainter& painter, double width, double height, const Pictures& pictures)
    : painter_(painter), width_(width), height_(height), pictures_(pictures)
{
    painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
}

void QtSurface::Fill(const Rect& area, Colour colour)
{
    painter_.fillRect(QRectF(area.X, area.Y, area.Width, area.Height), ToQt(colour));
}

QPen QtSurface::Pen(Colour colour) const
{
    QPen pen(ToQt(colour), penWidth_);
    pen.setCapStyle(Qt::SquareCap);
    pen.setJoinStyle(Qt::RoundJoin);
    return pen;
}

void QtSurface::Line(Point from, Point to, Colour colour)
{
    painter_.setPen(Pen(colour));
    painter_.drawLine(At(from), At(to));
}

void QtSurface::Polyline(std::span<const Point> points, Colour colour)
{
    std::vector<QPointF> path(points.size());
    std::transform(points.begin(), points.end(), path.begin(), [this](Point point) { return At(point); });
    painter_.setPen(Pen(colour));
    painter_.drawPolyline(path.data(), static_cast<int>(path.size()));
}

void QtSurface::Arc(Point centre, double radius, double startDegrees, double spanDegrees, Colour colour)
{
    constexpr double steps = 16;  // Qt counts sixteenths of a degree
    const QPointF middle = At(centre);
    painter_.setPen(Pen(colour));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawArc(QRectF(middle.x() - radius, middle.y() - radius, 2 * radius, 2 * radius),
                     static_cast<int>(std::lround(startDegrees * steps)),
                     static_cast<int>(std::lround(spanDegrees * steps)));
}

void QtSurface::Dot(Point centre, double diameter, Colour colour)
{
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(ToQt(colour));
    painter_.drawEllipse(At(centre), diameter / 2, diameter / 2);
}

void QtSurface::Text(Point at, std::string_view text, const TextStyle& style)
{
    const QFont font = TypesetFont(style);
    const QFontMetricsF metrics(font);
    const double scale = TypesetScale(style, metrics);
    painter_.save();
    painter_.translate(at.X, at.Y);
    painter_.scale(scale, scale);
    painter_.setFont(font);
    painter_.setPen(ToQt(style.Ink));
    painter_.drawText(QPointF(0, metrics.ascent()), ToQt(text));
    painter_.restore();
}

double QtSurface::TextWidth(std::string_view text, const TextStyle& style) const
{
    const QFontMetricsF metrics(TypesetFont(style));
    return metrics.horizontalAdvance(ToQt(text)) * TypesetScale(style, metrics);
}

void QtSurface::Picture(std::string_view name, const Rect& area)
{
    pictures_.Draw(painter_, ToQt(name), QRectF(area.X, area.Y, area.Width, area.Height));
}

ImageCanvas::ImageCanvas(int width, int height, double scale)
    : Pixels(static_cast<int>(std::ceil(std::max(width, 1) * scale)),
             static_cast<int>(std::ceil(std::max(height, 1) * scale)), QImage::Format_RGB32)
{
    Pixels.setDevicePixelRatio(scale);
    Pixels.fill(Qt::black);
    Painter.begin(&Pixels);
}

ImageSurface::ImageSurface(int width, int height, double scale, const Pictures& pictures)
    : ImageCanvas(width, height, scale), QtSurface(Painter, std::max(width, 1), std::max(height, 1), pictures)
{
    SetPixelCentres(0.5);
}

// A grid is hundreds of such lines, and a painter would take each of them through its general path, many times slower.
void ImageSurface::Line(Point from, Point to, Colour colour)
{
    if (from.X != to.X && from.Y != to.Y)
        return QtSurface::Line(from, to, colour);
    constexpr double pixelCentre = 0.5;
    const double scale = Pixels.devicePixelRatio();
    const double reach = PenWidth() / 2;  // of a pen's square end, in all directions
    const auto edge = [&](double place) { return std::round((place + pixelCentre - reach) * scale) / scale; };
    const auto length = [&](double a, double b) {
        return std::max(std::round((std::fabs(b - a) + PenWidth()) * scale), 1.0) / scale;
    };
    Fill({edge(std::min(from.X, to.X)), edge(std::min(from.Y, to.Y)), length(from.X, to.X), length(from.Y, to.Y)},
         colour);
}

// A painter would take a strip of a scaled image through its general path, span by span, which is many times slower.
void ImageSurface::Copy(const Surface& source, const Rect& area, Point to)
{
    const auto* other = dynamic_cast<const ImageSurface*>(&source);
    const double scale = Pixels.devicePixelRatio();
    if (other == nullptr || other == this || other->Pixels.devicePixelRatio() != scale)
        return;
    const QRect wanted =
        QRectF(area.X * scale, area.Y * scale, area.Width * scale, area.Height * scale).toAlignedRect();
    const QPoint shift =
        QPoint(static_cast<int>(std::floor(to.X * scale)), static_cast<int>(std::floor(to.Y * scale))) -
        wanted.topLeft();
    const QRect from = wanted & other->Pixels.rect() & Pixels.rect().translated(-shift);
    if (from.isEmpty())
        return;
    constexpr qsizetype pixelBytes = sizeof(QRgb);
    const auto bytes = static_cast<std::size_t>(from.width() * pixelBytes);
    const uchar* line = other->Pixels.constScanLine(from.top()) + from.left() * pixelBytes;
    uchar* target = Pixels.scanLine(from.top() + shift.y()) + (from.left() + shift.x()) * pixelBytes;
    const qsizetype lineStep = other->Pixels.bytesPerLine();
    const qsizetype targetStep = Pixels.bytesPerLine();
    for (int y = 0; y < from.height(); ++y) {
        std::memcpy(target, line, bytes);
        line += lineStep;
        target += targetStep;
    }
}

}  // namespace ecg
