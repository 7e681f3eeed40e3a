// The one source of chance for the recipes: seeded by the effect's name, the same on every machine
// and at every build, so that a sound changes only when its recipe does.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <string_view>

namespace tamlo::soundsmith {

class Chance {
  public:
    explicit Chance(std::string_view name) {
        for (const char letter : name) {  // FNV-1a
            state_ ^= static_cast<unsigned char>(letter);
            state_ *= 0x100000001b3u;
        }
    }

    /// In [0, 1).
    double Next() {
        state_ += 0x9e3779b97f4a7c15u;  // splitmix64
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
        return static_cast<double>((z ^ (z >> 31)) >> 11) * 0x1.0p-53;
    }

    double Between(double low, double high) { return low + (high - low) * Next(); }

    /// Near 1: within `part` of it either way. For detuning, unequal strength, uneven time.
    double About(double part) { return 1.0 + part * Between(-1.0, 1.0); }

    /// Evenly spread over -1 to 1: one sample of white noise.
    double Noise() { return Between(-1.0, 1.0); }

    bool OneIn(double count) { return Next() * count < 1.0; }

  private:
    std::uint64_t state_ = 0xcbf29ce484222325u;
};

}  // namespace tamlo::soundsmith
