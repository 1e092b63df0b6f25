#include "core/windows/frmSplash.h"

#include "core/Labels.h"
#include "platform/qt/Controls.h"
#include "platform/qt/PictureBox.h"
#include "platform/qt/Style.h"

#include <QLabel>
#include <QPushButton>

namespace ecg {
namespace {

// The splash is one picture of fixed size; everything on it has its place in that picture.
constexpr QSize windowSize(640, 400);
constexpr QRect captionBand(24, 324, 440, 72);
constexpr QRect buttonPlace(520, 343, 96, 34);
constexpr QSize heartSize(96, 96);
constexpr int heartTop = 16;
constexpr QSize traceSize(570, 60);
constexpr QPoint tracePlace(35, 244);

}  // namespace

frmSplash::frmSplash(const SharedState& state, const Pictures& pictures, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setObjectName("frmSplash");
    setFixedSize(windowSize);
    auto* background = new PictureBox(pictures, "splash", this);
    background->setGeometry(QRect(QPoint(0, 0), windowSize));
    Picture1_ = Named(new PictureBox(pictures, "splash-heart", this), "Picture1");
    Picture2_ = Named(new QWidget(this), "Picture2");
    auto* trace = new PictureBox(pictures, "splash-trace", Picture2_);
    trace->setGeometry(QRect(QPoint(0, 0), traceSize));
    Label1_ = Named(new QLabel(labels::Program.In(state.SysInfo), this), "Label1");
    Command1_ = Named(new QPushButton(Twin{"进入", "Enter"}.In(state.SysInfo), this), "Command1");
    setWindowTitle(Label1_->text());
    PlaceControls();
    StartTimers();
}

void frmSplash::PlaceControls()
{
    style::SetTextSize(*Label1_, style::RatePixels, true);
    Label1_->setGeometry(captionBand);
    Command1_->setGeometry(buttonPlace);
    Command1_->setDefault(true);
    Command1_->setFocus();
    connect(Command1_, &QPushButton::clicked, this, [this] { accept(); });
    ShowMotion();
}

void frmSplash::StartTimers()
{
    Timer2_.setTimerType(Qt::PreciseTimer);
    Timer2_.setInterval(SplashMotion::TraceTickMilliseconds);
    connect(&Timer1_, &QTimer::timeout, this, [this] {
        if (motion_.MoveHeart()) {
            Timer1_.stop();
            Timer2_.start();
        }
        ShowMotion();
    });
    connect(&Timer2_, &QTimer::timeout, this, [this] {
        if (motion_.MoveTrace())
            accept();
        ShowMotion();
    });
    Timer1_.start(SplashMotion::HeartTickMilliseconds);
}

void frmSplash::ShowMotion()
{
    Picture1_->setGeometry(QRect(QPoint(motion_.Heart(), heartTop), heartSize));
    Picture2_->setGeometry(QRect(tracePlace, QSize(motion_.Trace(), traceSize.height())));
}

}  // namespace ecg
