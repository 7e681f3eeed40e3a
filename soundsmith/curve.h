// A course of a value over time, drawn through points: the shape of a level, a pitch, an engine's
// speed.
#pragma once

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <vector>

namespace tamlo::soundsmith {

class Curve {
  public:
    struct Point {
        double seconds;
        double value;
    };

    /// Points stand in the order of their times.
    Curve(double constant) : points_{{0.0, constant}} {}  // a number is a flat curve
    Curve(std::initializer_list<Point> points) : points_(points) {}
    explicit Curve(std::vector<Point> points) : points_(std::move(points)) {}

    /// On the straight line between the two nearest points; level before the first and after the
    /// last.
    double operator()(double seconds) const {
        const auto after =
            std::upper_bound(points_.begin(), points_.end(), seconds,
                             [](double time, const Point& point) { return time < point.seconds; });
        if (after == points_.begin()) return points_.front().value;
        if (after == points_.end()) return points_.back().value;
        const Point& before = *(after - 1);
        const double part = (seconds - before.seconds) / (after->seconds - before.seconds);
        return before.value + part * (after->value - before.value);
    }

  private:
    std::vector<Point> points_;
};

/// The shape of something struck or plucked: a straight rise, then a fall to 1/1000 in `fall`.
inline double Struck(double seconds, double rise, double fall) {
    if (seconds < 0.0) return 0.0;
    if (seconds < rise) return seconds / rise;
    return std::exp(-6.9 * (seconds - rise) / fall);
}

/// A rounded hill from 0 up to 1 and back within `length` seconds.
inline double Hill(double seconds, double length) {
    if (seconds <= 0.0 || seconds >= length) return 0.0;
    const double s = std::sin(3.14159265358979323846 * seconds / length);
    return s * s;
}

}  // namespace tamlo::soundsmith
