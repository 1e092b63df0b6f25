// How the review window moves through the record: its scroll bars and keys.
#include "core/Numbers.h"
#include "core/formats/RecordSample.h"
#include "platform/qt/Controls.h"
#include "review/EventMarks.h"
#include "review/windows/ReviewTexts.h"
#include "review/windows/TraceView.h"
#include "review/windows/frmxECG.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

namespace ecg {
namespace {

// The slot at which the last full view begins.
std::int32_t LastStart(const RecordReview& review)
{
    return StartOfScroll(ScrollRange, review.File.SlotCount, review.SamplesInView());
}

// The length of the bar's slider, in its own values, that shows which part of the record is in view.
int SliderLength(const RecordReview& review)
{
    constexpr double longest = 100.0 * ScrollRange;  // as good as the whole bar
    const double spare = std::max<double>(LastStart(review) - static_cast<double>(FirstSampleSlot), 1);
    return RoundToInt(std::min(ScrollRange * static_cast<double>(review.SamplesInView()) / spare, longest));
}

}  // namespace

void frmxECG::ConnectScrollBars()
{
    connect(HScroll1_, &QScrollBar::actionTriggered, this, [this](int action) { StepBar(action); });
    connect(HScroll1_, &QScrollBar::valueChanged, this, [this](int value) { ScrollTo(value); });
    connect(HScroll2_, &QScrollBar::valueChanged, this, [this](int x) {
        PicFore_->SetOffset({x, PicFore_->Offset().y()});
    });
    connect(VScroll1_, &QScrollBar::valueChanged, this, [this](int y) {
        PicFore_->SetOffset({PicFore_->Offset().x(), y});
    });
    // Not of menus, which have windows of their own.
    for (auto* child : findChildren<QWidget*>())
        if (child->window() == this)
            child->installEventFilter(this);
}

// By so many mm of paper, backwards when below 0; forwards as far as the last full view.
void frmxECG::Step(double mm)
{
    const std::int32_t samples = ecg::SamplesInView(std::fabs(mm), review_.Scale().Speed);
    const std::int32_t start = state_.BlockStart + (mm < 0 ? -samples : samples);
    Moved(review_.MoveTo(std::min(start, std::max(LastStart(review_), state_.BlockStart))));
}

// The bar stays where it was put: a place told from it is not answered by the place told from the view. Only a view
// that could not be read takes it back.
void frmxECG::ScrollTo(int value)
{
    const bool read = review_.ScrollTo(value);
    if (read) {
        const QSignalBlocker quiet(HScroll1_);
        HScroll1_->setValue(value);
        ShowTime();
    } else {
        ShowPlace();
    }
    ShowBeat();
    if (!read)
        Tell(reviewtexts::RecordLost);
}

// The arrows of the bar and the room beside its slider. They move the view and let the bar follow: bar and view do not
// measure alike, so that a step of the bar forward might lead the view back.
void frmxECG::StepBar(int action)
{
    const double second = review_.Scale().Speed;
    const double view = ViewWidth(review_.View);
    switch (action) {
    case QAbstractSlider::SliderSingleStepAdd:
        Step(second);
        break;
    case QAbstractSlider::SliderSingleStepSub:
        Step(-second);
        break;
    case QAbstractSlider::SliderPageStepAdd:
        Step(view);
        break;
    case QAbstractSlider::SliderPageStepSub:
        Step(-view);
        break;
    default:
        return;
    }
    HScroll1_->setSliderPosition(HScroll1_->value());
}

void frmxECG::ShowPlace()
{
    const int value = review_.ScrollValue();
    if (value >= 0) {
        const QSignalBlocker quiet(HScroll1_);
        HScroll1_->setValue(value);
    }
    ShowTime();
}

void frmxECG::ShowTime()
{
    Label1_->setText(ToQt(TimeOfSlot(state_.CurrentHeader, state_.BlockStart)));
}

void frmxECG::ShowScrollBars()
{
    HScroll1_->setPageStep(SliderLength(review_));
    const ::QPoint largest = PicFore_->LargestOffset();
    const QSignalBlocker quietAcross(HScroll2_);
    const QSignalBlocker quietDown(VScroll1_);
    HScroll2_->setRange(0, largest.x());
    HScroll2_->setPageStep(PicFore_->width());
    HScroll2_->setVisible(largest.x() > 0);
    VScroll1_->setRange(0, largest.y());
    VScroll1_->setPageStep(PicFore_->height());
    VScroll1_->setVisible(largest.y() > 0);
    PicFore_->SetOffset(PicFore_->Offset());
    HScroll2_->setValue(PicFore_->Offset().x());
    VScroll1_->setValue(PicFore_->Offset().y());
}

// The keys that move the trace, and the wheel over the bar, would otherwise move the focus or the bar.
bool frmxECG::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Wheel && watched == HScroll1_) {
        QCoreApplication::sendEvent(PicFore_, event);
        return true;
    }
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

void frmxECG::keyPressEvent(QKeyEvent* event)
{
    const double view = ViewWidth(review_.View);
    const double second = review_.Scale().Speed;
    const bool beats = event->modifiers().testFlag(Qt::ControlModifier);
    switch (event->key()) {
    case Qt::Key_Escape:
        return review_.View.Rule.On && HasTraces(review_.View.Mode) ? SwitchRule(false) : Exit();
    case Qt::Key_F1:
        return OpenHelp(WindowName::frmResult, HelpCode);
    case Qt::Key_PageUp:
        return Step(-view);
    case Qt::Key_PageDown:
        return Step(view);
    case Qt::Key_Left:
        return beats ? StepBeat(-1) : Step(-second);
    case Qt::Key_Right:
        return beats ? StepBeat(1) : Step(second);
    case Qt::Key_Home:
        return ScrollTo(0);
    case Qt::Key_End:
        return ScrollTo(ScrollRange);
    default:
        QWidget::keyPressEvent(event);
    }
}

}  // namespace ecg
