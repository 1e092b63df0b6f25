#include "platform/qt/QtPrinter.h"

#include <QPageLayout>
#include <QPrinterInfo>

#include <algorithm>
#include <utility>

namespace ecg {
namespace {

constexpr double mmPerInch = 25.4;
constexpr int normalDpi = 300;
constexpr int fineDpi = 600;
constexpr double narrowMargin = 5;  // mm

// As much of the paper as the printer reaches, but never up to its very edge: a report needs nearly all of it.
QMarginsF NarrowMargins(QPageLayout layout)
{
    layout.setUnits(QPageLayout::Millimeter);
    const QMarginsF least = layout.minimumMargins();
    return {std::max(least.left(), narrowMargin), std::max(least.top(), narrowMargin),
            std::max(least.right(), narrowMargin), std::max(least.bottom(), narrowMargin)};
}

}  // namespace

QtPrinter::QtPrinter(const Pictures& pictures, QString pdfFile) : pictures_(pictures), pdfFile_(std::move(pdfFile)) {}

QtPrinter::~QtPrinter() = default;

std::string QtPrinter::Name() const
{
    return pdfFile_.isEmpty() ? QPrinterInfo::defaultPrinterName().toStdString() : "PDF";
}

bool QtPrinter::PrintsColour() const
{
    if (!pdfFile_.isEmpty())
        return true;
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    return !info.isNull() && info.supportedColorModes().contains(QPrinter::Color);
}

Surface* QtPrinter::StartDocument(std::string_view title, bool portrait, bool fine)
{
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (pdfFile_.isEmpty() && info.isNull())
        return nullptr;
    page_.reset();
    painter_.reset();
    busy_.emplace();
    device_ = std::make_unique<QPrinter>(info, QPrinter::ScreenResolution);
    if (!pdfFile_.isEmpty()) {
        device_->setOutputFormat(QPrinter::PdfFormat);
        device_->setOutputFileName(pdfFile_);
    }
    device_->setResolution(fine ? fineDpi : normalDpi);
    device_->setDocName(QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size())));
    device_->setPageSize(QPageSize(QPageSize::A4));
    device_->setPageOrientation(portrait ? QPageLayout::Portrait : QPageLayout::Landscape);
    device_->setPageMargins(NarrowMargins(device_->pageLayout()), QPageLayout::Millimeter);
    device_->setColorMode(PrintsColour() ? QPrinter::Color : QPrinter::GrayScale);
    painter_ = std::make_unique<QPainter>();
    if (!painter_->begin(device_.get())) {
        painter_.reset();
        device_.reset();
        busy_.reset();
        return nullptr;
    }
    const double scale = device_->resolution() / mmPerInch;
    painter_->scale(scale, scale);
    const QRectF area = device_->pageRect(QPrinter::Millimeter);
    page_ = std::make_unique<QtSurface>(*painter_, area.width(), area.height(), pictures_);
    page_->SetPenWidth(0.1);
    return page_.get();
}

bool QtPrinter::NewPage()
{
    return device_ && device_->newPage();
}

bool QtPrinter::EndDocument()
{
    if (!painter_)
        return false;
    page_.reset();
    const bool ended = painter_->end();
    const bool printed = ended && device_->printerState() != QPrinter::Error;
    painter_.reset();
    device_.reset();
    busy_.reset();
    return printed;
}

}  // namespace ecg
