// How the review window is laid out. What its controls do stands in frmxECG.cpp, its menus in frmxECGMenus.cpp.
#include "core/Labels.h"
#include "platform/qt/Controls.h"
#include "platform/qt/PictureKey.h"
#include "platform/qt/Style.h"
#include "platform/qt/SurfaceBox.h"
#include "review/SidePanel.h"
#include "review/windows/ReviewTexts.h"
#include "review/windows/TraceView.h"
#include "review/windows/frmxECG.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace ecg {
namespace {

constexpr int designWidth = 1024;  // pixels
constexpr int designHeight = 720;  // pixels
constexpr int panelWidth = 168;    // pixels
constexpr int toolsWidth = 136;    // pixels
constexpr int keySize = 44;        // pixels

constexpr std::array<Twin, 3> keyTips{{{"退出系统", "Exit System"},
                                       {"打开知识库窗口", "Open Knowology Window"},
                                       {"获取本窗口的帮助信息", "Help of Current Window"}}};
constexpr std::array<Twin, 5> commands{{{"显示比例", "Display Scale"},
                                        {"诊断输入", "Diagnosis Input"},
                                        {"打印报告", "Print Report"},
                                        {"事件定位", "Event Locate"},
                                        {"心率趋势图", "Heart Rate Trend"}}};
constexpr Twin post{"远程会诊", "Remote Consultation"};
constexpr Twin exportText{"导出图像和文字", "Export Report"};
constexpr Twin placeTip{"画面开始的时间", "Time at the left edge"};

QFrame* Separator(QWidget* parent)
{
    auto* line = new QFrame(parent);
    line->setFrameShape(QFrame::HLine);
    return line;
}

}  // namespace

void frmxECG::LayOut()
{
    resize(designWidth, designHeight);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(style::GridStep, style::GridStep, style::GridStep, style::GridStep);
    row->setSpacing(style::GridStep);
    row->addLayout(MakePicture(), 1);
    const int year = clock_.Now().Year;
    Picture1_ = Named(new SurfaceBox(
                          pictures_, [this, year](Surface& surface) { DrawSidePanel(surface, review_, year); }, this),
                      "Picture1");
    Picture1_->setFixedWidth(panelWidth);
    row->addWidget(Picture1_);
    row->addLayout(MakeTools());
}

QGridLayout* frmxECG::MakePicture()
{
    auto* grid = new QGridLayout;
    grid->setSpacing(style::GridStep / 2);
    VScroll1_ = Named(new QScrollBar(Qt::Vertical, this), "VScroll1");
    HScroll2_ = Named(new QScrollBar(Qt::Horizontal, this), "HScroll2");
    VScroll1_->hide();
    HScroll2_->hide();
    HScroll1_ = Named(new QScrollBar(Qt::Horizontal, this), "HScroll1");
    HScroll1_->setRange(0, ScrollRange);
    HScroll1_->setFocusPolicy(Qt::StrongFocus);
    HScroll1_->setAccessibleName(Twin{"记录中的位置", "Place in the record"}.In(state_.SysInfo));
    Label1_ = Named(new QLabel(this), "Label1");
    Label1_->setToolTip(placeTip.In(state_.SysInfo));
    Label1_->setAccessibleName(Label1_->toolTip());
    grid->addWidget(PicFore_, 0, 0, 1, 2);
    grid->addWidget(VScroll1_, 0, 2);
    grid->addWidget(HScroll2_, 1, 0, 1, 2);
    grid->addWidget(HScroll1_, 2, 0);
    grid->addWidget(Label1_, 2, 1);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(0, 1);
    return grid;
}

QVBoxLayout* frmxECG::MakeTools()
{
    auto* column = new QVBoxLayout;
    column->setSpacing(style::GridStep / 2);
    column->addLayout(MakeKeys());
    column->addWidget(Separator(this));
    MakeModeKeys(*column);
    column->addWidget(Separator(this));
    MakeScaleKeys(*column);
    column->addWidget(Separator(this));
    MakeCommands(*column);
    column->addStretch(1);
    return column;
}

// The codes of knowledge and help are those of the database window; the main window has them the other way round.
QHBoxLayout* frmxECG::MakeKeys()
{
    constexpr std::array<const char*, 3> released{"101", "105", "103"};
    constexpr std::array<const char*, 3> pressed{"102", "106", "104"};
    const std::array<std::function<void()>, 3> actions{[this] { Exit(); },
                                                       [this] { OpenHelp(WindowName::frmZSK, KnowledgeCode); },
                                                       [this] { OpenHelp(WindowName::frmResult, HelpCode); }};
    auto* row = new QHBoxLayout;
    row->setSpacing((toolsWidth - 3 * keySize) / 2);
    for (std::size_t i = 0; i < KeyPic_.size(); ++i) {
        const QString name = released[i];
        auto* key = new PictureKey(pictures_, {name, pressed[i], name + "h", name + "d"}, this);
        KeyPic_[i] = Named(key, "KeyPic", i);
        key->setFixedSize(keySize, keySize);
        key->setToolTip(keyTips[i].In(state_.SysInfo));
        key->setAccessibleName(key->toolTip());
        key->ActOnRelease(actions[i]);
        row->addWidget(key);
    }
    return row;
}

