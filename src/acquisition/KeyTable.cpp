#include "acquisition/KeyTable.h"

#include <algorithm>

namespace ecg {
namespace {

KeyTexts GoTexts(ExamState state)
{
    switch (state) {
    case ExamState::Waiting:
        return {{"标准检查", "NormStep"}, {"按照标准的步骤完成检查", "Start With Normal Step"}};
    case ExamState::Ready:
        return {{"开始采样", "Sample"}, {"开始采样波形", "Start Sample Wave"}};
    case ExamState::Sampling:
        return {{"完成采样", "StopSamp"}, {"立即完成采样，进入分析窗口", "Stop Sample,Enter Analisys Window"}};
    }
    return {};
}

KeyTexts BackTexts(ExamState state)
{
    switch (state) {
    case ExamState::Waiting:
        return {{"快速检查", "FastStep"},
                {"不输入患者资料，按Wilson体系采样20秒", "No Patient Information,Sample 20s using WILSON Lead System"}};
    case ExamState::Ready:
        return {{"取消检查", "LastStep"}, {"终止本次检查，进入待机状态", "Stop Step,Enter Wait State"}};
    case ExamState::Sampling:
        return {{"重新采样", "LastStep"}, {"回到重新开始采样的状态", "Back to State of Starting Sample"}};
    }
    return {};
}

}  // namespace

const KeyEntry* FindKey(int number)
{
    const auto* found =
        std::find_if(KeyTable.begin(), KeyTable.end(), [number](const KeyEntry& entry) { return entry.Key == number; });
    return found == KeyTable.end() ? nullptr : found;
}

KeyTexts TextsOfKey(int number, ExamState state)
{
    switch (number) {
    case key::Exit:
        return {{"", ""}, {"退出本系统", "Exit System"}};
    case key::Help:
        return {{"", ""}, {"获取本窗口的帮助信息", "Help of Current Window"}};
    case key::Knowledge:
        return {{"", ""}, {"打开知识库窗口", "Open Knowology Window"}};
    case key::Setup:
        return {{"系统设定", "Setup"}, {"系统全局信息的设置", "Setup System Information"}};
    case key::DataBase:
        return {{"数据管理", "DataBase"}, {"对历史记录的分析打印", "Analisys/Print History Data"}};
    case key::Freeze:
        return {{"波形冻结", "Freeze"}, {"仅仅冻结屏幕波形", "Freeze Wave Only"}};
    case key::Event:
        return {{"事件输入", "Event"}, {"在存储状态下插入事件", "Plug Event when Saving Wave"}};
    case key::BaseLine:
        return {{"基线回位", "BaseLine"}, {"让基线迅速回到0位置", "BaseLine Return to Zero-Position"}};
    case key::Go:
        return GoTexts(state);
    case key::Back:
        return BackTexts(state);
    default:
        return {{"", ""}, {"", ""}};
    }
}

bool IsKeyEnabled(int number, ExamState state)
{
    const bool sampling = state == ExamState::Sampling;
    switch (number) {
    case key::Setup:
    case key::DataBase:
        return !sampling;
    case key::Event:
        return sampling;
    default:
        return FindKey(number) != nullptr;
    }
}

}  // namespace ecg
