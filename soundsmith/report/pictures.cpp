// Drawing, and writing by libpng.
#include "report/pictures.h"

#include <png.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include "report/spectrum.h"

namespace tamlo::soundsmith {

namespace {

struct Colour {
    std::uint8_t red, green, blue;
};

constexpr Colour paper{255, 255, 255};
constexpr Colour ink{20, 60, 120};
constexpr Colour out_of_reach{128, 128, 128};
constexpr double lowest_pitch = 50.0;
constexpr double highest_pitch = 11000.0;
constexpr double range = 72.0;  // decibels from black to the brightest
constexpr std::size_t transform_size = 2048;

struct Picture {
    int width, height;
    std::vector<Colour> pixels;

    Picture(int w, int h, Colour fill)
        : width(w),
          height(h),
          pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h), fill) {}

    Colour& At(int x, int y) {
        const int index = y * width + x;
        return pixels[static_cast<std::size_t>(index)];
    }
};

std::string AsPng(const Picture& picture) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = PNG_FORMAT_RGB;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::string bytes(size, '\0');
    if (!png_image_write_to_memory(&image, bytes.data(), &size, 0, picture.pixels.data(), 0,
                                   nullptr))
        throw std::runtime_error(std::string("cannot write a picture: ") + image.message);
    bytes.resize(size);
    return bytes;
}

// Where column `x` begins, in samples.
std::size_t ColumnStart(const Sound& sound, int x) {
    return sound.samples.size() * static_cast<std::size_t>(x) / picture_width;
}

// From black through violet and orange to pale yellow; `level` from 0 to 1.
Colour Glow(double level) {
    const auto part = [level](double from, double to) {
        return static_cast<std::uint8_t>(255.0 *
                                         std::clamp((level - from) / (to - from), 0.0, 1.0));
    };
    const double violet = std::sin(std::clamp(level / 0.6, 0.0, 1.0) * 3.14159);
    const double pale = std::clamp((level - 0.8) / 0.2, 0.0, 1.0);
    return {part(0.1, 0.7), part(0.45, 1.0),
            static_cast<std::uint8_t>(std::clamp(150.0 * violet + 180.0 * pale, 0.0, 255.0))};
}

// The height of row `y` in hertz.
double PitchOfRow(double y) {
    const double part = 1.0 - y / spectrogram_height;
    return lowest_pitch * std::pow(highest_pitch / lowest_pitch, part);
}

// The strongest line of the spectrum within the row.
double PowerOfRow(const std::vector<double>& spectrum, int rate, int y) {
    const double width = static_cast<double>(rate) / transform_size;
    const auto from = static_cast<std::size_t>(std::lround(PitchOfRow(y + 1) / width));
    const auto to = static_cast<std::size_t>(std::lround(PitchOfRow(y) / width));
    double power = 0.0;
    for (std::size_t i = from; i <= std::min(to, spectrum.size() - 1); ++i)
        power = std::max(power, spectrum[i]);
    return power;
}

}  // namespace

std::string WaveformPicture(const Sound& sound) {
    Picture picture(picture_width, waveform_height, paper);
    const double scale = 1.0 / std::max(Peak(sound), 1e-9);
    const auto row = [scale](double sample) {
        const double middle = 0.5 * (waveform_height - 1);
        return static_cast<int>(std::lround(middle * (1.0 - sample * scale)));
    };
    for (int x = 0; x < picture_width && !sound.samples.empty(); ++x) {
        const std::size_t from = ColumnStart(sound, x);
        const std::size_t to = std::max(from + 1, ColumnStart(sound, x + 1));
        const auto [low, high] = std::minmax_element(
            sound.samples.begin() + static_cast<std::ptrdiff_t>(from),
            sound.samples.begin() +
                static_cast<std::ptrdiff_t>(std::min(to, sound.samples.size())));
        for (int y = row(*high); y <= row(*low); ++y) picture.At(x, y) = ink;
    }
    return AsPng(picture);
}

std::string SpectrogramPicture(const Sound& sound) {
    Picture picture(picture_width, spectrogram_height, out_of_reach);
    std::vector<std::vector<double>> columns;
    double strongest = 1e-20;
    for (int x = 0; x < picture_width; ++x) {
        const auto centre = (ColumnStart(sound, x) + ColumnStart(sound, x + 1)) / 2;
        columns.push_back(
            PowerSpectrum(sound, static_cast<std::ptrdiff_t>(centre), transform_size));
        for (const double power : columns.back()) strongest = std::max(strongest, power);
    }
    for (int y = 0; y < spectrogram_height; ++y) {
        if (PitchOfRow(y + 1) > 0.5 * sound.rate) continue;
        for (int x = 0; x < picture_width; ++x) {
            const double power = PowerOfRow(columns[static_cast<std::size_t>(x)], sound.rate, y);
            picture.At(x, y) = Glow(1.0 + 10.0 * std::log10(power / strongest + 1e-20) / range);
        }
    }
    return AsPng(picture);
}

}  // namespace tamlo::soundsmith