QPushButton* frmxECG::MakeTool(const char* name, int index, const char* text)
{
    auto* tool = new QPushButton(text, this);
    if (index < 0)
        Named(tool, name);
    else
        Named(tool, name, index);
    tool->setProperty("compact", true);
    tool->setFixedWidth(toolsWidth);
    style::SetTextSize(*tool, style::SmallPixels);
    return tool;
}

void frmxECG::MakeModeKeys(QVBoxLayout& column)
{
    for (std::size_t i = 0; i < Command1_.size(); ++i) {
        Command1_[i] = MakeTool("Command1", static_cast<int>(i), reviewtexts::ReportTitles[i].In(state_.SysInfo));
        Command1_[i]->setCheckable(true);
        column.addWidget(Command1_[i]);
    }
    Command1_[0]->setMenu(ECG_Menu_);
    Command1_[1]->setMenu(FECG_Menu_);
    for (const ReviewMode mode : {ReviewMode::QtDispersion, ReviewMode::Variability, ReviewMode::Pacing})
        connect(Command1_[static_cast<std::size_t>(mode)], &QPushButton::clicked, this,
                [this, mode] { SetMode(mode); });
}

void frmxECG::MakeScaleKeys(QVBoxLayout& column)
{
    SpdKey_ = MakeTool("SpdKey", -1, "");
    AmpKey_ = MakeTool("AmpKey", -1, "");
    LeadKey_ = MakeTool("LeadKey", -1, "");
    const auto add = [this, &column](QPushButton* key, QMenu* menu, const Twin& tip) {
        key->setToolTip(tip.In(state_.SysInfo));
        key->setMenu(menu);
        column.addWidget(key);
    };
    add(SpdKey_, SpdMenu_, {"走纸速度", "Paper Speed"});
    add(AmpKey_, AmpMenu_, {"增益", "Gain"});
    add(LeadKey_, Para_Lead_, {"分析导联选择", "Analysis Lead Select"});
}

void frmxECG::MakeCommands(QVBoxLayout& column)
{
    for (std::size_t i = 0; i < Command2_.size(); ++i) {
        Command2_[i] = MakeTool("Command2", static_cast<int>(i), commands[i].In(state_.SysInfo));
        column.addWidget(Command2_[i]);
    }
    Command2_[0]->setMenu(DispMenu_);
    connect(Command2_[1], &QPushButton::clicked, this, [this] { OpenWindow(WindowName::frmResultBox); });
    connect(Command2_[2], &QPushButton::clicked, this, [this] { OnPrint(); });
    connect(Command2_[3], &QPushButton::clicked, this, [this] { OpenEvents(); });
    connect(Command2_[4], &QPushButton::clicked, this, [this] { OpenTrend(); });
    Command3_ = MakeTool("Command3", -1, post.In(state_.SysInfo));
    Command4_ = MakeTool("Command4", -1, exportText.In(state_.SysInfo));
    connect(Command3_, &QPushButton::clicked, this, [this] { OnPost(); });
    connect(Command4_, &QPushButton::clicked, this, [this] { OnExport(); });
    column.addWidget(Command3_);
    column.addWidget(Command4_);
}

// What this version cannot do is there, but says so.
void frmxECG::ShowCommands()
{
    const auto offer = [this](QWidget* control, bool offered) {
        control->setEnabled(offered);
        if (!offered)
            control->setToolTip(labels::NotInThisVersion.In(state_.SysInfo));
    };
    offer(KeyPic_[1], false);
    offer(KeyPic_[2], false);
    offer(Command2_[1], false);
    offer(Command2_[2], OnPrint != nullptr);
    offer(Command3_, OnPost != nullptr);
    offer(Command4_, OnExport != nullptr);
}

void frmxECG::ConnectView()
{
    constexpr double wheelMm = 25;  // of paper for a step of the wheel
    PicFore_->OnMoved = [this] { ShowScrollBars(); };
    PicFore_->OnWheel = [this](int steps) { Step(steps * wheelMm); };
    PicFore_->OnMenu = [this](const ::QPoint& place) { DispMenu_->popup(place); };
    PicFore_->rrBox().OnSelect = [this](std::size_t marker) { SelectBeat(marker); };
    PicFore_->rrBox().OnMarkerMenu = [this](std::size_t marker, const ::QPoint& place) {
        SelectBeat(marker);
        review_.View.DeleteBeat = marker;
        DelR_->popup(place);
    };
    PicFore_->rrBox().OnMenu = [this](int x, const ::QPoint& place) {
        flagX_ = x;
        AddR_->popup(place);
    };
}

}  // namespace ecg
