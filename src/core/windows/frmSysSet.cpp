#include "core/windows/frmSysSet.h"

#include "core/TestPage.h"
#include "core/windows/SysSetColourTab.h"
#include "core/windows/SysSetHospitalTab.h"
#include "core/windows/SysSetReportTab.h"
#include "core/windows/SysSetSampleTab.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace ecg {
namespace {

constexpr int leastWidth = 880;   // pixels
constexpr int buttonWidth = 104;  // pixels

constexpr Twin notANumber{"采样时间的内容必须为数字！", "Sample Time MUST be Digital!"};
constexpr Twin tooShort{"最少的采样时间为10秒！", "The Least Time is 10s!"};
constexpr Twin tooLong{"最长的采样时间为4294967秒！", "The Longest Time is 4294967s!"};
static_assert(LeastSampleSeconds == 10 && MostSampleSeconds == 4294967);

constexpr Twin factoryTitle{"恢复参数值", "Restore Parameter"};
constexpr Twin factorySampling{"把采样参数设定为出厂值吗？", "Set the Sample Parameter as Factory Value?"};
constexpr Twin factoryColours{"把主界面颜色参数设定为出厂值吗？", "Set the Wave Color as Factory Value?"};
constexpr Twin factoryReport{"把报告参数设定为出厂值吗？", "Set the Report as Factory Value?"};

constexpr Twin notStored{"设置没有保存：无法写入 Sysinfo.par。请检查磁盘空间和数据文件夹的权限，然后再次确认；"
                         "也可以忽略，保持原来的设置。",
                         "The settings were not stored: Sysinfo.par cannot be written. Check the disk space and the "
                         "permissions of the data folder and press OK again, or Cancel to keep the old settings."};
constexpr Twin noPrinter{"没有可用的打印机，测试页没有打印。请安装打印机并设为默认打印机。",
                         "There is no printer, and the test page was not printed. Install a printer and make it the "
                         "default one."};
constexpr Twin printFailed{"测试页没有打印完成。请检查打印机的电源、连接和纸张。",
                           "The test page could not be printed. Check the printer's power, connection and paper."};

}  // namespace

frmSysSet::frmSysSet(SharedState& state, MessageBox& messages, Printer& printer, const Pictures& pictures,
                     QWidget* parent)
    : QDialog(parent),
      state_(state),
      messages_(messages),
      printer_(printer),
      draft_(state.SysInfo),
      SettingTab_(Named(new QTabWidget(this), "SettingTab"))
{
    setObjectName("frmSysSet");
    setWindowTitle(Twin{"系统信息设置", "System Information Setup"}.In(state_.SysInfo));
    setMinimumWidth(leastWidth);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(style::Margins);
    column->setSpacing(2 * style::GridStep);
    column->addWidget(SettingTab_, 1);
    AddTabs(pictures);
    ConnectTabs();
    column->addLayout(ButtonRow());
}

// Made after the tabs, so that the keyboard comes to the buttons last.
QHBoxLayout* frmSysSet::ButtonRow()
{
    Command1_ = Named(new QPushButton(Twin{"忽略", "Cancel"}.In(state_.SysInfo), this), "Command1");
    Command2_ = Named(new QPushButton(Twin{"确认", "OK"}.In(state_.SysInfo), this), "Command2");
    auto* row = new QHBoxLayout;
    row->setSpacing(style::GridStep);
    row->addStretch();
    for (QPushButton* button : {Command1_, Command2_}) {
        button->setMinimumWidth(buttonWidth);
        row->addWidget(button);
    }
    Command2_->setDefault(true);
    connect(Command1_, &QPushButton::clicked, this, [this] { reject(); });
    connect(Command2_, &QPushButton::clicked, this, [this] { Confirm(); });
    return row;
}

void frmSysSet::AddTabs(const Pictures& pictures)
{
    const bool chinese = state_.Chinese();
    hospital_ = new SysSetHospitalTab(draft_, chinese, SettingTab_);
    sample_ = new SysSetSampleTab(draft_, chinese, SettingTab_);
    colour_ = new SysSetColourTab(draft_, chinese, pictures, state_.Folders.Data / PreviewWaveFileName, SettingTab_);
    report_ = new SysSetReportTab(draft_, chinese, pictures, SettingTab_);
    SettingTab_->addTab(hospital_, Twin{"系统信息", "System Information"}.In(chinese));
    SettingTab_->addTab(sample_, Twin{"采样参数", "Sample Parameter"}.In(chinese));
    SettingTab_->addTab(colour_, Twin{"采样颜色", "Sample Color"}.In(chinese));
    SettingTab_->addTab(report_, Twin{"报告设定", "Report Setup"}.In(chinese));
}

void frmSysSet::ConnectTabs()
{
    sample_->OnFactory = [this] {
        if (!AsksForFactory(factorySampling))
            return;
        draft_.LoadFactory(FactoryGroup::Sampling, printer_.PrintsColour());
        sample_->ShowDraft();
    };
    colour_->OnFactory = [this] {
        if (!AsksForFactory(factoryColours))
            return;
        draft_.LoadFactory(FactoryGroup::Colours, printer_.PrintsColour());
        colour_->ShowDraft();
    };
    report_->OnFactory = [this] {
        if (!AsksForFactory(factoryReport))
            return;
        draft_.LoadFactory(FactoryGroup::Report, printer_.PrintsColour());
        report_->ShowDraft();
    };
    report_->OnPrintTestPage = [this] { PrintPage(); };
}

bool frmSysSet::AsksForFactory(const Twin& question)
{
    return messages_.Show(question.In(state_.SysInfo), factoryTitle.In(state_.SysInfo), MessageButtons::YesNo);
}

void frmSysSet::Tell(const Twin& text)
{
    messages_.Tell(text.In(state_.SysInfo), windowTitle().toStdString());
}

bool frmSysSet::CheckTimes()
{
    const auto refusal = draft_.Check();
    if (!refusal)
        return true;
    SettingTab_->setCurrentWidget(sample_);
    switch (refusal->Fault) {
    case SecondsFault::NotANumber:
        Tell(notANumber);
        break;
    case SecondsFault::TooShort:
        Tell(tooShort);
        break;
    case SecondsFault::TooLong:
        Tell(tooLong);
        break;
    }
    sample_->PointAtTime(refusal->Box);
    return false;
}

void frmSysSet::Confirm()
{
    hospital_->Collect();
    sample_->Collect();
    if (!CheckTimes())
        return;
    const SysInfo accepted = draft_.Accepted();
    if (!WriteSettings(state_.SettingsFile(), accepted)) {
        Tell(notStored);
        return;
    }
    state_.SysInfo = accepted;
    state_.DerivePrintColours();
    accept();
}

void frmSysSet::PrintPage()
{
    const PrintOutcome outcome = PrintTestPage(printer_, draft_.Values);
    if (outcome == PrintOutcome::NoPrinter)
        Tell(noPrinter);
    if (outcome == PrintOutcome::Failed)
        Tell(printFailed);
}

}  // namespace ecg
