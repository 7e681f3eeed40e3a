// From words to a voice: a speech engine with a recorded speaker, and praat, which makes another
// person of the speaker.
#include "customers/speak.h"

#include <iconv.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "customers/programs.h"
#include "wave_reader.h"
#include "wave_writer.h"

namespace tamlo::soundsmith {

namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void WriteFile(const fs::path& path, std::string_view bytes) {
    std::ofstream out(path, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!out.flush()) throw std::runtime_error("cannot write " + path.string());
}

/// UTF-8 in another character set. Throws std::runtime_error when that lacks a character.
std::string Encoded(std::string_view text, std::string_view charset) {
    const iconv_t converter = iconv_open(std::string(charset).c_str(), "UTF-8");
    // NOLINTNEXTLINE(performance-no-int-to-ptr): how iconv says so
    if (converter == iconv_t(-1)) throw std::runtime_error("no character set of that name");
    std::string from(text), to(2 * text.size(), '\0');
    char *in = from.data(), *out = to.data();
    std::size_t in_left = from.size(), out_left = to.size();
    const std::size_t failed = iconv(converter, &in, &in_left, &out, &out_left);
    iconv_close(converter);
    if (failed == std::size_t(-1)) throw std::runtime_error("cannot be spelled: " + from);
    to.resize(to.size() - out_left);
    return to;
}

/// By the engines that are libraries: customer_voice gives the rate, then 16-bit samples.
Sound ByLibrary(const Speaker& speaker, std::string_view text, const ScratchFolder& scratch) {
    const std::string bytes = RunProgram(
        {CUSTOMER_VOICE, std::string(speaker.engine), std::string(speaker.name), std::string(text)},
        scratch);
    std::int32_t rate = 0;
    if (bytes.size() <= sizeof rate) throw std::runtime_error("the voice said nothing");
    std::memcpy(&rate, bytes.data(), sizeof rate);
    Sound sound{rate, {}, false};
    for (std::size_t i = sizeof rate; i + 2 <= bytes.size(); i += 2) {
        std::int16_t sample;
        std::memcpy(&sample, bytes.data() + i, sizeof sample);
        sound.samples.push_back(sample / 32768.0);
    }
    return sound;
}

Sound ByFestival(const Speaker& speaker, std::string_view text, const ScratchFolder& scratch) {
    const fs::path commands = scratch.Path() / "say.scm", said = scratch.Path() / "festival.wav";
    std::ostringstream lines;
    lines << "(voice_" << speaker.name << ")\n"
          << "(set! said (Utterance Text \"" << Encoded(text, speaker.charset) << "\"))\n"
          << "(utt.synth said)\n"
          << "(utt.save.wave said \"" << said.string() << "\" 'riff)\n";
    WriteFile(commands, lines.str());
    RunProgram({FESTIVAL, "-b", commands.string()}, scratch);
    return ReadWave(ReadFile(said));
}

std::string InWords(double number) {
    std::ostringstream text;
    text << number;
    return text.str();
}

Sound Changed(const Sound& said, const Speaker& speaker, const Customer& customer,
              const ScratchFolder& scratch) {
    const fs::path from = scratch.Path() / "said.wav", to = scratch.Path() / "changed.wav";
    Effect plain{};
    plain.rate = said.rate;
    plain.bits = 16;
    WriteFile(from, WaveFile(plain, said));
    RunProgram({PRAAT, "--no-pref-files", "--no-plugins", "--run", CHANGE_VOICE, from.string(),
                to.string(), std::to_string(speaker.lowest_pitch),
                std::to_string(speaker.highest_pitch), InWords(customer.formants),
                std::to_string(customer.pitch), InWords(customer.melody), InWords(customer.pace)},
               scratch);
    return ReadWave(ReadFile(to));
}

}  // namespace

Sound Speak(const Customer& customer, std::string_view words) {
    const Speaker* speaker = FindSpeaker(customer.speaker);
    if (speaker == nullptr)
        throw std::runtime_error("there is no speaker " + std::string(customer.speaker));
    if (words.empty()) words = customer.spelling.empty() ? customer.greeting : customer.spelling;
    const ScratchFolder scratch;
    const Sound said = speaker->engine == "festival" ? ByFestival(*speaker, words, scratch)
                                                     : ByLibrary(*speaker, words, scratch);
    return customer.Unchanged() ? said : Changed(said, *speaker, customer, scratch);
}

}  // namespace tamlo::soundsmith
