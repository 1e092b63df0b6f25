// The strip of the R markers, `rrBox`: a marker for each R flag in view. A marker selects its beat or takes the flag
// away; the right button beside the markers adds one.
#pragma once

#include "analysis/AboutFile.h"

#include <QPoint>
#include <QWidget>

#include <array>
#include <functional>

namespace ecg {

// One marker, `Label2`: a small triangle over the beat, filled and larger when the beat is selected.
class BeatMarker final : public QWidget {
public:
    explicit BeatMarker(QWidget* parent);

    std::function<void(Qt::MouseButton button, const ::QPoint& place)> OnClick;  // place on the screen

    void SetSelected(bool selected);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    bool selected_ = false;
};

class MarkerStrip final : public QWidget {
public:
    static constexpr std::size_t MarkerCount = AboutFile::LongestFlagList;

    explicit MarkerStrip(QWidget* parent);

    // Left button, or the right one with a menu to follow.
    std::function<void(std::size_t marker)> OnSelect;
    std::function<void(std::size_t marker, const ::QPoint& place)> OnMarkerMenu;

    // The right button beside the markers, at `x` pixels of the strip.
    std::function<void(int x, const ::QPoint& place)> OnMenu;

    // Shows the markers at these pixels of the strip, a place below 0 has none; `selected` may be none of them.
    void Place(const std::array<int, MarkerCount>& places, std::size_t selected);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    std::array<BeatMarker*, MarkerCount> Label2_{};
};

}  // namespace ecg
