#include "patients/windows/ProgressPanel.h"

#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace ecg {
namespace {

constexpr int barWidth = 360;  // pixels
constexpr std::int64_t percent = 100;

}  // namespace

ProgressPanel::ProgressPanel(const ProgressWords& words, bool chinese, QWidget* parent)
    : QFrame(parent, parent == nullptr ? Qt::SplashScreen : Qt::WindowFlags()),
      Label5_(Named(new QLabel("0", this), "Label5")),
      ProgressBar1_(Named(new QProgressBar(this), "ProgressBar1"))
{
    setFrameStyle(Box | Plain);
    setAutoFillBackground(true);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(3 * style::GridStep, 2 * style::GridStep, 3 * style::GridStep, 2 * style::GridStep);
    column->setSpacing(style::GridStep);
    auto* doing = Named(new QLabel(words.Doing.In(chinese), this), "Label4");
    style::SetTextSize(*doing, style::HeadingPixels);
    column->addWidget(doing);
    ProgressBar1_->setRange(0, percent);
    ProgressBar1_->setMinimumWidth(barWidth);
    column->addWidget(ProgressBar1_);
    auto* row = new QHBoxLayout;
    row->setSpacing(style::GridStep);
    row->addWidget(Named(new QLabel(words.Done.In(chinese), this), "Label6"));
    row->addWidget(Label5_, 1);
    column->addLayout(row);
}

void ProgressPanel::Report(std::int32_t done, std::int32_t all)
{
    Label5_->setNum(done);
    ProgressBar1_->setValue(all < 1 ? 0 : static_cast<int>(done * percent / all));
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace ecg
