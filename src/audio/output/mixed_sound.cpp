// Buffers remember what the game asked of them; the mixer is told, and tells when a sound is over.
#include "audio/output/mixed_sound.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <numbers>
#include <optional>
#include <system_error>

namespace tamlo {
namespace {

constexpr std::streamoff longest_file = 64 << 20;
constexpr int default_rate = 22050;  // of a buffer without a sound

std::optional<std::string> ReadWhole(const std::string& path) {
    // Opening a pipe would wait for its other end.
    if (std::error_code error; !std::filesystem::is_regular_file(path, error)) return std::nullopt;
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    const std::streamoff length = file ? static_cast<std::streamoff>(file.tellg()) : -1;
    if (length < 0 || length > longest_file) return std::nullopt;
    std::string bytes(static_cast<std::size_t>(length), '\0');
    file.seekg(0);
    file.read(bytes.data(), static_cast<std::streamsize>(length));
    if (file.gcount() != length) return std::nullopt;
    return bytes;
}

WaveData AlertTone() {
    constexpr int hertz = 880;
    constexpr int length = stream_rate * 5 / 100;  // two of them come 0.1 s apart
    constexpr int ramp = stream_rate / 200;
    WaveData wave{stream_rate, 1, {}};
    for (int i = 0; i < length; ++i) {
        const int edge = std::min({i, length - i, ramp});
        const double level = 0.25 * edge / ramp;
        const double angle = 2 * std::numbers::pi * hertz * i / stream_rate;
        wave.samples.push_back(
            static_cast<std::int16_t>(std::lrint(32767 * level * std::sin(angle))));
    }
    return wave;
}

// A buffer without a sound: every call works, and it is always over.
class SilentBuffer final : public SoundBuffer {
  public:
    void SetCurrentPosition(unsigned /*frame*/) override {}
    void SetVolume(int /*volume*/) override {}
    void SetPan(int /*pan*/) override {}
    int GetFrequency() const override { return frequency_; }
    void SetFrequency(int frequency) override { frequency_ = std::clamp(frequency, 100, 200000); }
    void Play(PlayMode /*mode*/) override {}
    void Stop() override {}
    int GetStatus() const override { return 0; }
    double SecondsLeft() const override { return 0; }

  private:
    int frequency_ = default_rate;
};

class MixedBuffer final : public SoundBuffer {
  public:
    MixedBuffer(Mixer& mixer, const std::shared_ptr<const WaveData>& wave)
        : mixer_(mixer), frames_(wave->Frames()), frequency_(wave->rate), track_(mixer.Add(wave)) {}

    void SetCurrentPosition(unsigned frame) override {
        mixer_.Seek(*track_, frame < frames_ ? frame : 0);
    }
    void SetVolume(int volume) override {
        volume_ = volume;
        mixer_.SetGains(*track_, GainsFor(volume_, pan_));
    }
    void SetPan(int pan) override {
        pan_ = pan;
        mixer_.SetGains(*track_, GainsFor(volume_, pan_));
    }
    int GetFrequency() const override { return frequency_; }
    void SetFrequency(int frequency) override {
        frequency_ = std::clamp(frequency, 100, 200000);
        mixer_.SetFrequency(*track_, frequency_);
    }
    void Play(PlayMode mode) override {
        mode_ = mode;
        playing_ = true;
        mixer_.Play(*track_, mode, ++plays_);
    }
    void Stop() override {
        playing_ = false;
        mixer_.Stop(*track_);
    }
    int GetStatus() const override {
        return playing_ && track_->ended.load(std::memory_order_acquire) != plays_ ? status_playing
                                                                                   : 0;
    }
    double SecondsLeft() const override {
        if (GetStatus() == 0) return 0;
        if (mode_ == PlayMode::looping) return std::numeric_limits<double>::infinity();
        const auto left = frames_ - track_->reached.load(std::memory_order_relaxed);
        return static_cast<double>(left) / frequency_;
    }

  private:
    Mixer& mixer_;
    std::int64_t frames_;
    int frequency_;
    int volume_ = 0;
    int pan_ = 0;
    PlayMode mode_ = PlayMode::once;
    bool playing_ = false;  ///< as far as the game asked; see `Track::ended`
    unsigned plays_ = 0;
    TrackHandle track_;
};

class MixedDevice final : public SoundDevice {
  public:
    MixedDevice(Mixer& mixer, std::shared_ptr<WaveLibrary> library)
        : mixer_(mixer), library_(std::move(library)) {}

    void SetCooperativeLevel(int /*level*/) override {}
    std::unique_ptr<SoundBuffer> CreateBufferFromFile(
        std::string_view name, const BufferDescription& /*description*/) override {
        const std::shared_ptr<const WaveData> wave = library_->Find(name);
        if (wave == nullptr) return std::make_unique<SilentBuffer>();
        return std::make_unique<MixedBuffer>(mixer_, wave);
    }

  private:
    Mixer& mixer_;
    std::shared_ptr<WaveLibrary> library_;
};

}  // namespace

WaveReader WavesOfFolder(std::string folder) {
    return [folder = std::move(folder)](const std::string& name) {
        return ReadWhole(folder + "/" + name + ".wav");
    };
}

std::shared_ptr<const WaveData> WaveLibrary::Find(std::string_view name) {
    if (const auto known = waves_.find(name); known != waves_.end()) return known->second;
    const std::optional<std::string> bytes = read_(std::string(name));
    std::optional<WaveData> wave = bytes ? ReadWave(*bytes) : std::nullopt;
    if (!wave || wave->samples.empty()) return nullptr;
    auto shared = std::make_shared<const WaveData>(std::move(*wave));
    waves_.emplace(name, shared);
    return shared;
}

MixedSoundSystem::MixedSoundSystem(Mixer& mixer, WaveReader read)
    : mixer_(mixer), library_(std::make_shared<WaveLibrary>(std::move(read))) {}

MixedSoundSystem::~MixedSoundSystem() = default;

std::unique_ptr<SoundDevice> MixedSoundSystem::CreateDevice() {
    return std::make_unique<MixedDevice>(mixer_, library_);
}

void MixedSoundSystem::Beep() {
    if (beep_ == nullptr) {
        beep_ =
            std::make_unique<MixedBuffer>(mixer_, std::make_shared<const WaveData>(AlertTone()));
    }
    beep_->SetCurrentPosition(0);
    beep_->Play(PlayMode::once);
}

}  // namespace tamlo
