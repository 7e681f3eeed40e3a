#include "app/doctor/doctor.h"

#include <chrono>
#include <cmath>
#include <optional>

#include "app/doctor/doctor_keys.h"
#include "app/doctor/doctor_report.h"
#include "audio/mixing/source.h"
#include "game/form1.h"
#include "services/clock.h"
#include "services/end_of_process.h"
#include "services/events.h"
#include "services/files.h"
#include "services/key_codes.h"
#include "services/sound.h"
#include "services/speech.h"
#include "sound/effects.h"
#include "sound/wave_check.h"
#include "speech/menus.h"

namespace tamlo {
namespace {

std::string WavePath(const std::string& folder, const Effect& effect) {
    return folder + "/" + std::string(effect.name) + ".wav";
}

using Weight = Finding::Weight;

constexpr const char* bell = "tamlo9";
constexpr int only_left = -10000;
constexpr int only_right = 10000;
constexpr double shortest_measurement = 0.5;  // seconds
constexpr double tolerance = 0.05;            // of the rate of the card

class Doctor {
  public:
    Doctor(Form1& form, const Surroundings& surroundings, WrittenReport& written)
        : form_(form), around_(surroundings), written_(written) {}

    /// Opens the game's services and checks everything that needs no answer.
    void Examine();
    /// Offers the checks that need answers, until the player leaves.
    void Converse();
    void Conclude();
    /// Writes the report of the findings so far.
    void Save();
    int ExitStatus() const;

  private:
    void Tell(const std::string& text);
    bool Escaped() const;
    void Add(const Finding& finding);

    std::string VoiceNumber(int voice) const;
    void LookAtVoices();
    void LookAtVoiceFaults();
    void LookAtFolder();
    void LookAtSounds();
    void LookAtReaders();
    void BeginMeasurement();
    void LookAtCard();

    void RingBell(int pan);
    std::optional<bool> HeardIn(const char* ear, int pan);
    void TryEars();
    void HearVoices();
    void RepeatFindings();

