// A surface that draws nothing and keeps what is filled, copied, drawn in lines, written and pasted, so that a test can
// read a picture as numbers.
#pragma once

#include "platform/Printer.h"
#include "platform/Surface.h"

#include <memory>
#include <string>
#include <vector>

namespace ecg {

class RecordingSurface final : public Surface {
public:
    struct FillOp {
        Rect Area;
        Colour Ink;
    };
    struct CopyOp {
        const Surface* Source;
        Rect Area;
        Point To;
    };
    struct LineOp {
        Point From;
        Point To;
        Colour Ink;
        friend bool operator==(const LineOp&, const LineOp&) = default;
    };
    struct TextOp {
        Point At;
        std::string Text;
    };

    RecordingSurface(double width, double height) : width_(width), height_(height) {}

    double Width() const override { return width_; }
    double Height() const override { return height_; }
    void Fill(const Rect& area, Colour colour) override { Fills.push_back({area, colour}); }
    void Copy(const Surface& source, const Rect& area, Point to) override { Copies.push_back({&source, area, to}); }
    void SetPenWidth(double) override {}
    void Line(Point from, Point to, Colour colour) override { Lines.push_back({from, to, colour}); }
    void Polyline(std::span<const Point> points, Colour colour) override
    {
        for (std::size_t i = 1; i < points.size(); ++i)
            Line(points[i - 1], points[i], colour);
    }
    void Arc(Point, double, double, double, Colour) override {}
    void Dot(Point, double, Colour) override {}
    void Text(Point at, std::string_view text, const TextStyle&) override { Texts.push_back({at, std::string(text)}); }
    double TextWidth(std::string_view text, const TextStyle& style) const override
    {
        return static_cast<double>(text.size()) * style.Height / 2;
    }
    void Picture(std::string_view name, const Rect&) override { Pictures.emplace_back(name); }

    void Forget()
    {
        Fills.clear();
        Copies.clear();
        Lines.clear();
        Texts.clear();
        Pictures.clear();
    }

    std::vector<FillOp> Fills;
    std::vector<CopyOp> Copies;
    std::vector<LineOp> Lines;
    std::vector<TextOp> Texts;
    std::vector<std::string> Pictures;

private:
    double width_;
    double height_;
};

// A printer whose pages are recordings. `Works` off: documents cannot be started.
class RecordingPrinter final : public Printer {
public:
    std::string Name() const override { return PrinterName; }
    bool PrintsColour() const override { return Colour; }
    Surface* StartDocument(std::string_view, bool portrait, bool) override
    {
        if (!Works)
            return nullptr;
        Page = portrait ? std::make_unique<RecordingSurface>(210, 297) : std::make_unique<RecordingSurface>(297, 210);
        return Page.get();
    }
    bool NewPage() override { return Works; }
    bool EndDocument() override
    {
        ++Documents;
        return Works;
    }

    std::string PrinterName = "Office";
    bool Colour = false;
    bool Works = true;
    int Documents = 0;
    std::unique_ptr<RecordingSurface> Page;
};

}  // namespace ecg
