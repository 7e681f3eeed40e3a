// Noticing what starts, and on which side.
#include "reading/captioned_sound.h"

#include <utility>

namespace tamlo {
namespace {

bool Crosses(SoundPath path) {
    return path == SoundPath::crosses || path == SoundPath::halts || path == SoundPath::in_line;
}

class CaptionedBuffer final : public SoundBuffer {
  public:
    CaptionedBuffer(std::unique_ptr<SoundBuffer> real, const SoundMeaning& meaning,
                    Captions& captions)
        : real_(std::move(real)), meaning_(meaning), captions_(captions) {}

    void SetCurrentPosition(unsigned frame) override { real_->SetCurrentPosition(frame); }
    void SetVolume(int volume) override { real_->SetVolume(volume); }
    void SetPan(int pan) override {
        real_->SetPan(pan);
        pan_ = pan;
        TellIfPlaced();
    }
    int GetFrequency() const override { return real_->GetFrequency(); }
    void SetFrequency(int frequency) override { real_->SetFrequency(frequency); }
    void Play(PlayMode mode) override {
        real_->Play(mode);
        untold_ = true;
        TellIfPlaced();
    }
    void Stop() override {
        real_->Stop();
        untold_ = false;
    }
    int GetStatus() const override { return real_->GetStatus(); }
    double SecondsLeft() const override { return real_->SecondsLeft(); }

  private:
    /// What crosses is told when its side is known: some sounds are placed only once they play.
    void TellIfPlaced() {
        if (!untold_ || (Crosses(meaning_.path) && pan_ == 0)) return;
        untold_ = false;
        captions_.Started(meaning_, pan_);
    }

    std::unique_ptr<SoundBuffer> real_;
    SoundMeaning meaning_;
    Captions& captions_;
    int pan_ = 0;
    bool untold_ = false;  ///< plays, and no caption has said so
};

class CaptionedDevice final : public SoundDevice {
  public:
    CaptionedDevice(std::unique_ptr<SoundDevice> real, Captions& captions)
        : real_(std::move(real)), captions_(captions) {}

    void SetCooperativeLevel(int level) override { real_->SetCooperativeLevel(level); }
    std::unique_ptr<SoundBuffer> CreateBufferFromFile(
        std::string_view name, const BufferDescription& description) override {
        return std::make_unique<CaptionedBuffer>(real_->CreateBufferFromFile(name, description),
                                                 captions_.MeaningOf(name), captions_);
    }

  private:
    std::unique_ptr<SoundDevice> real_;
    Captions& captions_;
};

}  // namespace

std::unique_ptr<SoundDevice> CaptionedSound::CreateDevice() {
    return std::make_unique<CaptionedDevice>(real_.CreateDevice(), captions_);
}

}  // namespace tamlo
