#include "acquisition/windows/frmAskSamp.h"

#include "core/Settings.h"
#include "platform/qt/Controls.h"
#include "platform/qt/PictureBox.h"
#include "platform/qt/Style.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

namespace ecg {
namespace {

constexpr QSize pictureSize(480, 420);  // pixels, as it is drawn
constexpr int wordsWidth = 408;         // pixels
constexpr int buttonWidth = 120;        // pixels

constexpr Twin title{"导联线连接步骤", "The Conjugation Procedure of Lead Wire"};
constexpr Twin wilson{"WILSON 导联体系", "WILSON Lead System"};
constexpr Twin frank{"FRANK 导联体系", "FRANK Lead System"};

constexpr std::array<Twin, 5> steps{
    {{"1、剃除电极安放处皮肤上的毛发。", "1. Cut the pelage on cutaneous skin"},
     {"2、用蘸有生理盐水和酒精的棉球清洁皮肤。", "2. Clean the  skin using cotton ball with normal saline and Alcohol"},
     {"3、按照图示把导联线连接到患者身上。", "3. Connect the lead wire to patient according to the picture"},
     {"4、导联线的走向必须与患者的肢体平行。", "4. The direction of the lead wire must paralled to patient extremity"},
     {"5、嘱患者平静呼吸，全身放松，然后按【下一步】。",
      "5. Exhort patient to breath mildly and to slacken sys, Press Next"}}};

bool IsWilson(const SharedState& state)
{
    return LeadSystemOf(state.SysInfo) == LeadSystem::Wilson;
}

QLabel* Line(const Twin& words, const SharedState& state, QWidget* parent)
{
    auto* label = new QLabel(words.In(state.SysInfo), parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFixedWidth(wordsWidth);
    return label;
}

}  // namespace

frmAskSamp::frmAskSamp(const SharedState& state, const Pictures& pictures, QWidget* parent) : QDialog(parent)
{
    setObjectName("frmAskSamp");
    setWindowTitle(title.In(state.SysInfo));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(style::Margins);
    row->setSpacing(3 * style::GridStep);
    auto* picture =
        Named(new PictureBox(pictures, IsWilson(state) ? "electrodes-wilson" : "electrodes-frank", this), "Image1");
    picture->setFixedSize(pictureSize);
    row->addWidget(picture);
    row->addLayout(Words(state));
    row->setSizeConstraint(QLayout::SetFixedSize);
}

QVBoxLayout* frmAskSamp::Words(const SharedState& state)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(2 * style::GridStep);
    auto* heading = Named(Line(title, state, this), "Label1");
    style::SetTextSize(*heading, style::LargePixels, true);
    column->addWidget(heading);
    auto* system = Named(Line(IsWilson(state) ? wilson : frank, state, this), "Label2");
    style::SetTextSize(*system, style::HeadingPixels, true);
    column->addWidget(system);
    column->addSpacing(style::GridStep);
    for (std::size_t i = 0; i < steps.size(); ++i) {
        auto* step = Named(Line(steps[i], state, this), "Label3", i);
        style::SetTextSize(*step, style::HeadingPixels);
        column->addWidget(step);
    }
    column->addStretch();
    auto* next = Named(new QPushButton(Twin{"下一步", "Next"}.In(state.SysInfo), this), "Command1");
    next->setMinimumWidth(buttonWidth);
    next->setDefault(true);
    next->setFocus();
    connect(next, &QPushButton::clicked, this, [this] { accept(); });
    column->addWidget(next, 0, Qt::AlignRight);
    return column;
}

}  // namespace ecg
