// A voice that remembers the last text, for tests that answer it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "services/speech.h"

namespace tamlo {

class ListeningSpeech final : public Speech {
  public:
    explicit ListeningSpeech(Speech& speech) : speech_(speech) {}

    std::unique_ptr<SpeechEngine> CreateEngine() override {
        return std::make_unique<Engine>(speech_.CreateEngine(), last_, count_);
    }
    /// The last text spoken or queued.
    const std::string& Last() const { return last_; }
    /// How many texts have been spoken or queued.
    std::int64_t Count() const { return count_; }

  private:
    class Engine final : public SpeechEngine {
      public:
        Engine(std::unique_ptr<SpeechEngine> engine, std::string& last, std::int64_t& count)
            : engine_(std::move(engine)), last_(last), count_(count) {}
        void Speak(std::string_view text, SpeakFlags flags) override {
            if (flags != SpeakFlags::purge) {
                last_ = text;
                ++count_;
            }
            engine_->Speak(text, flags);
        }
        RunningState Status() const override { return engine_->Status(); }
        double SecondsLeft() const override { return engine_->SecondsLeft(); }
        void SetRate(int rate) override { engine_->SetRate(rate); }
        void SetEchoRate(int rate) override { engine_->SetEchoRate(rate); }
        void SetVolume(int volume) override { engine_->SetVolume(volume); }
        int GetVoicesCount() const override { return engine_->GetVoicesCount(); }
        void SetVoice(int index) override { engine_->SetVoice(index); }

      private:
        std::unique_ptr<SpeechEngine> engine_;
        std::string& last_;
        std::int64_t& count_;
    };

    Speech& speech_;
    std::string last_;
    std::int64_t count_ = 0;
};

}  // namespace tamlo
