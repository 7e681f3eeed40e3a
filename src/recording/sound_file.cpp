// Samples are rounded here: what the library does with those beyond full scale depends on the
// format.
#include "recording/sound_file.h"

#include <sndfile.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <utility>

#include "audio/mixing/source.h"

namespace tamlo {
namespace {

constexpr float full_scale = 32767.0F;

int FormatOf(const std::string& path) {
    if (path.ends_with(".flac")) return SF_FORMAT_FLAC | SF_FORMAT_PCM_16;
    if (path.ends_with(".wav")) return SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    throw std::runtime_error("\"" + path + "\" ends neither in .flac nor in .wav");
}

std::int16_t Sample(float value) {
    return static_cast<std::int16_t>(std::lround(std::clamp(value, -1.0F, 1.0F) * full_scale));
}

}  // namespace

struct SoundFile::File {
    File(std::string name, SNDFILE* opened) : path(std::move(name)), file(opened) {}
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() {
        if (file != nullptr) sf_close(file);
    }

    std::string path;
    SNDFILE* file;
};

SoundFile::SoundFile(const std::string& path) {
    SF_INFO info{};
    info.samplerate = stream_rate;
    info.channels = 2;
    info.format = FormatOf(path);
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    if (file == nullptr)
        throw std::runtime_error("\"" + path + "\" can't be written: " + sf_strerror(nullptr));
    file_ = std::make_unique<File>(path, file);
}

SoundFile::~SoundFile() = default;
SoundFile::SoundFile(SoundFile&&) noexcept = default;

void SoundFile::Write(std::span<const float> stereo) {
    std::array<std::int16_t, 2048> samples;
    while (!stereo.empty()) {
        const std::size_t count = std::min(stereo.size(), samples.size());
        std::transform(stereo.begin(), stereo.begin() + static_cast<std::ptrdiff_t>(count),
                       samples.begin(), Sample);
        const auto length = static_cast<sf_count_t>(count);
        if (sf_write_short(file_->file, samples.data(), length) != length)
            throw std::runtime_error("\"" + file_->path + "\" can't be written in full");
        stereo = stereo.subspan(count);
    }
}

void SoundFile::Close() {
    const int failed = sf_close(std::exchange(file_->file, nullptr));
    if (failed != 0) throw std::runtime_error("\"" + file_->path + "\" can't be completed");
}

}  // namespace tamlo
