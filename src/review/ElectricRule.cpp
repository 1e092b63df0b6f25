#include "review/ElectricRule.h"

#include "core/Language.h"
#include "core/Numbers.h"
#include "review/ReviewState.h"

#include <cmath>

namespace ecg {
namespace {

constexpr Twin voltageIs{"电压= ", "Voltage= "};
constexpr Twin millivolts{" 毫伏", " mv"};
constexpr Twin timeIs{"时间= ", "Period= "};
constexpr Twin seconds{" 秒", " s"};
constexpr Twin rateIs{"对应心率= ", "HR= "};
constexpr const char* perMinute = " bpm";

constexpr double shortestInterval = 0.2;  // seconds
constexpr double secondsInMinute = 60;

// Places are thirds and fifths of a millimetre: 5 mm of them must not come out as 4.999.
double Whole(double value)
{
    constexpr double steps = 1e6;
    return RoundHalfEven(value * steps) / steps;
}

}  // namespace

std::array<std::string, 3> RuleTexts(const ElectricRule& rule, const ViewScale& scale, bool chinese)
{
    const double voltage = Whole(std::fabs(rule.Current.Y - rule.Press.Y) / scale.Gain);
    const double time = Whole(std::fabs(rule.Current.X - rule.Press.X) / scale.Speed);
    const double rate = time >= shortestInterval ? secondsInMinute / time : 0;
    return {voltageIs.In(chinese) + FormatDecimal(voltage, 3) + millivolts.In(chinese),
            timeIs.In(chinese) + FormatDecimal(time, 3) + seconds.In(chinese),
            rateIs.In(chinese) + FormatDecimal(rate, 0) + perMinute};
}

}  // namespace ecg
