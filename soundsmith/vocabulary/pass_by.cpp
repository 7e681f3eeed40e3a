// Retarded time, distance and air.
#include "pass_by.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tamlo::soundsmith {

namespace {

constexpr double speed_of_sound = 343.0;

double Distance(const PassBy& pass, double time) {
    return std::hypot(pass.speed * (time - pass.moment), pass.distance);
}

// When that which is heard at `time` was sent out.
double SentAt(const PassBy& pass, double time) {
    double sent = time;
    for (int i = 0; i < 8; ++i) sent = time - Distance(pass, sent) / speed_of_sound;
    return sent;
}

double Sample(const Sound& source, double seconds) {
    const double place = seconds * source.rate;
    const auto size = static_cast<std::ptrdiff_t>(source.samples.size());
    auto whole = static_cast<std::ptrdiff_t>(std::floor(place));
    const double part = place - std::floor(place);
    const auto at = [&](std::ptrdiff_t i) {
        if (source.loop) i = ((i % size) + size) % size;
        return i >= 0 && i < size ? source.samples[static_cast<std::size_t>(i)] : 0.0;
    };
    const double a = at(whole - 1), b = at(whole), c = at(whole + 1), d = at(whole + 2);
    return b +
           0.5 * part * (c - a + part * (2 * a - 5 * b + 4 * c - d + part * (3 * (b - c) + d - a)));
}

}  // namespace

Sound Passing(const Sound& source, const PassBy& pass, double seconds) {
    Sound result = Silence(source.rate, seconds);
    const double first = SentAt(pass, 0.0);
    double dull = 0.0;
    for (std::size_t i = 0; i < result.samples.size(); ++i) {
        const double sent = SentAt(pass, static_cast<double>(i) / source.rate);
        const double near = pass.distance / Distance(pass, sent);
        const double corner = std::clamp(18000.0 * std::pow(near, 0.8), 500.0, 18000.0);
        const double open = 1.0 - std::exp(-2.0 * std::numbers::pi * corner / source.rate);
        dull += open * (Sample(source, sent - first) - dull);
        result.samples[i] = near * dull;
    }
    return result;
}

}  // namespace tamlo::soundsmith
