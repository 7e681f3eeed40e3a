// Sounds that are written to the trace instead of heard, and last as long as their wave files.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "rehearsal/stage.h"
#include "rehearsal/wave_length.h"
#include "services/sound.h"

namespace tamlo {

/// A buffer made from a file. Its position is counted in hundredths of a sample frame, so that it
/// is exact at every tick.
class RehearsedBuffer final : public SoundBuffer {
  public:
    RehearsedBuffer(Stage& stage, std::string_view name, WaveLength length);
    ~RehearsedBuffer() override;
    RehearsedBuffer(const RehearsedBuffer&) = delete;
    RehearsedBuffer& operator=(const RehearsedBuffer&) = delete;

    void SetCurrentPosition(unsigned frame) override;
    void SetVolume(int volume) override;
    void SetPan(int pan) override;
    int GetFrequency() const override;
    void SetFrequency(int frequency) override;
    void Play(PlayMode mode) override;
    void Stop() override;
    int GetStatus() const override;
    double SecondsLeft() const override;

    /// When the last sound played once ends or has ended, in whole ticks; 0 if there is none.
    Ticks OnceEndsAt() const;

  private:
    enum class State { stopped, once, looping };

    State StateAt(Ticks now) const;
    std::int64_t PositionAt(Ticks now) const;
    void Settle();
    void Set(std::string_view setting, int value);

    Stage& stage_;
    std::string name_;
    std::int64_t length_;  ///< hundredths of a frame
    int frequency_;
    int volume_ = 0;
    int pan_ = 0;
    State state_ = State::stopped;  ///< as it was at `since_`
    std::int64_t position_ = 0;     ///< hundredths of a frame, at `since_`
    Ticks since_ = 0;
    Ticks once_ended_ = 0;
};

class RehearsedSound final : public SoundSystem {
  public:
    /// `folder` is the program's own folder.
    RehearsedSound(Stage& stage, std::string folder) : stage_(stage), folder_(std::move(folder)) {}
    std::unique_ptr<SoundDevice> CreateDevice() override;

    /// Nothing if there is no such wave file. Reads each file once.
    std::optional<WaveLength> LengthOf(const std::string& name);

  private:
    Stage& stage_;
    std::string folder_;
    std::map<std::string, std::optional<WaveLength>> lengths_;
};

}  // namespace tamlo
