// The report of a record in review, from the window's key through the machine's printing system to the paper.
#include "app/ReviewDesk.h"
#include "platform/qt/QtPrinter.h"
#include "printing/PdfPage.h"
#include "printing/PrintQueue.h"
#include "review/ReviewFixture.h"
#include "support/FakeClock.h"
#include "support/ScriptedMessageBox.h"
#include "support/ScriptedWindows.h"
#include "support/WindowDriver.h"

#include <QApplication>

#include <algorithm>
#include <cmath>
#include <complex>
#include <gmock/gmock.h>
#include <numbers>

namespace ecg {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int dpi = 300;
constexpr double pixelsPerMm = dpi / 25.4;
constexpr int longestPrintMs = 60000;

// The pitch near 1 mm that the lines of a picture repeat with, in mm; across it, or down when turned.
double GridPitchMm(const QImage& picture)
{
    std::vector<double> darkness(static_cast<std::size_t>(picture.width()));
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            darkness[static_cast<std::size_t>(x)] += 255 - qGray(picture.pixel(x, y));
    const auto strength = [&darkness](double mm) {
        std::complex<double> sum;
        for (std::size_t x = 0; x < darkness.size(); ++x)
            sum += darkness[x] * std::polar(1.0, 2 * std::numbers::pi * static_cast<double>(x) / (mm * pixelsPerMm));
        return std::abs(sum);
    };
    double best = 0.95;
    for (double mm = best; mm < 1.05; mm += 0.0005)
        if (strength(mm) > strength(best))
            best = mm;
    return best;
}

class PrintedReport : public testing::Test, protected ReviewRecord {
protected:
    void SetUp() override
    {
        if (const std::string why = PrintQueue::WhyNot(); !why.empty())
            GTEST_SKIP() << why;
        queue_.emplace();
        ASSERT_TRUE(queue_->IsOk()) << queue_->Reason();
    }

    std::optional<PrintedDocument> NextDocument()
    {
        std::optional<PrintedDocument> document;
        (void)QTest::qWaitFor([&] { return (document = queue_->Take()).has_value(); }, longestPrintMs);
        return document;
    }

    std::optional<PrintQueue> queue_;
    ScriptedMessageBox messages_;
    ScriptedWindows windows_;
    FakeClock clock_;
    Pictures pictures_{std::filesystem::path(ECG_SOURCE) / "assets" / "pictures"};
    QtPrinter printer_{pictures_};
    ReviewDesk desk_{State, windows_, messages_, printer_, clock_, pictures_};
};

TEST_F(PrintedReport, IsOneTruePageAndAsksBeforeASecond)
{
    Store(FlaggedHeart(30));
    desk_.Open(nullptr);
    const auto windows = QApplication::topLevelWidgets();
    const auto window = std::ranges::find(windows, "frmxECG", &QWidget::objectName);
    ASSERT_NE(window, windows.end());
    Click(**window, "Command2_2");
    EXPECT_THAT(messages_.Shown, IsEmpty());
    EXPECT_THAT(windows_.Opened, IsEmpty()) << "the first page is not asked for";

    const auto document = NextDocument();
    ASSERT_TRUE(document);
    const PdfFacts facts = ReadPdf(document->Printed);
    EXPECT_EQ(facts.Pages, 1);
    EXPECT_NEAR(facts.WidthMm, 297, 0.5);
    EXPECT_NEAR(facts.HeightMm, 210, 0.5);
    const std::string text = PdfText(document->Sent);
    for (const char* words : {"12导同步心电图报告", "Zhang San", "20260309080507", "滤波器：", "采样：30s"})
        EXPECT_THAT(text, HasSubstr(words));
    const QImage page = PdfPicture(document->Printed, dpi);
    ASSERT_FALSE(page.isNull());
    EXPECT_NEAR(GridPitchMm(page), 1, 0.005);
    EXPECT_NEAR(GridPitchMm(page.transformed(QTransform().rotate(90))), 1, 0.005);

    windows_.Scripts[WindowName::frmMsg] = [this] { State.MsgResult = 1; };
    Click(**window, "Command2_2");
    EXPECT_THAT(windows_.Opened, ElementsAre(WindowName::frmMsg));
    EXPECT_THAT(State.MsgLines[0], HasSubstr("已经打印过报告了"));
    windows_.Scripts[WindowName::frmMsg] = [this] { State.MsgResult = 0; };
    Click(**window, "Command2_2");
    EXPECT_TRUE(NextDocument()) << "a yes prints again";
    EXPECT_FALSE(queue_->Take()) << "the no printed nothing";
}

}  // namespace
}  // namespace ecg
