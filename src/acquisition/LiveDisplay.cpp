#include "acquisition/LiveDisplay.h"

#include "core/LeadDerivation.h"
#include "core/MmGrid.h"
#include "core/Numbers.h"

namespace ecg {
namespace {

constexpr int tile = 5 * PixelsPerMm;  // pixels: 5 mm
constexpr int eraseWidth = 4;          // pixels
constexpr int captionDrop = 4;         // pixels from the trace down to its caption
constexpr double tickLength = 5;       // pixels
constexpr Colour beatRed{255, 0, 0};

constexpr std::array<float, LiveGainCount> gainScale{11.3F, 5.65F, 2.825F};  // counts a pixel, by gain index

// The calibration pulse at the start of every sweep, by column.
constexpr int pulseRise = 8;
constexpr int pulseFall = 21;
constexpr int pulseEnd = 27;

}  // namespace

void LiveDisplay::UseSurfaces(Surface& grid, Surface& trace)
{
    grid_ = &grid;
    trace_ = &trace;
}

void LiveDisplay::DrawGrid()
{
    if (grid_ == nullptr)
        return;
    const Rect paper{0, 0, grid_->Width(), grid_->Height()};
    grid_->Fill(paper, ToColour(settings_.PaperBack));
    DrawMmGrid(*grid_, paper, PixelsPerMm, {ToColour(settings_.Grid5mm), ToColour(settings_.Grid1mm)});
}

void LiveDisplay::LayoutLeadRows()
{
    if (trace_ == nullptr)
        return;
    const int height = RoundToInt(trace_->Height());
    int shown = 0;
    for (const Byte show : settings_.LeadShow)
        shown += show == 1 ? 1 : 0;
    rowHeight_ = RoundToInt(static_cast<double>(height) / (shown + 1));
    int row = 0;
    int hidden = 0;
    for (std::size_t lead = 0; lead < LeadCount; ++lead) {
        if (settings_.LeadShow[lead] == 1)
            view_.MoveLeadCaption(LeadSystem::Wilson, lead, 0, ++row * rowHeight_ + captionDrop);
        else
            view_.MoveLeadCaption(LeadSystem::Wilson, lead, hidden++ * CaptionWidth, height - CaptionHeight);
    }
    for (std::size_t lead = 0; lead < vecPrev_.size(); ++lead)
        view_.MoveLeadCaption(LeadSystem::Frank, lead, 0,
                              RoundToInt(static_cast<double>(lead + 1) * height / 4) + captionDrop);
    ResetSweep();
}

void LiveDisplay::ResetSweep()
{
    sweepX_ = 0;
    if (trace_ == nullptr)
        return;
    trace_->Copy(*grid_, {0, 0, trace_->Width(), trace_->Height()}, {0, 0});
    view_.TraceChanged(0, RoundToInt(trace_->Width()));
}

void LiveDisplay::DrawWilsonColumn(const RecordSample& sample, Colour colour, bool beat)
{
    if (trace_ == nullptr)
        return;
    const auto leadNow = DeriveWilsonLeads(ToFrame(sample));
    AdvanceSweep();
    int row = 0;
    for (std::size_t lead = 0; lead < LeadCount; ++lead) {
        if (settings_.LeadShow[lead] != 1)
            continue;
        const int y = DrawTrace(static_cast<float>(++row * rowHeight_), leadNow[lead], leadPrev_[lead], colour);
        if (sweepX_ == 1)
            view_.MoveLeadCaption(LeadSystem::Wilson, lead, 0, y + captionDrop);
    }
    FinishColumn(beat);
}

void LiveDisplay::DrawFrankColumn(const RecordSample& sample, Colour colour, bool beat)
{
    if (trace_ == nullptr)
        return;
    const auto vecNow = DeriveFrankLeads(ToFrame(sample));
    AdvanceSweep();
    const auto height = static_cast<float>(trace_->Height());
    for (std::size_t lead = 0; lead < vecNow.size(); ++lead) {
        const float row = static_cast<float>(lead + 1) * height / 4;
        const int y = DrawTrace(row, vecNow[lead], vecPrev_[lead], colour);
        if (sweepX_ == 1)
            view_.MoveLeadCaption(LeadSystem::Frank, lead, 0, y + captionDrop);
    }
    FinishColumn(beat);
}

// Steps on and erases ahead, with the grid in phase.
void LiveDisplay::AdvanceSweep()
{
    ++sweepX_;
    if (trace_->Width() - eraseWidth < sweepX_)
        sweepX_ = 0;
    const Rect strip{static_cast<double>(sweepX_ % tile), 0, eraseWidth, trace_->Height()};
    trace_->Copy(*grid_, strip, {static_cast<double>(sweepX_), 0});
}

// Draws one trace from the column before to this one; returns the y it ends at.
int LiveDisplay::DrawTrace(float row, float now, float& previous, Colour colour)
{
    if (sweepX_ < pulseRise) {
        previous = 0;
        now = 0;
    } else if (sweepX_ < pulseFall) {
        now = CountsPerMv;
    } else if (sweepX_ <= pulseEnd) {
        now = 0;
    }
    const float scale = gainScale[LiveGainIndex(settings_)];
    const int from = RoundToInt(row - previous / scale);
    const int to = RoundToInt(row - now / scale);
    const double x = sweepX_;
    trace_->Line({x - 1, static_cast<double>(from)}, {x, static_cast<double>(to)}, colour);
    previous = now;
    return to;
}

void LiveDisplay::FinishColumn(bool beat)
{
    const double x = sweepX_;
    if (beat)
        trace_->Line({x, 0}, {x, tickLength}, beatRed);
    if (sweepX_ == CaptionWidth)
        view_.RepaintLeadCaptions();
    view_.TraceChanged(sweepX_ - 2, eraseWidth + 2);
}

Colour LiveDisplay::PickTraceColour(ExamState state, bool resetting) const
{
    if (resetting)
        return ToColour(settings_.TraceReset);
    return ToColour(state == ExamState::Sampling ? settings_.TraceSave : settings_.TraceWatch);
}

}  // namespace ecg
