// A network of eight delay lines that feed each other.
#include "room.h"

#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "filters.h"

namespace tamlo::soundsmith {

namespace {

constexpr int lines = 8;
constexpr double speed_of_sound = 343.0;

class DelayNetwork {
  public:
    DelayNetwork(const Room& room, int rate)
        : damping_(1.0 - std::exp(-2.0 * std::numbers::pi * room.bright_hz / rate)) {
        // Ratios without common measure, so that the echoes never fall together.
        constexpr std::array<double, lines> ratios{1.0, 1.19, 1.37, 1.53, 1.81, 2.03, 2.29, 2.63};
        for (std::size_t i = 0; i < lines; ++i) {
            const double seconds = ratios[i] * room.size / speed_of_sound;
            lines_[i].resize(std::max<std::size_t>(FramesIn(seconds, rate), 8));
            feedback_[i] = std::pow(10.0, -3.0 * seconds / room.seconds);
        }
    }

    double Step(double in) {
        std::array<double, lines> out{};
        double sum = 0.0, result = 0.0;
        for (std::size_t i = 0; i < lines; ++i) {
            const double heard = lines_[i][place_[i]];
            dull_[i] += damping_ * (heard - dull_[i]);
            out[i] = dull_[i] * feedback_[i];
            sum += out[i];
            result += (i % 2 == 0 ? heard : -heard);
        }
        for (std::size_t i = 0; i < lines; ++i) {
            // A Householder mix: every line feeds every other, and no energy is lost or gained.
            lines_[i][place_[i]] = in + out[i] - 2.0 / lines * sum;
            place_[i] = (place_[i] + 1) % lines_[i].size();
        }
        return result * 0.35;
    }

  private:
    double damping_;
    std::array<std::vector<double>, lines> lines_;
    std::array<double, lines> feedback_{}, dull_{};
    std::array<std::size_t, lines> place_{};
};

}  // namespace

void AddRoom(Sound& sound, const Room& room) {
    DelayNetwork network(room, sound.rate);
    if (sound.loop)
        for (const double sample : sound.samples) network.Step(sample);
    for (double& sample : sound.samples) sample += room.share * network.Step(sample);
}

void BehindDoor(Sound& sound) {
    LowPass(sound, 650);
    LowPass(sound, 1100);
    Gain(sound, 0.6);
}

}  // namespace tamlo::soundsmith
