// A Fourier transform of powers of two, and the bands made of it.
#include "report/spectrum.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <utility>

namespace tamlo::soundsmith {

namespace {

using Complex = std::complex<double>;

void ReverseBits(std::vector<Complex>& values) {
    const std::size_t size = values.size();
    for (std::size_t i = 1, j = 0; i < size; ++i) {
        std::size_t bit = size / 2;
        for (; (j & bit) != 0; bit /= 2) j ^= bit;
        j ^= bit;
        if (i < j) std::swap(values[i], values[j]);
    }
}

// Without the library's care for infinities, which costs ten times as much.
Complex Times(Complex a, Complex b) {
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

void Transform(std::vector<Complex>& values) {
    ReverseBits(values);
    const std::size_t size = values.size();
    for (std::size_t length = 2; length <= size; length *= 2) {
        const Complex turn = std::polar(1.0, -2.0 * std::numbers::pi / static_cast<double>(length));
        for (std::size_t start = 0; start < size; start += length) {
            Complex twiddle = 1.0;
            for (std::size_t i = start; i < start + length / 2; ++i) {
                const Complex even = values[i], odd = Times(values[i + length / 2], twiddle);
                values[i] = even + odd;
                values[i + length / 2] = even - odd;
                twiddle = Times(twiddle, turn);
            }
        }
    }
}

constexpr double lowest_band = 100.0;
constexpr double highest_band = 7000.0;
constexpr double deepest = 60.0;

// Where band `index` begins, in hertz; evenly spaced as the ear spaces tones.
double BandEdge(std::size_t index) {
    const double part = static_cast<double>(index) / static_cast<double>(band_count);
    return lowest_band * std::pow(highest_band / lowest_band, part);
}

}  // namespace

std::vector<double> PowerSpectrum(const Sound& sound, std::ptrdiff_t centre, std::size_t size) {
    std::vector<Complex> values(size);
    const std::ptrdiff_t start = centre - static_cast<std::ptrdiff_t>(size / 2);
    for (std::size_t i = 0; i < size; ++i) {
        const std::ptrdiff_t at = start + static_cast<std::ptrdiff_t>(i);
        if (at < 0 || at >= std::ssize(sound.samples)) continue;
        const double phase =
            2.0 * std::numbers::pi * (static_cast<double>(i) + 0.5) / static_cast<double>(size);
        values[i] = (0.5 - 0.5 * std::cos(phase)) * sound.samples[static_cast<std::size_t>(at)];
    }
    Transform(values);
    std::vector<double> powers(size / 2 + 1);
    // Scaled so that a sine at full scale has a power of 1.
    const double scale = 16.0 / (static_cast<double>(size) * static_cast<double>(size));
    for (std::size_t i = 0; i < powers.size(); ++i) powers[i] = std::norm(values[i]) * scale;
    return powers;
}

Bands ColourOf(const std::vector<double>& spectrum, int rate) {
    const double width = 0.5 * rate / static_cast<double>(spectrum.size() - 1);
    Bands bands{};
    for (std::size_t band = 0; band < band_count; ++band) {
        // At least the one line nearest to the band, where lines are further apart than bands.
        const double from = BandEdge(band) / width, to = BandEdge(band + 1) / width;
        const auto first = static_cast<std::size_t>(std::lround(from));
        const auto last = std::max(first + 1, static_cast<std::size_t>(std::lround(to)));
        for (std::size_t i = first; i < std::min(last, spectrum.size()); ++i)
            bands[band] += spectrum[i];
    }
    for (double& level : bands) level = 10.0 * std::log10(level + 1e-30);
    const double floor = *std::max_element(bands.begin(), bands.end()) - deepest;
    double mean = 0.0;
    for (double& level : bands) {
        level = std::max(level, floor);
        mean += level / static_cast<double>(band_count);
    }
    for (double& level : bands) level -= mean;
    return bands;
}

double Distance(const Bands& a, const Bands& b) {
    double sum = 0.0;
    for (std::size_t i = 0; i < band_count; ++i) sum += (a[i] - b[i]) * (a[i] - b[i]);
    return std::sqrt(sum / static_cast<double>(band_count));
}

}  // namespace tamlo::soundsmith
