// The trace of the main window: `Picture4`, with the copy of its grid (`Picture2`) and the captions of the leads.
#pragma once

#include "acquisition/LiveDisplay.h"
#include "platform/qt/QtSurface.h"

#include <QLabel>
#include <QTimer>
#include <QWidget>

#include <array>
#include <functional>
#include <memory>

namespace ecg {

// A caption that can be clicked.
class LeadCaption final : public QLabel {
public:
    using QLabel::QLabel;
    std::function<void(bool shift)> OnClick;

protected:
    void mousePressEvent(QMouseEvent* event) override;
};

class TraceArea final : public QWidget {
public:
    TraceArea(const Pictures& pictures, QWidget* parent);

    // Called with new surfaces whenever the area's size or the screen's resolution has changed.
    std::function<void(Surface& grid, Surface& trace)> OnNewSurfaces;
    std::function<void(LeadSystem system, std::size_t lead, bool shift)> OnCaptionClick;

    void MoveCaption(LeadSystem system, std::size_t lead, int x, int y);
    void RepaintCaptions();
    void ShowCaptions(LeadSystem system);

    // Columns `x` to `x + width` have changed; they come to the screen with the next repaint.
    void Change(int x, int width);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool event(QEvent* event) override;

private:
    LeadCaption* MakeCaption(LeadSystem system, std::size_t lead, const char* text);
    void Renew();

    const Pictures& pictures_;
    std::unique_ptr<ImageSurface> picture2_;  // the grid
    std::unique_ptr<ImageSurface> picture4_;  // the trace
    std::array<LeadCaption*, LeadCount> leadDisp_{};
    std::array<LeadCaption*, 3> vcgLeadDisp_{};
    QRegion changed_;
    QTimer repaint_;
};

}  // namespace ecg
