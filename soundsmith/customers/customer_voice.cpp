// customer_voice: says one sentence with a speech engine that nothing has been said with before,
// and writes it to standard output: the rate as a 32-bit number, then 16-bit samples.
#include <espeak-ng/speak_lib.h>
#include <flite/flite.h>

#include <cstdint>
#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

extern "C" {
cst_voice* register_cmu_us_slt(const char*);
cst_voice* register_cmu_us_rms(const char*);
cst_voice* register_cmu_us_awb(const char*);
cst_voice* register_cmu_us_kal16(const char*);
}

/// espeak-ng connects to a sound server when it is readied, though it only gives samples. On the
/// way the server's library looks for a folder of the user's; where there is none, it invents a
/// name by rand(), from which the breath of both engines comes as well: the voice would be another
/// one. The engine finds this function before that of its sound library, and leaves the server
/// alone.
extern "C" [[gnu::visibility("default")]] void* create_audio_device_object(const char*, const char*,
                                                                           const char*) {
    return nullptr;
}

namespace {

struct Speech {
    std::int32_t rate = 0;
    std::vector<std::int16_t> samples;
};

std::vector<std::int16_t> espeak_samples;  // the engine's callback is told nothing of ours

int TakeSamples(short* samples, int count, espeak_EVENT*) {
    if (samples != nullptr) espeak_samples.insert(espeak_samples.end(), samples, samples + count);
    return 0;
}

Speech SpeakWithEspeak(const std::string& voice, const std::string& text) {
    const int rate =
        espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, 0, nullptr, espeakINITIALIZE_DONT_EXIT);
    if (rate <= 0) throw std::runtime_error("espeak-ng has no data");
    espeak_SetSynthCallback(TakeSamples);
    if (espeak_SetVoiceByName(voice.c_str()) != EE_OK)
        throw std::runtime_error("espeak-ng has no voice " + voice);
    // Full volume clips in the engine; the level is set afterwards.
    espeak_SetParameter(espeakVOLUME, 60, 0);
    espeak_Synth(text.c_str(), text.size() + 1, 0, POS_CHARACTER, 0, espeakCHARS_UTF8, nullptr,
                 nullptr);
    return {rate, espeak_samples};
}

cst_voice* FliteVoice(const std::string& name) {
    if (name == "slt") return register_cmu_us_slt(nullptr);
    if (name == "rms") return register_cmu_us_rms(nullptr);
    if (name == "awb") return register_cmu_us_awb(nullptr);
    if (name == "kal16") return register_cmu_us_kal16(nullptr);
    throw std::runtime_error("flite has no voice " + name);
}

Speech SpeakWithFlite(const std::string& name, const std::string& text) {
    flite_init();
    cst_voice* voice = FliteVoice(name);
    cst_wave* wave = flite_text_to_wave(text.c_str(), voice);
    if (wave == nullptr) throw std::runtime_error("flite says nothing");
    Speech speech{wave->sample_rate, {wave->samples, wave->samples + wave->num_samples}};
    delete_wave(wave);
    return speech;
}

Speech SpeakWith(const std::string& engine, const std::string& voice, const std::string& text) {
    if (engine == "espeak") return SpeakWithEspeak(voice, text);
    if (engine == "flite") return SpeakWithFlite(voice, text);
    throw std::runtime_error("there is no engine " + engine);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: customer_voice espeak|flite VOICE TEXT\n";
        return 2;
    }
    try {
        const Speech speech = SpeakWith(argv[1], argv[2], argv[3]);
        std::fwrite(&speech.rate, sizeof speech.rate, 1, stdout);
        std::fwrite(speech.samples.data(), 2, speech.samples.size(), stdout);
        return std::fflush(stdout) == 0 ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << "customer_voice: " << error.what() << "\n";
        return 1;
    }
}
