// Walks over places, up or down, and the searches along them. All ties are alike: the first place that is found stays.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>

namespace ecg {

// Places from first to last, both included, one by one. Made by `Up` and `Down`.
class Scan {
public:
    class Iterator {
    public:
        Iterator(int place, int step) : place_(place), step_(step) {}
        int operator*() const { return place_; }
        Iterator& operator++()
        {
            place_ += step_;
            return *this;
        }
        friend bool operator!=(const Iterator& left, const Iterator& right) { return left.place_ != right.place_; }

    private:
        int place_;
        int step_;
    };

    Scan(int first, int end, int step) : first_(first), end_(end), step_(step) {}
    Iterator begin() const { return {first_, step_}; }
    Iterator end() const { return {end_, step_}; }

private:
    int first_;
    int end_;  // the place behind the last
    int step_;
};

// Empty when `to` lies on the wrong side of `from`.
inline Scan Up(int from, int to)
{
    return {from, to < from ? from : to + 1, 1};
}

inline Scan Down(int from, int to)
{
    return {from, to > from ? from : to - 1, -1};
}

// A row of samples in which a place outside is "nothing there". It reads as not-a-number, so every comparison with it
// is false: no test succeeds on it, and no extreme is found there.
template <class Sample>
class OpenRow {
public:
    explicit OpenRow(std::span<const Sample> samples) : samples_(samples) {}

    int Size() const { return static_cast<int>(samples_.size()); }
    float operator[](int place) const
    {
        return place >= 0 && place < Size() ? static_cast<float>(samples_[static_cast<std::size_t>(place)])
                                            : std::numeric_limits<float>::quiet_NaN();
    }

private:
    std::span<const Sample> samples_;
};

template <class Test>
std::optional<int> FirstPlace(Scan places, Test test)
{
    for (const int place : places)
        if (test(place))
            return place;
    return std::nullopt;
}

// The place where `value` is smallest; nothing when there is no value at all.
template <class Value>
std::optional<int> PlaceOfSmallest(Scan places, Value value)
{
    std::optional<int> found;
    float smallest = std::numeric_limits<float>::infinity();
    for (const int place : places) {
        const float here = value(place);
        if (here < smallest) {
            smallest = here;
            found = place;
        }
    }
    return found;
}

// How many places pass the test before the first that does not.
template <class Test>
int CountWhile(Scan places, Test test)
{
    int count = 0;
    for (const int place : places) {
        if (!test(place))
            break;
        ++count;
    }
    return count;
}

// The highest and the lowest sample of a stretch, and where they lie. All 0 when there is no sample.
struct Extremes {
    int HighestAt = 0;
    int LowestAt = 0;
    float Highest = 0;
    float Lowest = 0;
};

template <class Sample>
Extremes FindExtremes(const OpenRow<Sample>& row, Scan places)
{
    const auto highest = PlaceOfSmallest(places, [&](int place) { return -row[place]; });
    const auto lowest = PlaceOfSmallest(places, [&](int place) { return row[place]; });
    if (!highest || !lowest)
        return {};
    return {*highest, *lowest, row[*highest], row[*lowest]};
}

}  // namespace ecg
