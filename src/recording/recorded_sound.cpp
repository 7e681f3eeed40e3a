#include "recording/recorded_sound.h"

#include <map>

namespace tamlo {
namespace {

using Buffers = std::vector<std::unique_ptr<SoundBuffer>>;

class RecordedBuffer final : public SoundBuffer {
  public:
    RecordedBuffer(std::unique_ptr<SoundBuffer> rehearsed, Buffers mixed, Desk& desk)
        : rehearsed_(std::move(rehearsed)), mixed_(std::move(mixed)), desk_(desk) {}
    RecordedBuffer(const RecordedBuffer&) = delete;
    RecordedBuffer& operator=(const RecordedBuffer&) = delete;
    ~RecordedBuffer() override { desk_.CatchUp(); }

    void SetCurrentPosition(unsigned frame) override {
        Tell([&](SoundBuffer& buffer) { buffer.SetCurrentPosition(frame); });
    }
    void SetVolume(int volume) override {
        Tell([&](SoundBuffer& buffer) { buffer.SetVolume(volume); });
    }
    void SetPan(int pan) override {
        Tell([&](SoundBuffer& buffer) { buffer.SetPan(pan); });
    }
    int GetFrequency() const override { return rehearsed_->GetFrequency(); }
    void SetFrequency(int frequency) override {
        Tell([&](SoundBuffer& buffer) { buffer.SetFrequency(frequency); });
    }
    void Play(PlayMode mode) override {
        Tell([&](SoundBuffer& buffer) { buffer.Play(mode); });
    }
    void Stop() override {
        Tell([](SoundBuffer& buffer) { buffer.Stop(); });
    }
    int GetStatus() const override { return rehearsed_->GetStatus(); }
    double SecondsLeft() const override { return rehearsed_->SecondsLeft(); }

  private:
    template <typename Act>
    void Tell(Act act) {
        desk_.CatchUp();
        act(*rehearsed_);
        for (const auto& buffer : mixed_) act(*buffer);
    }

    std::unique_ptr<SoundBuffer> rehearsed_;
    Buffers mixed_;
    Desk& desk_;
};

class RecordedDevice final : public SoundDevice {
  public:
    RecordedDevice(std::unique_ptr<SoundDevice> rehearsed, Desk& desk,
                   const std::function<Part(std::string_view)>& part)
        : rehearsed_(std::move(rehearsed)), desk_(desk), part_(part) {}

    void SetCooperativeLevel(int level) override { rehearsed_->SetCooperativeLevel(level); }
    std::unique_ptr<SoundBuffer> CreateBufferFromFile(
        std::string_view name, const BufferDescription& description) override {
        Buffers mixed;
        for (Take* take : desk_.TakesOf(part_(name))) {
            std::unique_ptr<SoundDevice>& device = devices_[take];
            if (device == nullptr) device = take->Sounds().CreateDevice();
            mixed.push_back(device->CreateBufferFromFile(name, description));
        }
        return std::make_unique<RecordedBuffer>(rehearsed_->CreateBufferFromFile(name, description),
                                                std::move(mixed), desk_);
    }

  private:
    std::unique_ptr<SoundDevice> rehearsed_;
    Desk& desk_;
    const std::function<Part(std::string_view)>& part_;
    std::map<Take*, std::unique_ptr<SoundDevice>> devices_;
};

}  // namespace

std::unique_ptr<SoundDevice> RecordedSound::CreateDevice() {
    return std::make_unique<RecordedDevice>(rehearsed_.CreateDevice(), desk_, part_);
}

}  // namespace tamlo
