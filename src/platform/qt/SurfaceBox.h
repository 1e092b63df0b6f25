// A widget that shows what a routine draws on a `Surface`, sharp at the screen's own resolution.
#pragma once

#include "platform/qt/Pictures.h"

#include <QWidget>

#include <functional>

namespace ecg {

class Surface;

class SurfaceBox final : public QWidget {
public:
    // `draw` draws the whole box, in pixels of the design resolution, whenever it has to be shown; `update()` asks for
    // it.
    SurfaceBox(const Pictures& pictures, std::function<void(Surface&)> draw, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Pictures& pictures_;
    std::function<void(Surface&)> draw_;
};

}  // namespace ecg
