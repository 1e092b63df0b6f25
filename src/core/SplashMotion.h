// The movement of the splash: a heart comes in from the left, then a trace runs to the right, then it is over.
//
// It takes some 2.8 s: 32 steps of the heart, then 571 of the trace.
#pragma once

namespace ecg {

class SplashMotion {
public:
    static constexpr int HeartTickMilliseconds = 16;
    static constexpr int TraceTickMilliseconds = 4;
    static constexpr int HeartStart = -96;  // left edge of the heart, in pixels: just outside the window
    static constexpr int HeartEnd = 28;     // the heart stands still once its position has passed this
    static constexpr int TraceEnd = 570;    // length of the whole trace in pixels

    int Heart() const { return heart_; }
    int Trace() const { return trace_; }

    // Moves the heart on by one tick. True once it has passed its end, and it is the trace's turn.
    bool MoveHeart();

    // Lengthens the trace by one tick. True once it has passed its end, and the splash may close.
    bool MoveTrace();

private:
    int heart_ = HeartStart;
    int trace_ = 0;
};

}  // namespace ecg
