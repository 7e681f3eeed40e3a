#include "rehearsal/rehearsal.h"

#include <chrono>
#include <cstdint>
#include <cstring>
#include <utility>

#include "rehearsal/rehearsed_files.h"
#include "rehearsal/rehearsed_sound.h"
#include "rehearsal/rehearsed_speech.h"
#include "rehearsal/stage.h"
#include "services/clock.h"
#include "services/desktop.h"
#include "services/random.h"
#include "text/printable.h"

namespace tamlo {

namespace {

class RehearsedEvents final : public Events {
  public:
    explicit RehearsedEvents(Stage& stage) : stage_(stage) {}
    void ShowWindow(const char*) override { stage_.Asked(); }
    void Turn(KeyListener& listener, double rest) override { stage_.Turn(listener, rest); }

  private:
    Stage& stage_;
};

class RehearsedClock final : public Clock {
  public:
    RehearsedClock(const Stage& stage, Date date, TimeOfDay time)
        : stage_(stage),
          first_day_(std::chrono::year{date.year} /
                     std::chrono::month{static_cast<unsigned>(date.month)} /
                     std::chrono::day{static_cast<unsigned>(date.day)}),
          first_tick_(Ticks{(time.hour * 60 + time.minute) * 60 + time.second} * ticks_per_second) {
    }

    std::chrono::microseconds Steady() const override {
        return std::chrono::microseconds{stage_.Now() * (1'000'000 / ticks_per_second)};
    }

    double SecondsSinceMidnight() const override {
        return static_cast<double>(TicksSinceMidnight()) / ticks_per_second;
    }

    TimeOfDay Now() const override {
        const auto seconds = static_cast<int>(TicksSinceMidnight() / ticks_per_second);
        return {seconds / 3600, seconds / 60 % 60, seconds % 60};
    }

    Date Today() const override {
        const auto days = static_cast<int>((first_tick_ + stage_.Now()) / ticks_per_day);
        const std::chrono::year_month_day today{first_day_ + std::chrono::days{days}};
        return {static_cast<int>(today.year()),
                static_cast<int>(static_cast<unsigned>(today.month())),
                static_cast<int>(static_cast<unsigned>(today.day()))};
    }

  private:
    static constexpr Ticks ticks_per_day = 86'400 * ticks_per_second;

    Ticks TicksSinceMidnight() const { return (first_tick_ + stage_.Now()) % ticks_per_day; }

    const Stage& stage_;
    std::chrono::sys_days first_day_;
    Ticks first_tick_;  ///< of the start, since midnight
};

/// Random numbers: the script's draws first, then a generator with the same numbers on every
/// machine.
class RehearsedRandom final : public Random {
  public:
    explicit RehearsedRandom(Stage& stage) : stage_(stage) {}

    void Seed(double number) override {
        stage_.Asked();
        std::uint64_t bits = 0;
        std::memcpy(&bits, &number, sizeof bits);
        state_ = Step() ^ bits;
    }

    double Next() override {
        stage_.Asked();
        if (const auto draw = stage_.TakeDraw()) return *draw;
        return static_cast<double>(Step() >> 11) * 0x1p-53;
    }

  private:
    /// A counter with a large odd increment; its bits are mixed so that neighbours look unrelated.
    std::uint64_t Step() {
        state_ += 0x9E3779B97F4A7C15;
        std::uint64_t bits = state_;
        bits = (bits ^ bits >> 30) * 0xBF58476D1CE4E5B9;
        bits = (bits ^ bits >> 27) * 0x94D049BB133111EB;
        return bits ^ bits >> 31;
    }

    Stage& stage_;
    std::uint64_t state_ = 0;
};

class RehearsedDesktop final : public Desktop {
  public:
    RehearsedDesktop(Stage& stage, std::string documents)
        : stage_(stage), documents_(std::move(documents)) {}

    std::string SpecialFolder(int number) override {
        stage_.Asked();
        return number == documents_folder ? documents_ : "";
    }

    void MessageBox(const std::string& text) override { Happened("message", Quoted(text)); }
    void Beep() override { Happened("beep", ""); }

    bool StartEditor(const std::string& path) override {
        std::string shown = WithSlashes(path);
        const std::string inside = WithSlashes(documents_) + '/';
        if (!documents_.empty() && shown.starts_with(inside)) shown.erase(0, inside.size());
        Happened("start editor", Quoted(shown));
        return true;
    }

    bool StartLauncher(const std::string& path) override {
        const std::string shown = WithSlashes(path);
        Happened("start launcher", Quoted(shown.substr(shown.rfind('/') + 1)));
        return true;
    }

    void StartGame() override { Happened("start game", Quoted("tamlo")); }

  private:
    static std::string WithSlashes(std::string path) {
        for (char& c : path) {
            if (c == '\\') c = '/';
        }
        return path;
    }

    void Happened(std::string_view event, std::string_view detail) {
        stage_.Asked();
        stage_.Write(event, detail);
    }

    Stage& stage_;
    std::string documents_;
};

}  // namespace

struct Rehearsal::Impl {
    Impl(Script script, RehearsalFolders folders, Files& disk, TraceSink sink)
        : stage(std::move(script.steps), fields, std::move(sink)),
          speech(stage, script.voices),
          sound(stage, std::move(folders.sounds)),
          events(stage),
          files(stage, disk, std::move(folders.current_directory)),
          clock(stage, script.date, script.time),
          desktop(stage, std::move(folders.documents)),
          random(stage) {}

    FieldAccess fields;
    Stage stage;
    RehearsedSpeech speech;
    RehearsedSound sound;
    RehearsedEvents events;
    RehearsedFiles files;
    RehearsedClock clock;
    RehearsedDesktop desktop;
    RehearsedRandom random;
};

Rehearsal::Rehearsal(Script script, RehearsalFolders folders, Files& disk, TraceSink sink)
    : impl_(std::make_unique<Impl>(std::move(script), std::move(folders), disk, std::move(sink))) {}

Rehearsal::~Rehearsal() = default;

Platform Rehearsal::Services() {
    Impl& all = *impl_;
    return {all.speech, all.sound, all.events, all.files, all.clock, all.desktop, all.random};
}

void Rehearsal::ContinueWith(std::function<std::vector<Step>()> more) {
    impl_->stage.ContinueWith(std::move(more));
}

void Rehearsal::SpeakFor(std::function<Ticks(std::string_view text)> length) {
    impl_->speech.SpeakFor(std::move(length));
}

RehearsalResult Rehearsal::Run(const std::function<void()>& game, FieldAccess fields) {
    impl_->fields = std::move(fields);
    Stage& stage = impl_->stage;
    RehearsalResult result;
    try {
        stage.Begin();
        game();
    } catch (const EndOfProcess& end) {
        if (stage.Ended()) result = {end.exit_status, end.reason};
    }
    stage.End("end");
    return result;
}

}  // namespace tamlo
