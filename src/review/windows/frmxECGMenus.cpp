// The menus of the review window.
#include "analysis/ReportTexts.h"
#include "core/Labels.h"
#include "platform/qt/Controls.h"
#include "review/TraceDrawing.h"
#include "review/windows/ReviewTexts.h"
#include "review/windows/TraceView.h"
#include "review/windows/frmxECG.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QPushButton>

namespace ecg {
namespace {

constexpr std::array<Twin, 2> spectrumForms{{{"双导联频谱分析", "Double Lead Frequency Spectrum Analysis"},
                                             {"12导联频谱图", "12 Lead Frequency Spectrum Diagram"}}};
constexpr std::array<SpectrumLayout, 2> spectrumLayouts{SpectrumLayout::DoubleLead, SpectrumLayout::TwelveLeads};
constexpr std::array<Twin, 2> dftLeads{texts::InputLead, texts::OutputLead};
constexpr std::array<const char*, 2> dftLeadNames{"DFTLead1", "DFTLead2"};
constexpr std::array<Twin, 3> displayScales{
    {{"缩小显示", "Small Scale"}, {"常规显示", "Medium Scale"}, {"放大显示", "Large Scale"}}};
constexpr std::array<Twin, 2> longLeads{{{"第一长导联", "First Long Lead"}, {"第二长导联", "Second Long Lead"}}};
constexpr std::array<const char*, 2> longLeadNames{"LongLead1", "LongLead2"};
constexpr Twin displayScale{"显示比例", "Display Scale"};
constexpr Twin electricRule{"电子尺", "Electric Rule"};
constexpr Twin initialPosition{"图片初始位置", "Picture to Initial Position"};
constexpr Twin autoInterval{"自动间隔调整", "Auto Modify Wave Interval"};
constexpr Twin calibrationMark{"定标标记", "Calibration Mark"};
constexpr Twin speed{"走纸速度", "Paper Speed"};
constexpr Twin gain{"增益", "Gain"};
constexpr Twin analysisLead{"分析导联选择", "Analysis Lead Select"};
constexpr Twin shownLeads{"显示的导联", "Leads Shown"};
constexpr Twin addFlag{"增加R波标记", "Add a R-Wave Flag"};
constexpr Twin deleteFlag{"删除R波标记", "Delete R-Wave Flag"};

std::vector<QString> LeadNames()
{
    return {labels::Leads.begin(), labels::Leads.end()};
}

template <std::size_t Count>
std::vector<QString> Texts(const std::array<Twin, Count>& twins, bool chinese)
{
    std::vector<QString> texts;
    for (const Twin& twin : twins)
        texts.push_back(twin.In(chinese));
    return texts;
}

void Check(QMenu* menu, std::size_t item)
{
    const auto actions = menu->actions();
    if (item < static_cast<std::size_t>(actions.size()))
        actions[static_cast<qsizetype>(item)]->setChecked(true);
}

}  // namespace

QMenu* frmxECG::MakeChoices(const char* name, const Twin& title, const std::vector<QString>& items,
                            std::function<void(std::size_t)> choose)
{
    auto* menu = Named(new QMenu(title.In(state_.SysInfo), this), name);
    auto* group = new QActionGroup(menu);
    for (std::size_t i = 0; i < items.size(); ++i) {
        QAction* item = Named(menu->addAction(items[i]), name, i);
        item->setCheckable(true);
        group->addAction(item);
        connect(item, &QAction::triggered, this, [choose, i] { choose(i); });
    }
    return menu;
}

QAction* frmxECG::MakeSwitch(const char* name, const Twin& text, std::function<void(bool)> switched)
{
    QAction* item = Named(DispMenu_->addAction(text.In(state_.SysInfo)), name);
    item->setCheckable(true);
    connect(item, &QAction::triggered, this, std::move(switched));
    return item;
}

void frmxECG::MakeMenus()
{
    MakeFormMenus();
    MakeDisplayMenu();
    MakeFlagMenus();
}

void frmxECG::MakeFormMenus()
{
    const bool chinese = state_.Chinese();
    ECG_Menu_ = MakeChoices("ECG_Menu", reviewtexts::ReportTitles[0], Texts(reviewtexts::Forms, chinese),
                            [this](std::size_t i) { SetForm(static_cast<EcgForm>(i)); });
    FECG_Menu_ = MakeChoices("FECG_Menu", reviewtexts::ReportTitles[1], Texts(spectrumForms, chinese),
                             [this](std::size_t i) { Changed(review_.SetSpectrum(spectrumLayouts[i])); });
    FECG_Menu_->addSeparator();
    for (std::size_t which = 0; which < DFTLead_.size(); ++which) {
        DFTLead_[which] = MakeChoices(dftLeadNames[which], dftLeads[which], LeadNames(),
                                      [this, which](std::size_t lead) { Changed(review_.SetDftLead(which, lead)); });
        FECG_Menu_->addMenu(DFTLead_[which]);
    }
}

void frmxECG::MakeDisplayMenu()
{
    DispMenu_ = Named(new QMenu(this), "DispMenu");
    DispScale_ = MakeChoices("DispScale", displayScale, Texts(displayScales, state_.Chinese()),
                             [this](std::size_t i) { SetDisplayScale(i); });
    SpdMenu_ = MakeChoices("SpdMenu", speed, {labels::Speeds.begin(), labels::Speeds.begin() + ReviewSpeeds.size()},
                           [this](std::size_t i) { Changed(review_.SetSpeed(i)); });
    AmpMenu_ = MakeChoices("AmpMenu", gain, {labels::Gains.begin(), labels::Gains.begin() + ReviewGains.size()},
                           [this](std::size_t i) { Changed(review_.SetGain(i)); });
    Para_Lead_ = MakeChoices("Para_Lead", analysisLead, LeadNames(), [this](std::size_t i) {
        review_.View.AnalysisLead = i;
        ShowView();
    });
    for (std::size_t which = 0; which < LongLead_.size(); ++which)
        LongLead_[which] = MakeChoices(longLeadNames[which], longLeads[which], LeadNames(),
                                       [this, which](std::size_t lead) { ChooseLongLead(which, lead); });
    MakeLeadSwitches();
    DispMenu_->addActions(DispScale_->actions());
    DispMenu_->addSeparator();
    Rule_ = MakeSwitch("Rule", electricRule, [this](bool on) { SwitchRule(on); });
    QAction* reset = Named(DispMenu_->addAction(initialPosition.In(state_.SysInfo)), "DispReset");
    connect(reset, &QAction::triggered, this, [this] { PicFore_->SetOffset({0, 0}); });
    DispMenu_->addSeparator();
    QAction* interval = MakeSwitch("Auto_Interval", autoInterval, [this](bool on) {
        review_.View.AutoInterval = on;
        ShowView();
    });
    QAction* mark = MakeSwitch("CalibrationMark", calibrationMark, [this](bool on) {
        review_.View.CalibrationMark = on;
        ShowView();
    });
    DispMenu_->addSeparator();
    for (QMenu* menu : {SpdMenu_, AmpMenu_, Para_Lead_, LongLead_[0], LongLead_[1], Lead_Show_})
        DispMenu_->addMenu(menu);
    traceTools_ = {Rule_, interval, mark, Lead_Show_->menuAction()};
}

void frmxECG::MakeLeadSwitches()
{
    Lead_Show_ = Named(new QMenu(shownLeads.In(state_.SysInfo), this), "Lead_Show");
    for (std::size_t lead = 0; lead < LeadCount; ++lead) {
        QAction* item = Named(Lead_Show_->addAction(labels::Leads[lead]), "Lead_Show", lead);
        item->setCheckable(true);
        item->setChecked(true);
        connect(item, &QAction::triggered, this, [this, lead](bool shown) {
            review_.View.Hidden[lead] = !shown;
            ShowView();
        });
    }
}

void frmxECG::MakeFlagMenus()
{
    AddR_ = Named(new QMenu(this), "AddR");
    QAction* add = Named(AddR_->addAction(addFlag.In(state_.SysInfo)), "R_Add");
    connect(add, &QAction::triggered, this, [this] {
        const double x = static_cast<double>(flagX_) / review_.View.DisplayScale;
        FlagChanged(review_.AddFlag(SlotAt(x, state_.BlockStart, review_.Scale().Speed)));
    });
    DelR_ = Named(new QMenu(this), "DelR");
    QAction* remove = Named(DelR_->addAction(deleteFlag.In(state_.SysInfo)), "R_Del");
    connect(remove, &QAction::triggered, this, [this] { FlagChanged(review_.DeleteFlag(review_.View.DeleteBeat)); });
}

// Brings every menu and every key that names a choice to what is chosen.
void frmxECG::CheckMenus()
{
    const ReviewState& view = review_.View;
    const std::size_t speedIndex = ReviewSpeedIndex(state_.CurrentHeader);
    const std::size_t gainIndex = ReviewGainIndex(state_.CurrentHeader);
    Check(ECG_Menu_, static_cast<std::size_t>(view.Form));
    Check(FECG_Menu_, view.Spectrum == spectrumLayouts[0] ? 0 : 1);
    for (std::size_t which = 0; which < DFTLead_.size(); ++which)
        Check(DFTLead_[which], review_.Spectrum.DftLeads[which]);
    Check(DispScale_, static_cast<std::size_t>(view.DisplayScale - SmallestDisplayScale));
    Check(SpdMenu_, speedIndex);
    Check(AmpMenu_, gainIndex);
    Check(Para_Lead_, view.AnalysisLead);
    for (std::size_t which = 0; which < LongLead_.size(); ++which)
        Check(LongLead_[which], view.LongLead[which]);
    for (std::size_t mode = 0; mode < Command1_.size(); ++mode)
        Command1_[mode]->setChecked(mode == static_cast<std::size_t>(view.Mode));
    for (QAction* tool : traceTools_)
        tool->setEnabled(HasTraces(view.Mode));
    Rule_->setChecked(view.Rule.On);
    PicFore_->setCursor(view.Rule.On && HasTraces(view.Mode) ? Qt::CrossCursor : Qt::ArrowCursor);
    SpdKey_->setText(labels::Speeds[speedIndex]);
    AmpKey_->setText(labels::Gains[gainIndex]);
    LeadKey_->setText(labels::Leads[view.AnalysisLead]);
}

}  // namespace ecg
