// The second readers.
#include "sound/wave_inspection.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <numbers>

namespace tamlo {
namespace {

unsigned LittleEndian(const std::string& bytes, std::size_t at, int count) {
    unsigned value = 0;
    for (int i = count; i-- > 0;)
        value = value * 256 + static_cast<std::uint8_t>(bytes[at + static_cast<std::size_t>(i)]);
    return value;
}

// Name to body; "error" is there when the chunks do not fill the file exactly.
std::map<std::string, std::string> Chunks(const std::string& bytes) {
    std::map<std::string, std::string> chunks;
    std::size_t at = 12;
    while (at + 8 <= bytes.size()) {
        const std::size_t size = LittleEndian(bytes, at + 4, 4);
        if (size > bytes.size() - at - 8) break;
        chunks[bytes.substr(at, 4)] = bytes.substr(at + 8, size);
        at += 8 + size + size % 2;
    }
    if (at != bytes.size()) chunks["error"] = "its chunks do not fill it";
    return chunks;
}

// A filter of second order, y = b0 x + b1 x' + b2 x" - a1 y' - a2 y".
void Filter(std::vector<double>& samples, std::array<double, 3> b, std::array<double, 3> a) {
    double x1 = 0, x2 = 0, y1 = 0, y2 = 0;
    for (double& sample : samples) {
        const double x = sample;
        const double y = (b[0] * x + b[1] * x1 + b[2] * x2 - a[1] * y1 - a[2] * y2) / a[0];
        x2 = x1;
        x1 = x;
        y2 = y1;
        y1 = y;
        sample = y;
    }
}

// The recommendation's two filters, whose corner frequencies hold at any rate.
void Weight(std::vector<double>& samples, int rate) {
    const double high = std::pow(10.0, 3.999843853973347 / 20), mid = std::pow(high, 0.4996667741);
    double k = std::tan(std::numbers::pi * 1681.974450955533 / rate), q = 0.7071752369554196;
    Filter(samples, {high + mid * k / q + k * k, 2 * (k * k - high), high - mid * k / q + k * k},
           {1 + k / q + k * k, 2 * (k * k - 1), 1 - k / q + k * k});
    k = std::tan(std::numbers::pi * 38.13547087602444 / rate);
    q = 0.5003270373238773;
    const double a0 = 1 + k / q + k * k;
    Filter(samples, {1, -2, 1}, {1, 2 * (k * k - 1) / a0, (1 - k / q + k * k) / a0});
}

double Lufs(double power) {
    return -0.691 + 10 * std::log10(power + 1e-20);
}

double MeanAbove(const std::vector<double>& powers, double gate) {
    double sum = 0, count = 0;
    for (const double power : powers) {
        sum += Lufs(power) > gate ? power : 0;
        count += Lufs(power) > gate ? 1 : 0;
    }
    return count > 0 ? sum / count : 0;
}

}  // namespace

WaveContent InspectWave(const std::string& bytes) {
    WaveContent wave;
    if (bytes.size() < 12 || bytes.substr(0, 4) != "RIFF" || bytes.substr(8, 4) != "WAVE") {
        wave.error = "not a wave file";
        return wave;
    }
    auto chunks = Chunks(bytes);
    const std::string& format = chunks["fmt "];
    const std::string& data = chunks["data"];
    wave.error = chunks["error"];
    if (LittleEndian(bytes, 4, 4) != bytes.size() - 8) wave.error = "its size is not its length";
    if (format.size() != 16 || data.empty()) wave.error = "it lacks a format or samples";
    if (!wave.error.empty()) return wave;
    wave.channels = static_cast<int>(LittleEndian(format, 2, 2));
    wave.rate = static_cast<int>(LittleEndian(format, 4, 4));
    wave.bits = static_cast<int>(LittleEndian(format, 14, 2));
    const unsigned width = LittleEndian(format, 12, 2);
    if (LittleEndian(format, 0, 2) != 1 || width * 8 != static_cast<unsigned>(wave.bits) ||
        LittleEndian(format, 8, 4) != width * static_cast<unsigned>(wave.rate))
        wave.error = "its format contradicts itself";
    for (std::size_t at = 0; width > 0 && at + width <= data.size(); at += width) {
        const unsigned value = LittleEndian(data, at, static_cast<int>(width));
        wave.samples.push_back(width == 1 ? value / 128.0 - 1.0
                                          : static_cast<std::int16_t>(value) / 32768.0);
    }
    return wave;
}

FieldCount CountFields(const std::string& bytes, bool& odd) {
    FieldCount fields;
    std::size_t length = 0;
    bool at_start = true, open = true;
    for (std::size_t i = 0; i < bytes.size() && bytes[i] != 26; ++i) {
        const char c = bytes[i];
        if (!open) {
            ++fields.count;
            open = true;
            at_start = true;
            length = 0;
        }
        if (c == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
        if (c == ',' || c == '\r' || c == '\n') {
            open = false;
        } else if (!(at_start && c == ' ')) {
            if (at_start && c == '"') odd = true;
            at_start = false;
            ++length;
        }
        fields.last = length;
    }
    return fields;
}

double IntegratedLoudness(const WaveContent& wave) {
    std::vector<double> samples = wave.samples;
    Weight(samples, wave.rate);
    const auto step = static_cast<std::size_t>(wave.rate / 10);
    const std::size_t block = std::min(4 * step, samples.size());
    std::vector<double> powers;
    for (std::size_t at = 0; at + block <= samples.size(); at += step) {
        double sum = 0;
        for (std::size_t i = at; i < at + block; ++i) sum += samples[i] * samples[i];
        powers.push_back(sum / static_cast<double>(block));
    }
    return Lufs(MeanAbove(powers, Lufs(MeanAbove(powers, -70)) - 10));
}

}  // namespace tamlo
