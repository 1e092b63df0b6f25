// How strips are copied between images of a screen's resolution, which the moving trace does at every column.
#include "platform/qt/QtSurface.h"

#include <gtest/gtest.h>

namespace ecg {
namespace {

constexpr int width = 60;
constexpr int height = 40;
constexpr Colour ground{10, 20, 30};
constexpr Colour paper{200, 100, 0};

QRgb ToQt(Colour colour)
{
    return qRgb(colour.R, colour.G, colour.B);
}

class ImageSurfaceAtScale : public testing::TestWithParam<double> {
protected:
    ImageSurfaceAtScale()
    {
        source.Fill({0, 0, width, height}, paper);
        target.Fill({0, 0, width, height}, ground);
    }

    // The area, in device pixels, that has the paper's colour; every other pixel must have the ground's.
    QRect PaperArea() const
    {
        QRect area;
        int count = 0;
        const QImage& image = target.Image();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) == ToQt(paper)) {
                    area |= QRect(x, y, 1, 1);
                    ++count;
                } else {
                    EXPECT_EQ(image.pixel(x, y), ToQt(ground)) << x << ", " << y;
                }
            }
        }
        EXPECT_EQ(count, area.width() * area.height()) << "the copied pixels are no rectangle";
        return area;
    }

    // Coordinates that are whole pixels at every scale of this test.
    QRect Device(int x, int y, int w, int h) const
    {
        const double scale = GetParam();
        return QRectF(x * scale, y * scale, w * scale, h * scale).toRect();
    }

    const Pictures pictures{""};
    ImageSurface source{width, height, GetParam(), pictures};
    ImageSurface target{width, height, GetParam(), pictures};
};

INSTANTIATE_TEST_SUITE_P(Screens, ImageSurfaceAtScale, testing::Values(1.0, 1.25, 1.5, 2.0, 3.0));

TEST_P(ImageSurfaceAtScale, CopiesWhatStoodInThePlaceThatWasNamed)
{
    source.Fill({0, 0, width, height}, ground);
    source.Fill({8, 12, 4, 4}, paper);
    target.Copy(source, {4, 8, 20, 20}, {24, 4});
    EXPECT_EQ(PaperArea(), Device(28, 8, 4, 4));
}

TEST_P(ImageSurfaceAtScale, ClipsAtTheEdgesOfBothImages)
{
    target.Copy(source, {0, 0, 20, height}, {-12, -8});
    EXPECT_EQ(PaperArea(), Device(0, 0, 8, height - 8));
    target.Copy(source, {width - 4, height - 4, 100, 100}, {width - 8, height - 8});
    EXPECT_EQ(target.Image().pixel(Device(width - 8, height - 8, 1, 1).topLeft()), ToQt(paper));
    EXPECT_EQ(target.Image().pixel(Device(width - 4, height - 4, 1, 1).topLeft()), ToQt(ground));
    target.Copy(source, {2 * width, 0, 10, 10}, {20, 0});
    target.Copy(source, {0, 0, 10, 10}, {20, 2 * height});
    EXPECT_EQ(target.Image().pixel(Device(20, 0, 1, 1).topLeft()), ToQt(ground));
}

TEST_P(ImageSurfaceAtScale, IgnoresItselfAndImagesOfAnotherScale)
{
    const ImageSurface other(width, height, GetParam() + 1, pictures);
    target.Copy(other, {0, 0, width, height}, {0, 0});
    target.Fill({0, 0, 4, 4}, paper);
    target.Copy(target, {0, 0, 4, 4}, {20, 20});
    EXPECT_EQ(PaperArea(), Device(0, 0, 4, 4));
}

}  // namespace
}  // namespace ecg
