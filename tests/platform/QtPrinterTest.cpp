// A document of the printer as a PDF file: a millimetre is one on paper, and its words can be searched.
#include "platform/qt/QtPrinter.h"

#include "support/FileBytes.h"
#include "support/TemporaryDataFolder.h"

#include <gtest/gtest.h>

#include <sstream>

namespace ecg {
namespace {

// What a page draws, as the text it is stored compressed from.
std::string PageContent(const std::string& pdf)
{
    constexpr std::string_view begin = "stream\n";
    const std::size_t first = pdf.find(begin) + begin.size();
    const std::string packed = pdf.substr(first, pdf.find("endstream", first) - first);
    QByteArray sized("\0\1\0\0", 4);  // the length that is expected, as Qt wants it in front
    sized.append(packed.data(), static_cast<qsizetype>(packed.size()));
    return qUncompress(sized).toStdString();
}

// The points that lines lead to, in points of the paper from its lower left corner. Pages are only moved and scaled.
std::vector<Point> LineEnds(const std::string& content)
{
    struct Placing {
        Point Scale{1, 1};
        Point Origin;
    };
    std::vector<Placing> saved;
    Placing now;
    std::vector<Point> ends;
    std::vector<double> numbers;
    std::istringstream words(content);
    for (std::string word; words >> word;) {
        if (word == "q")
            saved.push_back(now);
        if (word == "Q" && !saved.empty()) {
            now = saved.back();
            saved.pop_back();
        }
        const auto last = numbers.end();
        if (word == "cm" && numbers.size() >= 6) {
            now.Origin = {now.Origin.X + now.Scale.X * last[-2], now.Origin.Y + now.Scale.Y * last[-1]};
            now.Scale = {now.Scale.X * last[-6], now.Scale.Y * last[-3]};
        }
        if (word == "l" && numbers.size() >= 2)
            ends.push_back({now.Origin.X + now.Scale.X * last[-2], now.Origin.Y + now.Scale.Y * last[-1]});
        char* rest = nullptr;
        const double number = std::strtod(word.c_str(), &rest);
        if (*rest == '\0')
            numbers.push_back(number);
        else
            numbers.clear();
    }
    return ends;
}

TEST(QtPrinter, IsTrueToScaleAndSearchable)
{
    const TemporaryDataFolder folder;
    const Pictures pictures(folder.Paths().Program);
    const auto file = folder.File("page.pdf");
    for (const bool fine : {false, true}) {
        QtPrinter printer(pictures, QString::fromStdString(file.string()));
        Surface* page = printer.StartDocument("Page", false, fine);
        ASSERT_NE(page, nullptr);
        EXPECT_NEAR(page->Width(), 297 - 2 * 5, 0.1);
        EXPECT_NEAR(page->Height(), 210 - 2 * 5, 0.1);
        for (const Point end : {Point{10, 20}, {210, 20}, {10, 170}})
            page->Line({100, 100}, end, {0, 0, 0});
        page->Text({10, 30}, "V12", {5, {0, 0, 0}, false});
        ASSERT_TRUE(printer.EndDocument());

        const std::string pdf = FileBytes(file);
        EXPECT_NE(pdf.find("<0056> <0031> <0032>"), std::string::npos) << "the characters of the glyphs";
        const auto ends = LineEnds(PageContent(pdf));
        ASSERT_EQ(ends.size(), 3U);
        constexpr double pointsPerMm = 72 / 25.4;
        EXPECT_NEAR((ends[1].X - ends[0].X) / pointsPerMm, 200, 0.001);
        EXPECT_NEAR((ends[0].Y - ends[2].Y) / pointsPerMm, 150, 0.001);
        EXPECT_NEAR(ends[0].X / pointsPerMm, 10 + 5, 0.2);
    }
}

TEST(QtPrinter, SaysWhenTheFileCannotBeWritten)
{
    const TemporaryDataFolder folder;
    const Pictures pictures(folder.Paths().Program);
    QtPrinter printer(pictures, QString::fromStdString(folder.File("no such folder/page.pdf").string()));
    EXPECT_TRUE(printer.StartDocument("Page", false, false) == nullptr || !printer.EndDocument());
}

}  // namespace
}  // namespace ecg
