// The moving trace: a write point runs over a millimetre grid and erases a narrow strip ahead of it.
//
//   0 . . SweepX | 4 px strip | . . . old trace . . . W - 4
//
// One pixel column a call; nothing is ever redrawn whole. 4 pixels are 1 mm.
#pragma once

#include "core/Settings.h"
#include "core/SharedState.h"
#include "core/formats/RecordSample.h"
#include "platform/Surface.h"

#include <array>

namespace ecg {

// Where the display shows what does not lie on its surfaces, and where it says what it changed.
class LiveDisplayView {
public:
    virtual ~LiveDisplayView() = default;

    // Lead 0 to 11 in Wilson, 0 to 2 in Frank; the caption's top left corner, in pixels of the trace area.
    virtual void MoveLeadCaption(LeadSystem system, std::size_t lead, int x, int y) = 0;
    virtual void RepaintLeadCaptions() = 0;

    // Columns `x` to `x + width` of the trace area look new.
    virtual void TraceChanged(int x, int width) = 0;
};

class LiveDisplay {
public:
    static constexpr int CaptionWidth = 26;   // pixels; hidden leads stand this far apart
    static constexpr int CaptionHeight = 11;  // pixels that a hidden lead's caption stands above the lower edge

    LiveDisplay(const SysInfo& settings, LiveDisplayView& view) : settings_(settings), view_(view) {}

    // The copy of the grid (`Picture2`) and the visible trace (`Picture4`), of one size. They must live until they
    // are replaced. The caller then draws the grid and lays out the rows.
    void UseSurfaces(Surface& grid, Surface& trace);

    void DrawGrid();
    void LayoutLeadRows();
    void ResetSweep();

    // The next column is the first; what stands on the screen stays until it is swept over.
    void RewindSweep() { sweepX_ = 0; }

    // One column of a frame; a red tick at the top marks a beat.
    void DrawWilsonColumn(const RecordSample& sample, Colour colour, bool beat);
    void DrawFrankColumn(const RecordSample& sample, Colour colour, bool beat);

    // `resetting`: the baseline is being pulled back, which shows in every state.
    Colour PickTraceColour(ExamState state, bool resetting) const;

    int SweepX() const { return sweepX_; }
    int RowHeight() const { return rowHeight_; }

private:
    void AdvanceSweep();
    int DrawTrace(float row, float now, float& previous, Colour colour);
    void FinishColumn(bool beat);

    const SysInfo& settings_;
    LiveDisplayView& view_;
    Surface* grid_ = nullptr;
    Surface* trace_ = nullptr;
    int sweepX_ = 0;
    int rowHeight_ = 0;
    std::array<float, LeadCount> leadPrev_{};  // counts
    std::array<float, 3> vecPrev_{};
};

}  // namespace ecg