    Form1& form_;
    const Surroundings& around_;
    WrittenReport& written_;
    DoctorReport report_;
    bool sounds_complete_ = false;
    bool leaving_ = false;  ///< Escape, while the findings were told
    std::chrono::microseconds began_{};
    std::int64_t played_before_ = 0;
};

/// A key cuts the sentence short. If nobody can press one, it is spoken in full: an event turn
/// might find that the input has ended.
void Doctor::Tell(const std::string& text) {
    if (!around_.answers) return form_.say(" " + text + " ");
    form_.clk();
    form_.say2(" " + text + " ");
    form_.w4s();
}

/// Whether the sentence that was last told has been cut short by Escape.
bool Doctor::Escaped() const {
    return around_.answers && form_.gs.g == keys::escape;
}

/// Once the player leaves, what is found goes into the report only.
void Doctor::Add(const Finding& finding) {
    report_.Add(finding);
    if (leaving_) return;
    Tell(finding.text);
    leaving_ = Escaped();
}

void Doctor::Examine() {
    form_.platform.events.ShowWindow(" Speech and sound check ");
    form_.opensound();
    form_.gs.Voice = form_.platform.speech.CreateEngine();
    form_.gs.nov = form_.gs.Voice->GetVoicesCount();
    form_.getdatapath();
    form_.readCFG();
    form_.setupvoice();
    for (const auto& [name, value] : around_.facts) report_.Note(name, value);
    report_.Note("Plays in", around_.front);
    BeginMeasurement();
    Tell("Speech and sound check of Tamlo Delivery.");
    leaving_ = Escaped();
    LookAtVoices();
    LookAtVoiceFaults();
    LookAtFolder();
    LookAtSounds();
    LookAtReaders();
    LookAtCard();
    Save();
}

/// The voice's number for the player, from 1, and its name.
std::string Doctor::VoiceNumber(int voice) const {
    const std::string number = std::to_string(voice + 1);
    const auto index = static_cast<std::size_t>(voice);
    return index < around_.voices.size() ? number + ", " + around_.voices[index] : number;
}

void Doctor::LookAtVoices() {
    const GameState& gs = form_.gs;
    if (gs.nov == 0) {
        return Add({"the voices", Weight::fault,
                    "No voice is installed, or its data are damaged. Install the packages "
                    "libespeak-ng1 and espeak-ng-data, or install them again."});
    }
    report_.Note("Voices", std::to_string(gs.nov));
    report_.Note("Voice", VoiceNumber(gs.nv));
    report_.Note("Rate, volumes", std::to_string(gs.vr) + ", " + std::to_string(gs.vv) + ", " +
                                      std::to_string(gs.wavol));
    Add({"the voices", Weight::fine,
         std::to_string(gs.nov) + " voices are installed. You hear number " + VoiceNumber(gs.nv) +
             "."});
}

/// Some break down only when they speak, so this is asked again at the end.
void Doctor::LookAtVoiceFaults() {
    for (const VoiceFault& fault : around_.voice_faults()) {
        const std::string topic = "the voices of " + fault.family;
        if (report_.Knows(topic) || (fault.missing && form_.gs.nov == 0)) continue;
        if (fault.missing) {
            Add({topic, Weight::hint,
                 "The voices of " + fault.family +
                     " are not there, or their data are damaged. "
                     "Install the package " +
                     fault.package + ", or install it again."});
            continue;
        }
        Add({topic, Weight::fault,
             "The voices of " + fault.family +
                 " break down, so another voice or two tones are "
                 "heard in their place. Their data may be damaged. Install the package " +
                 fault.package + " again."});
    }
}

void Doctor::LookAtFolder() {
    Files& files = form_.platform.files;
    const std::string trial = form_.path("tamlo-doctor.tmp");
    const bool written = files.Replace(trial, "trial") && files.Delete(trial);
    for (const std::string& name : files.List(form_.gs.datapath, "*")) {
        const auto length = files.Length(form_.path(name));
        report_.Note("File " + name, length ? std::to_string(*length) + " bytes" : "unreadable");
    }
    const std::string place = "Your files are in the folder " + form_.gs.datapath;
    if (written) return Add({"your files", Weight::fine, place + ", and can be written."});
    const bool full = around_.disk_is_full(form_.gs.datapath);
    Add({"your files", Weight::fault,
         place + ", which can not be written" +
             (full ? ": the disk is full. Delete something" : "") +
             ". You can play, but nothing is kept."});
}

void Doctor::LookAtSounds() {
    Files& files = form_.platform.files;
    const std::string folder = files.CurrentDirectory();
    report_.Note("Folder of the sounds", folder);
    std::string missing;
    for (const Effect& effect : Effects()) {
        const auto length = files.Length(WavePath(folder, effect));
        if (!length || *length == 0) missing.append(" ").append(effect.name);
    }
    form_.gs.wcv = 0;
    form_.checkwave();
    sounds_complete_ = missing.empty() && form_.gs.wcv == 0;
    std::string altered;
    for (const Effect* effect : CheckedEffects()) {
        const bool there = files.Length(WavePath(folder, *effect)).value_or(0) > 0;
        if (there && !IsUnaltered(files, folder, *effect)) altered.append(" ").append(effect->name);
    }
    const std::string all = std::to_string(Effects().size());
    if (sounds_complete_) {
        return Add({"the sound files", Weight::fine, "All " + all + " sound files are in order."});
    }
    Add({"the sound files", Weight::fault,
         (missing.empty() ? "" : "Sound files are missing:" + missing + ". ") +
             (altered.empty() ? "" : "Sound files are altered:" + altered + ". ") +
             "Install the package tamlo-delivery-data again."});
}

void Doctor::LookAtReaders() {
    if (around_.readers.empty()) {
        return Add({"screen readers", Weight::fine, "No screen reader is running."});
    }
    for (const ScreenReader& reader : around_.readers) {
        Add({reader.name, reader.asks_for_care ? Weight::hint : Weight::fine,
             reader.name + (reader.version.empty() ? "" : ", version " + reader.version + ",") +
                 " is running. " + reader.advice});
    }
}

void Doctor::BeginMeasurement() {
    began_ = form_.platform.clock.Steady();
    played_before_ = around_.sound().played;
}

/// The speech since the start gave the card time to show its rate.
void Doctor::LookAtCard() {
    const auto elapsed = [this] {
        return std::chrono::duration<double>(form_.platform.clock.Steady() - began_).count();
    };
    if (elapsed() < shortest_measurement) form_.dy(shortest_measurement);
    const SoundState sound = around_.sound();
    const double rate = static_cast<double>(sound.played - played_before_) / elapsed();
    report_.Note("Sound driver", sound.driver.empty() ? "none" : sound.driver);
    if (sound.audible) report_.Note("Frames of a block", std::to_string(sound.frames));
    report_.Note("Frames played in a second", std::to_string(std::lround(rate)));
    report_.Note("Late blocks", std::to_string(sound.late));
    if (!sound.audible) {
        return Add({"the sound card", Weight::fault,
                    "No sound card answers, so nothing is heard. Look whether the sound of your "
                    "desktop works in other programs."});
    }
    std::string text = "Sound goes out by " + sound.driver + ", in blocks of " +
                       std::to_string(sound.frames) + " frames, which is " +
                       std::to_string(std::lround(1000.0 * sound.frames / stream_rate)) +
                       " milliseconds.";
    const bool at_pace = std::abs(rate / stream_rate - 1) < tolerance;
    if (!at_pace) text += " It does not keep the pace: the machine may be too busy.";
    if (sound.late > 0) text += " Late blocks so far: " + std::to_string(sound.late) + ".";
    Add({"the sound card", at_pace ? Weight::fine : Weight::hint, text});
}

/// Waits until the sound ends or a key is pressed.
void Doctor::RingBell(int pan) {
    auto& buffer = form_.gs.wb1;
    form_.clk();
    form_.prepare(buffer, bell);
    buffer->SetPan(pan);
    buffer->Play(PlayMode::once);
    do {
        form_.keyturn(buffer->SecondsLeft());
    } while (form_.gs.g.empty() && buffer->GetStatus() == status_playing);
    buffer.reset();
}

/// Whether the bell was heard on that side only; nothing if the player wants to leave.
std::optional<bool> Doctor::HeardIn(const char* ear, int pan) {
    while (true) {
        Tell("Listen to your " + std::string(ear) + " ear.");
        RingBell(pan);
        if (form_.gs.g.empty()) {  // otherwise the answer came before the question
            form_.say2(
                " Press Enter if the bell was only in your " + std::string(ear) +
                " ear, N if it was not, and any other key to hear it again. Escape leaves. ");
            form_.getkey();
        }
        if (form_.gs.g == keys::enter) return true;
        if (form_.gs.g2 == "n") return false;
        if (form_.gs.g == keys::escape) return std::nullopt;
    }
}

void Doctor::TryEars() {
    if (!sounds_complete_) return Tell("This needs the sound files.");
    if (!around_.sound().audible) return Tell("This needs a sound card.");
    const auto left = HeardIn("left", only_left);
    const auto right = left ? HeardIn("right", only_right) : std::nullopt;
    if (!left || !right) return;
    if (*left && *right) {
        return Add({"left and right", Weight::fine, "Left and right are as they should be."});
    }
    Add({"left and right", Weight::hint,
         "Left and right are not apart. Your headphones may be the wrong way round, or the system "
         "may be set to mono. You can play all the same."});
}

void Doctor::HearVoices() {
    GameState& gs = form_.gs;
    if (gs.nov == 0) return Tell("There are none.");
    Tell(
        "Up and Down Arrow go from voice to voice, Enter or Escape goes back. The voice to play "
        "with is chosen in the game.");
    int voice = gs.nv;
    while (true) {
        gs.Voice->SetVoice(voice);
        form_.say2(" Voice " + VoiceNumber(voice) +
                   ". You are at the corner of Third Avenue and Birch, heading North. ");
        form_.getkey();
        if (gs.g == keys::enter || gs.g == keys::escape) break;
        if (gs.g == keys::up) voice = (voice + gs.nov - 1) % gs.nov;
        if (gs.g == keys::down) voice = (voice + 1) % gs.nov;
    }
    gs.Voice->SetVoice(gs.nv);
}

void Doctor::RepeatFindings() {
    for (const Finding& finding : report_.Findings()) {
        Tell(finding.text);
        if (Escaped()) return;
    }
}

void Doctor::Converse() {
    constexpr int leave = 5;
    if (leaving_) return;
    ListMenu menu{.prompt = " Try next: Up and Down Arrow, Enter. ",
                  .items = {" left and right ear ", " the voices ", " the keys ",
                            " the findings again ", " the end of this check "},
                  .extra = [this](int) {
                      return form_.gs.g == keys::escape ? MenuKey::Leave(leave) : MenuKey{};
                  }};
    while (true) {
        const int item = form_.runMenu(menu);
        if (item == 1) TryEars();
        if (item == 2) HearVoices();
        if (item == 3) report_.Note("Keys pressed", TryKeys(form_));
        if (item == 4) RepeatFindings();
        if (item == leave) return;
        Save();
        menu.prompt = "";
        menu.first = item + 1;  // pressing Enter repeatedly runs all of them
    }
}

void Doctor::Save() {
    written_.text = report_.Text(around_.home);
    Files& files = form_.platform.files;
    for (const std::string& folder : {around_.reports, form_.gs.datapath}) {
        if (folder.empty() || !files.Replace(folder + "/doctor.txt", written_.text)) continue;
        written_.path = folder + "/doctor.txt";
        return;
    }
}

void Doctor::Conclude() {
    LookAtVoiceFaults();
    Save();
    Tell(report_.Verdict());
    Tell(written_.path.empty()
             ? "The report can not be written to any folder."
             : "The report for those who help is the file " + written_.path + ". Good bye.");
}

int Doctor::ExitStatus() const {
    for (const Finding& finding : report_.Findings()) {
        if (finding.weight == Weight::fault) return 1;
    }
    return 0;
}

}  // namespace

void CheckSpeechAndSound(Form1& form, const Surroundings& surroundings, WrittenReport& report) {
    Doctor doctor(form, surroundings, report);
    try {
        doctor.Examine();
        if (surroundings.answers) doctor.Converse();
        doctor.Conclude();
    } catch (const EndOfProcess&) {
        doctor.Save();  // the findings are kept even if the window is closed
        throw;
    }
    throw EndOfProcess{doctor.ExitStatus(), ""};
}

}  // namespace tamlo
