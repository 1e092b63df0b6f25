#include "acquisition/windows/TraceArea.h"

#include "core/Labels.h"
#include "platform/qt/Style.h"

#include <QMouseEvent>
#include <QPainter>

namespace ecg {
namespace {

constexpr int repaintMs = 16;    // one frame of a screen
constexpr int captionLine = 16;  // pixels

}  // namespace

void LeadCaption::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && OnClick)
        OnClick(event->modifiers().testFlag(Qt::ShiftModifier));
}

TraceArea::TraceArea(const Pictures& pictures, QWidget* parent) : QWidget(parent), pictures_(pictures)
{
    setObjectName("Picture4");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(480, 480);
    for (std::size_t lead = 0; lead < LeadCount; ++lead)
        leadDisp_[lead] = MakeCaption(LeadSystem::Wilson, lead, labels::Leads[lead]);
    for (std::size_t lead = 0; lead < vcgLeadDisp_.size(); ++lead)
        vcgLeadDisp_[lead] = MakeCaption(LeadSystem::Frank, lead, labels::VectorLeads[lead]);
    repaint_.setSingleShot(true);
    repaint_.setInterval(repaintMs);
    connect(&repaint_, &QTimer::timeout, this, [this] { update(std::exchange(changed_, {})); });
}

LeadCaption* TraceArea::MakeCaption(LeadSystem system, std::size_t lead, const char* text)
{
    auto* caption = new LeadCaption(text, this);
    caption->setObjectName(QString(system == LeadSystem::Wilson ? "LeadDisp_%1" : "VCG_LeadDisp_%1").arg(lead));
    caption->setFixedSize(LiveDisplay::CaptionWidth, captionLine);
    caption->setStyleSheet("color: #d7e0c0; background: transparent;");
    style::SetTextSize(*caption, style::SmallPixels);
    style::SetHandCursor(*caption);
    caption->OnClick = [this, system, lead](bool shift) {
        if (OnCaptionClick)
            OnCaptionClick(system, lead, shift);
    };
    return caption;
}

void TraceArea::MoveCaption(LeadSystem system, std::size_t lead, int x, int y)
{
    LeadCaption* caption = system == LeadSystem::Wilson ? leadDisp_.at(lead) : vcgLeadDisp_.at(lead);
    // A trace far off its row must not take its caption out of sight: it can only be clicked where it is seen.
    caption->move(x, std::clamp(y, 0, std::max(0, height() - captionLine)));
}

void TraceArea::RepaintCaptions()
{
    changed_ += QRect(0, 0, LiveDisplay::CaptionWidth, height());
}

void TraceArea::ShowCaptions(LeadSystem system)
{
    for (LeadCaption* caption : leadDisp_)
        caption->setVisible(system == LeadSystem::Wilson);
    for (LeadCaption* caption : vcgLeadDisp_)
        caption->setVisible(system == LeadSystem::Frank);
}

void TraceArea::Change(int x, int width)
{
    changed_ += QRect(x, 0, width, height());
    if (!repaint_.isActive())
        repaint_.start();
}

void TraceArea::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    if (!picture4_)
        return;
    const double scale = picture4_->Image().devicePixelRatio();
    for (const QRect& part : event->region()) {
        const QRectF source(part.x() * scale, part.y() * scale, part.width() * scale, part.height() * scale);
        painter.drawImage(QRectF(part), picture4_->Image(), source);
    }
}

void TraceArea::resizeEvent(QResizeEvent*)
{
    Renew();
}

void TraceArea::showEvent(QShowEvent*)
{
    if (!picture4_ || picture4_->Image().devicePixelRatio() != devicePixelRatioF())
        Renew();
}

bool TraceArea::event(QEvent* event)
{
    // The window was moved to a screen of another resolution.
    if (event->type() == QEvent::ScreenChangeInternal)
        showEvent(nullptr);
    return QWidget::event(event);
}

void TraceArea::Renew()
{
    auto grid = std::make_unique<ImageSurface>(width(), height(), devicePixelRatioF(), pictures_);
    auto trace = std::make_unique<ImageSurface>(width(), height(), devicePixelRatioF(), pictures_);
    if (OnNewSurfaces)
        OnNewSurfaces(*grid, *trace);
    picture2_ = std::move(grid);
    picture4_ = std::move(trace);
    update();
}

}  // namespace ecg
