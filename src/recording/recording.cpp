#include "recording/recording.h"

#include <fstream>
#include <stdexcept>
#include <utility>

#include "reading/captioned_sound.h"
#include "recording/recorded_sound.h"
#include "recording/recorded_speech.h"
#include "services/clock.h"
#include "services/desktop.h"
#include "services/random.h"

namespace tamlo {
namespace {

/// Draws given before; afterwards the rehearsal's.
class GivenRandom final : public Random {
  public:
    GivenRandom(Random& rehearsed, std::vector<double> draws)
        : rehearsed_(rehearsed), draws_(std::move(draws)) {}

    void Seed(double number) override { rehearsed_.Seed(number); }
    double Next() override {
        const double draw = rehearsed_.Next();
        return next_ < draws_.size() ? draws_[next_++] : draw;
    }

  private:
    Random& rehearsed_;
    std::vector<double> draws_;
    std::size_t next_ = 0;
};

/// The rehearsal's desktop, whose beeps are heard.
class RecordedDesktop final : public Desktop {
  public:
    RecordedDesktop(Desktop& rehearsed, Desk& desk, Captions& captions)
        : rehearsed_(rehearsed), desk_(desk), captions_(captions) {}

    std::string SpecialFolder(int number) override { return rehearsed_.SpecialFolder(number); }
    void MessageBox(const std::string& text) override { rehearsed_.MessageBox(text); }
    void Beep() override {
        rehearsed_.Beep();
        desk_.Beep();
        captions_.Beeped();
    }
    bool StartEditor(const std::string& path) override { return rehearsed_.StartEditor(path); }
    bool StartLauncher(const std::string& path) override { return rehearsed_.StartLauncher(path); }
    void StartGame() override { rehearsed_.StartGame(); }

  private:
    Desktop& rehearsed_;
    Desk& desk_;
    Captions& captions_;
};

/// The path without its ending.
std::string Stem(const std::string& path) {
    return path.substr(0, path.rfind('.'));
}

std::vector<std::unique_ptr<Take>> MakeTakes(const RecordingFiles& files,
                                             const std::string& sounds) {
    std::vector<std::unique_ptr<Take>> takes;
    const auto add = [&](Part part, const std::string& path) {
        takes.push_back(std::make_unique<Take>(part, path, WavesOfFolder(sounds)));
    };
    add(Part::all, files.path);
    if (!files.stems) return takes;
    const std::string stem = Stem(files.path), ending = files.path.substr(stem.size());
    add(Part::voice, stem + "-voice" + ending);
    add(Part::effects, stem + "-effects" + ending);
    add(Part::backgrounds, stem + "-backgrounds" + ending);
    return takes;
}

void WriteText(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file.flush()) throw std::runtime_error("\"" + path + "\" can't be written");
}

}  // namespace

struct Recording::Studio {
    using Meaning = std::function<SoundMeaning(std::string_view)>;

    Studio(Rehearsal& the_rehearsal, const RecordingFiles& files, const std::string& folder,
           std::unique_ptr<Synthesizer> synthesizer, RecordingChoices choices,
           const Meaning& meaning, std::vector<double> draws)
        : rehearsal(the_rehearsal),
          services(rehearsal.Services()),
          lines_path(Stem(files.path) + ".vtt"),
          desk(MakeTakes(files, folder), std::move(synthesizer), choices, [this] { return Now(); }),
          captions(meaning, services.clock,
                   [this](const std::string& line) { desk.Caption(line); }),
          speech(services.speech, desk),
          sound(services.sound, desk,
                [meaning](std::string_view name) {
                    return meaning(name).bed ? Part::backgrounds : Part::effects;
                }),
          captioned_sound(sound, captions),
          desktop(services.desktop, desk, captions),
          random(services.random, std::move(draws)) {
        rehearsal.SpeakFor([this](std::string_view) { return desk.LastLength(); });
    }

    Ticks Now() const { return services.clock.Steady().count() * ticks_per_second / 1'000'000; }

    Rehearsal& rehearsal;
    Platform services;
    std::string lines_path;
    Desk desk;
    Captions captions;
    RecordedSpeech speech;
    RecordedSound sound;
    CaptionedSound captioned_sound;
    RecordedDesktop desktop;
    GivenRandom random;
};

Recording::Recording(Rehearsal& rehearsal, const RecordingFiles& files, const std::string& sounds,
                     std::unique_ptr<Synthesizer> synthesizer, RecordingChoices choices,
                     const std::function<SoundMeaning(std::string_view name)>& meaning,
                     std::vector<double> draws)
    : studio_(std::make_unique<Studio>(rehearsal, files, sounds, std::move(synthesizer), choices,
                                       meaning, std::move(draws))) {}

Recording::~Recording() = default;

Platform Recording::Services() {
    Studio& all = *studio_;
    return {all.speech,         all.captioned_sound, all.services.events, all.services.files,
            all.services.clock, all.desktop,         all.random};
}

RehearsalResult Recording::Run(const std::function<void()>& game, FieldAccess fields) {
    RehearsalResult result = studio_->rehearsal.Run(game, std::move(fields));
    studio_->desk.Close();
    WriteText(studio_->lines_path, studio_->desk.Cues().Text());
    return result;
}

}  // namespace tamlo
