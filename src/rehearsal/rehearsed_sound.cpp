#include "rehearsal/rehearsed_sound.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>

#include "services/events.h"

namespace tamlo {

namespace {

int InRange(int frequency) {
    return std::clamp(frequency, 100, 200'000);
}

/// A buffer whose file can't be opened: accepts every call, ends before it starts, and writes no
/// line to the trace.
class MissingBuffer final : public SoundBuffer {
  public:
    explicit MissingBuffer(Stage& stage) : stage_(stage) {}
    ~MissingBuffer() override { stage_.Asked(); }

    void SetCurrentPosition(unsigned) override { stage_.Asked(); }
    void SetVolume(int) override { stage_.Asked(); }
    void SetPan(int) override { stage_.Asked(); }
    int GetFrequency() const override {
        stage_.Asked();
        return frequency_;
    }
    void SetFrequency(int frequency) override {
        stage_.Asked();
        frequency_ = InRange(frequency);
    }
    void Play(PlayMode) override { stage_.Asked(); }
    void Stop() override { stage_.Asked(); }
    int GetStatus() const override { return 0; }
    double SecondsLeft() const override { return 0; }

  private:
    Stage& stage_;
    int frequency_ = 22050;
};

class RehearsedDevice final : public SoundDevice {
  public:
    RehearsedDevice(Stage& stage, RehearsedSound& sound) : stage_(stage), sound_(sound) {}

    void SetCooperativeLevel(int) override { stage_.Asked(); }

    std::unique_ptr<SoundBuffer> CreateBufferFromFile(std::string_view name,
                                                      const BufferDescription&) override {
        stage_.Asked();
        const std::string file(name);
        const auto length = sound_.LengthOf(file);
        stage_.Write("load", length ? file : file + " missing");
        if (!length) return std::make_unique<MissingBuffer>(stage_);
        return std::make_unique<RehearsedBuffer>(stage_, name, *length);
    }

  private:
    Stage& stage_;
    RehearsedSound& sound_;
};

}  // namespace

RehearsedBuffer::RehearsedBuffer(Stage& stage, std::string_view name, WaveLength length)
    : stage_(stage), name_(name), length_(length.frames * 100), frequency_(length.rate) {
    stage_.Add(*this);
}

RehearsedBuffer::~RehearsedBuffer() {
    // What is released at the end of the process is not an event of the game.
    if (std::uncaught_exceptions() == 0) Stop();
    stage_.Remove(*this);
}

RehearsedBuffer::State RehearsedBuffer::StateAt(Ticks now) const {
    if (state_ == State::looping) return length_ > 0 ? State::looping : State::stopped;
    return state_ == State::once && OnceEndsAt() > now ? State::once : State::stopped;
}

std::int64_t RehearsedBuffer::PositionAt(Ticks now) const {
    if (state_ == State::stopped) return position_;
    const std::int64_t passed = position_ + (now - since_) * InRange(frequency_);
    if (StateAt(now) == State::looping) return passed % length_;
    return StateAt(now) == State::once ? passed : 0;
}

Ticks RehearsedBuffer::OnceEndsAt() const {
    if (state_ != State::once) return once_ended_;
    const std::int64_t frequency = InRange(frequency_);
    return since_ + (length_ - position_ + frequency - 1) / frequency;
}

/// Makes now the moment from which position and state are counted.
void RehearsedBuffer::Settle() {
    const Ticks now = stage_.Now();
    const State state = StateAt(now);
    const std::int64_t position = PositionAt(now);
    if (state_ == State::once) once_ended_ = std::min(OnceEndsAt(), now);
    state_ = state;
    position_ = position;
    since_ = now;
}

void RehearsedBuffer::Set(std::string_view setting, int value) {
    stage_.Asked();
    stage_.Write(setting, name_ + ' ' + std::to_string(value));
}

void RehearsedBuffer::SetCurrentPosition(unsigned frame) {
    stage_.Asked();
    Settle();
    position_ = std::int64_t{frame} * 100;
    if (position_ >= length_) position_ = 0;
}

void RehearsedBuffer::SetVolume(int volume) {
    Set("setvolume", volume);
    volume_ = volume;
}

void RehearsedBuffer::SetPan(int pan) {
    Set("setpan", pan);
    pan_ = pan;
}

int RehearsedBuffer::GetFrequency() const {
    stage_.Asked();
    return InRange(frequency_);
}

void RehearsedBuffer::SetFrequency(int frequency) {
    Set("setfrequency", frequency);
    Settle();
    frequency_ = frequency;
}

void RehearsedBuffer::Play(PlayMode mode) {
    stage_.Asked();
    Settle();
    const bool looping = mode == PlayMode::looping;
    state_ = looping ? State::looping : State::once;
    stage_.Write("play", name_ + (looping ? " loop" : " once") + " frequency " +
                             std::to_string(frequency_) + " volume " + std::to_string(volume_) +
                             " pan " + std::to_string(pan_));
    stage_.SoundStarted(name_);
}

void RehearsedBuffer::Stop() {
    stage_.Asked();
    Settle();
    if (state_ != State::stopped) stage_.Write("stop", name_);
    state_ = State::stopped;
}

int RehearsedBuffer::GetStatus() const {
    return StateAt(stage_.Now()) == State::stopped ? 0 : status_playing;
}

double RehearsedBuffer::SecondsLeft() const {
    switch (StateAt(stage_.Now())) {
        case State::stopped: return 0;
        case State::looping: return until_event;
        case State::once: break;
    }
    const double left = static_cast<double>(length_ - PositionAt(stage_.Now()));
    return left / InRange(frequency_) / ticks_per_second;
}

std::unique_ptr<SoundDevice> RehearsedSound::CreateDevice() {
    stage_.Asked();
    return std::make_unique<RehearsedDevice>(stage_, *this);
}

std::optional<WaveLength> RehearsedSound::LengthOf(const std::string& name) {
    const auto known = lengths_.find(name);
    if (known != lengths_.end()) return known->second;
    std::optional<WaveLength> length;
    const std::string path = folder_ + '/' + name + ".wav";
    // Anything but a regular file could block the reader.
    std::error_code failed;
    if (std::filesystem::is_regular_file(path, failed)) {
        std::ifstream file(path, std::ios::binary);
        if (file) length = ReadWaveLength(file);
    }
    return lengths_.emplace(name, length).first->second;
}

}  // namespace tamlo
