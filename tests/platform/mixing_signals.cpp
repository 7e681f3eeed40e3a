// How the test signals are made and measured.
#include "platform/mixing_signals.h"

#include <stdlib.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <stdexcept>

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

std::string Number(std::uint32_t value, int bytes) {
    std::string number;
    for (int i = 0; i < bytes; ++i) number.push_back(static_cast<char>(value >> (8 * i)));
    return number;
}

std::string Chunk(const std::string& id, const std::string& content) {
    const auto size = static_cast<std::uint32_t>(content.size());
    return id + Number(size, 4) + content + std::string(size % 2, '\0');
}

std::string FormatChunk(int channels, int rate, int bits, int kind) {
    const auto frame = static_cast<std::uint32_t>(channels * bits / 8);
    const auto samples = static_cast<std::uint32_t>(rate);
    return Chunk("fmt ", Number(static_cast<std::uint32_t>(kind), 2) +
                             Number(static_cast<std::uint32_t>(channels), 2) + Number(samples, 4) +
                             Number(samples * frame, 4) + Number(frame, 2) +
                             Number(static_cast<std::uint32_t>(bits), 2));
}

std::string Riff(const std::string& chunks) {
    return Chunk("RIFF", "WAVE" + chunks);
}

std::string WaveBytes(int rate, int channels, const std::vector<float>& values) {
    std::string data;
    for (const float value : values) {
        data += Number(static_cast<std::uint32_t>(std::lrint(value * 32767)), 2);
    }
    return Riff(FormatChunk(channels, rate, 16) + Chunk("data", data));
}

WaveFolder::WaveFolder() {
    path_ = (std::filesystem::temp_directory_path() / "tamlo-waves-XXXXXX").string();
    if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no temporary folder");
}

WaveFolder::~WaveFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

void WaveFolder::Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path_ + "/" + name + ".wav", std::ios::binary) << bytes;
}

}  // namespace tamlo
