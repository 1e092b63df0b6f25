// Every window in both languages: its words, and room for them.
#include "core/windows/CoreWindowTest.h"
#include "core/windows/frmMsg.h"
#include "core/windows/frmSelectName.h"
#include "core/windows/frmSplash.h"
#include "core/windows/frmSysSet.h"
#include "support/WindowWords.h"

namespace ecg {
namespace {

struct WindowCase {
    const char* Name;
    QWidget& (*Show)(CoreWindowTest& test);
    std::vector<Twin> Captions;
};

class Captions : public CoreWindowTest, public testing::WithParamInterface<WindowCase> {};

TEST_P(Captions, AreInTheLanguageThatRunsAndFit)
{
    for (const bool chinese : {true, false}) {
        State.SysInfo.Language = chinese ? 1 : 2;
        auto& window = GetParam().Show(*this);
        ExpectCaptions(window, chinese, GetParam().Captions);
    }
}

// clang-format off
const std::vector<Twin> sysSetCaptions{
    {"系统信息设置", "System Information Setup"}, {"忽略", "Cancel"}, {"确认", "OK"},
    // first tab
    {"系统信息", "System Information"}, {"医院资料", "Hospital Information"}, {"名称", "Name"},
    {"地址", "Address"}, {"电话", "TEL"}, {"传真", "FAX"}, {"网站", "Web"}, {"邮箱", "eMail"},
    {"患者自定义项名称", "Define-Self Item Name"}, {"自定义项1", "Item1"}, {"自定义项4", "Item4"},
    {"科室资料", "Class Name"},
    {"选择需要修改的位置，使用鼠标右键菜单修改科室名称。", "Select a Line , using RightButton for Modify"},
    // second tab
    {"采样参数", "Sample Parameter"}, {"波形显示控制", "Wave Display Control"}, {"avR", "avR"}, {"V6", "V6"},
    {"显示肢导联", "Display Limb Lead"}, {"显示胸导联", "Display Chest Lead"},
    {"显示全部导联", "Display All Lead"}, {"滤波设定", "Filter Setup"}, {"抗噪滤波", "AC Filter"},
    {"肌电滤波", "MF Filter"}, {"基漂抑制", "DF Filter"}, {"电极连接提示", "Lead Prompt"},
    {"提示电极连接", "Lead Prompt"}, {"Wilson 导联体系采样时间", "Wilson Sample Time"},
    {"Frank 导联体系采样时间", "Frank Sample Time"}, {"常规心电", "ECG"}, {"频谱心电", "FCG"}, {"QT离散度", "QT"},
    {"心率变异", "HRV"}, {"起搏心电", "PECG"}, {"心电向量", "VCG"}, {"时间向量", "TVCG"}, {"高频心电", "HECG"},
    {"心晚电位", "VLP"}, {"出厂设定", "Factory Setup"},
    // third tab
    {"采样颜色", "Sample Color"}, {"波形颜色(观察)", "Wave Color(Watch)"}, {"波形颜色(存储)", "Wave Color(Save)"},
    {"波形颜色(复位)", "Wave Color(Reset)"}, {"背景颜色", "Back Color"}, {"坐标颜色(5mm)", "Axial Color(5mm)"},
    {"坐标颜色(1mm)", "Axial Color(1mm)"}, {"当前调整：观察波形颜色", "Modify：Watch Wave Color"}, {"红", "R"},
    {"绿", "G"}, {"篮", "B"},
    // fourth tab
    {"报告设定", "Report Setup"}, {"打印质量", "Print Mode"}, {"正常打印（打印速度快）", "Normal Print(Fast)"},
    {"精细打印（打印速度慢）", "Fine Print(Slow)"}, {"打印报告方向", "Report Direction"},
    {"横向打印报告格式", "Landscape Orientation"}, {"纵向打印报告格式", "Portrait Orientation"},
    {"坐标打印效果调整步骤", "Axial Print Modify Step"}, {"1、选择颜色模式", "1、Select Color Mode"},
    {"彩色坐标模式", "Color Axial"}, {"黑白坐标模式", "Monochrome Axial"},
    {"2、打印测试页", "2、Print Test Page"},
    {"3、根据视觉效果选择坐标颜色和打印深度", "3、Input Axial Color and Deep"}};
// clang-format on

INSTANTIATE_TEST_SUITE_P(
    Windows, Captions,
    testing::Values(
        WindowCase{"frmSelectName",
                   [](CoreWindowTest& test) -> QWidget& { return test.Show<frmSelectName>(test.State, test.Messages); },
                   {{"请选择您的姓名", "Select Your Name"},
                    {"请输入/选择检查医生姓名", "Please Input/Select Doctor Name"},
                    {"选择", "Select"}}},
        WindowCase{"frmSplash",
                   [](CoreWindowTest& test) -> QWidget& { return test.Show<frmSplash>(test.State, test.Pictures); },
                   {{"心电工作站", "ECG Workstation"}, {"进入", "Enter"}}},
        WindowCase{"frmMsg",
                   [](CoreWindowTest& test) -> QWidget& { return test.Show<frmMsg>(test.State); },
                   {{"确定", "OK"}, {"放弃", "Renounce"}, {"取消", "Cancel"}}},
        WindowCase{"frmSysSet",
                   [](CoreWindowTest& test) -> QWidget& {
                       return test.Show<frmSysSet>(test.State, test.Messages, test.Printer, test.Pictures);
                   },
                   sysSetCaptions}),
    [](const auto& tested) { return tested.param.Name; });

// Only the name window, which opens before the language is set, takes any value but 2 for Chinese.
TEST_F(CoreWindowTest, ALanguageThatWasNeverSetIsChineseForTheNameWindowAndEnglishElsewhere)
{
    for (const Byte language : {Byte{0}, Byte{3}, Byte{32}}) {
        State.SysInfo.Language = language;
        EXPECT_EQ(WordsOf(Show<frmSelectName>(State, Messages)).count("请选择您的姓名"), 1U);
        EXPECT_EQ(WordsOf(Show<frmMsg>(State)).count("Renounce"), 1U);
    }
}

}  // namespace
}  // namespace ecg
