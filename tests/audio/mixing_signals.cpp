// How the test signals are made and measured.
#include "audio/mixing_signals.h"

#include <cmath>
#include <numbers>

#include "wave_maker.h"

namespace tamlo {

std::vector<float> Tone(double hertz, int rate, int count) {
    std::vector<float> tone;
    for (int i = 0; i < count; ++i) {
        tone.push_back(static_cast<float>(std::sin(2 * std::numbers::pi * hertz * i / rate)));
    }
    return tone;
}

ToneFit FitTone(const std::vector<float>& signal, double frequency) {
    // Normal equations of a * sin + b * cos.
    double ss = 0, sc = 0, cc = 0, sx = 0, cx = 0;
    const double turn = 2 * std::numbers::pi * frequency;
    for (std::size_t i = 0; i < signal.size(); ++i) {
        const double s = std::sin(turn * static_cast<double>(i));
        const double c = std::cos(turn * static_cast<double>(i));
        ss += s * s, sc += s * c, cc += c * c, sx += s * signal[i], cx += c * signal[i];
    }
    const double determinant = ss * cc - sc * sc;
    const double a = (sx * cc - cx * sc) / determinant;
    const double b = (cx * ss - sx * sc) / determinant;
    double wanted = 0, noise = 0;
    for (std::size_t i = 0; i < signal.size(); ++i) {
        const double at = turn * static_cast<double>(i);
        const double fit = a * std::sin(at) + b * std::cos(at);
        wanted += fit * fit;
        noise += (signal[i] - fit) * (signal[i] - fit);
    }
    return {20 * std::log10(std::hypot(a, b)), 10 * std::log10(wanted / noise)};
}

std::string WaveBytes(int rate, int channels, const std::vector<float>& values) {
    std::string data;
    for (const float value : values) {
        data += LittleEndian(static_cast<std::uint32_t>(std::lrint(value * 32767)), 2);
    }
    return WaveFile(FormatChunk(channels, rate, 16) + Chunk("data", data));
}

}  // namespace tamlo
