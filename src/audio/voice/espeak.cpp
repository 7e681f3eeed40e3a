// libespeak-ng as a Synthesizer: its voices, its rates, and its ways with single characters.
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <vector>

#include "audio/voice/espeak_library.h"
#include "audio/voice/synthesizer.h"
#include "audio/voice/voices.h"
#include "audio/voice/wording.h"

namespace tamlo {
namespace {

/// Where the callback finds its sink, which the library has no better way to pass on. It calls back
/// on the thread that speaks.
thread_local const Synthesizer::Sink* current_sink = nullptr;

int TakeChunk(short* samples, int count, espeak_EVENT*) {
    constexpr int go_on = 0;
    constexpr int abort = 1;
    if (samples == nullptr || count <= 0 || current_sink == nullptr) return go_on;
    return (*current_sink)({samples, static_cast<std::size_t>(count)}) ? go_on : abort;
}

std::string FullName(const VoiceEntry& voice) {
    std::string name = voice.name;
    if (voice.variant[0] != '\0') name.append("+").append(voice.variant);
    return name;
}

int WordsPerMinute(int rate) {
    return static_cast<int>(std::lround(espeakRATE_NORMAL * std::pow(3.0, rate / 10.0)));
}

class Espeak : public Synthesizer {
  public:
    int Open() override;
    int Rate(int) const override { return rate_; }
    void Synthesize(const Utterance& utterance, const Sink& sink) override;

  private:
    bool Choose(const std::string& name);

    HeldEspeak library_;
    int rate_ = 22050;
    std::vector<std::string> voices_;
    std::string chosen_;
};

int Espeak::Open() {
    library_ = TakeEspeakLibrary();
    if (!library_ || library_->rate <= 0) return 0;
    rate_ = library_->rate;
    library_->SetSynthCallback(TakeChunk);

    const char* data = nullptr;
    library_->Info(&data);
    const std::filesystem::path variants = std::filesystem::path(data ? data : "") / "voices/!v";
    std::string first;  // installed, and in the place of those that are not
    for (const VoiceEntry& voice : voice_table) {
        // The library accepts variants that do not exist.
        std::error_code ignored;
        const bool there = (voice.variant[0] == '\0' ||
                            std::filesystem::exists(variants / voice.variant, ignored)) &&
                           Choose(FullName(voice));
        if (there && first.empty()) first = FullName(voice);
        voices_.push_back(there ? FullName(voice) : "");
    }
    if (first.empty()) return 0;
    std::replace(voices_.begin(), voices_.end(), std::string(), first);
    // The first text loads tables of the voice: better now than when the player waits for it.
    Synthesize({"ready", 0, 0}, [](auto) { return true; });
    return static_cast<int>(voices_.size());
}

bool Espeak::Choose(const std::string& name) {
    if (name == chosen_) return true;
    chosen_.clear();
    if (library_->SetVoiceByName(name.c_str()) != EE_OK) return false;
    chosen_ = name;
    // A voice change leaves these to the voice, and its pauses are other ones until they are set.
    library_->SetParameter(espeakVOLUME, 100, 0);
    library_->SetParameter(espeakPITCH, 50, 0);
    library_->SetParameter(espeakRANGE, 50, 0);
    return true;
}

void Espeak::Synthesize(const Utterance& utterance, const Sink& sink) {
    if (!Choose(voices_.at(static_cast<std::size_t>(utterance.voice)))) return;
    library_->SetParameter(espeakRATE, WordsPerMinute(utterance.rate), 0);
    current_sink = &sink;
    // As a text, half of the punctuation marks would be silent.
    if (char32_t character = SingleCharacter(utterance.text); character != 0) {
        library_->Char(static_cast<wchar_t>(character));
    } else {
        library_->Synth(utterance.text.c_str(), utterance.text.size() + 1, 0, POS_CHARACTER, 0,
                        espeakCHARS_UTF8, nullptr, nullptr);
    }
    current_sink = nullptr;
}

}  // namespace

std::unique_ptr<Synthesizer> MakeEspeak() {
    return std::make_unique<Espeak>();
}

}  // namespace tamlo
