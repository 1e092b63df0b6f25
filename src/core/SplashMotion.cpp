#include "core/SplashMotion.h"

namespace ecg {

bool SplashMotion::MoveHeart()
{
    constexpr int heartStep = 4;  // pixels a tick
    if (heart_ <= HeartEnd)
        heart_ += heartStep;
    return heart_ > HeartEnd;
}

bool SplashMotion::MoveTrace()
{
    if (trace_ <= TraceEnd)
        ++trace_;
    return trace_ > TraceEnd;
}

}  // namespace ecg
