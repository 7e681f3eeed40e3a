#include "web/files/folded_wave.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace tamlo {
namespace {

std::size_t Number(std::string_view bytes, std::size_t at, std::size_t size) {
    std::size_t number = 0;
    for (std::size_t i = size; i > 0; --i) {
        number = number << 8U | static_cast<unsigned char>(bytes[at + i - 1]);
    }
    return number;
}

struct Samples {
    std::size_t begin = 0;  ///< of the first byte
    std::size_t count = 0;
    std::size_t channels = 0;
};

Samples FindSamples(std::string_view wave) {
    Samples samples;
    std::uint64_t at = 12;
    while (at + 8 <= wave.size()) {
        const auto here = static_cast<std::size_t>(at);
        const std::size_t size = Number(wave, here + 4, 4);
        const std::string_view name = wave.substr(here, 4);
        if (name == "fmt " && at + 12 <= wave.size()) samples.channels = Number(wave, here + 10, 2);
        if (name == "data") {
            samples.begin = here + 8;
            samples.count = std::min(size, wave.size() - samples.begin) / 2;
            break;
        }
        at += std::uint64_t{8} + size + size % 2;
    }
    return samples;
}

}  // namespace

std::string UnfoldedWave(std::string_view folded) {
    std::string wave(folded);
    const auto [begin, count, channels] = FindSamples(folded);
    if (channels == 0) return wave;
    const auto sample = [&wave, begin = begin](std::size_t i) {
        return static_cast<unsigned>(Number(wave, begin + 2 * i, 2));
    };
    for (std::size_t i = 0; i < count; ++i) {
        const auto low = static_cast<unsigned char>(folded[begin + i]);
        const auto high = static_cast<unsigned char>(folded[begin + count + i]);
        const unsigned zigzag = low | static_cast<unsigned>(high) << 8U;
        unsigned value = (zigzag >> 1U) ^ (0U - (zigzag & 1U));
        if (i >= channels) value += 2 * sample(i - channels);
        if (i >= 2 * channels) value -= sample(i - 2 * channels);
        wave[begin + 2 * i] = static_cast<char>(value);
        wave[begin + 2 * i + 1] = static_cast<char>(value >> 8U);
    }
    return wave;
}

}  // namespace tamlo
