// What the voices take: until the first sound of every text of the menus, from one text to the
// next, and how quickly they speak. Processor time of the voice's work, in milliseconds.
#include <time.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "audio/voice/synthesizer.h"
#include "audio/voice/voice_speech.h"
#include "audio/voice/voices.h"
#include "audio/voice/wording.h"
#include "prompts.h"

namespace tamlo {
namespace {

constexpr int audible = 103;  // -50 dB of full scale
constexpr int first_flite = static_cast<int>(voice_table.size());

/// What answers a player's keys, beside the prompts.
constexpr std::string_view answers[] = {
    " select ",
    " louder ",
    " quieter ",
    " press y for yes and n for no ",
    " You are at the corner of Lovelace Street and Willow Road. ",
    " 3 tamlos with extra cheese, mushrooms and green pepper to the corner of Elm and Apple. ",
    "a",
    "5",
    "'",
    "&"};

constexpr const char* passages[] = {
    "You are at the corner of Lovelace Street and Willow Road.",
    "Your current delivery trip time is 14 minutes and 20 seconds.",
    "You no longer have any tamlos to deliver.",
    "The customer gives you twenty dollars and tells you to keep the change.",
    "A police car follows you with its siren on, and you stop at the side of the road."};

double Now(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

struct Heard {
    double first = -1;  ///< milliseconds until the first audible sample
    double gap = 0;     ///< longest between two calls of the sink
    std::size_t onset = 0;
    std::size_t end = 0;  ///< after the last audible sample
    double energy = 0;
    int peak = 0;
};

Heard Hear(Synthesizer& voices, const Utterance& utterance, clockid_t clock) {
    Heard heard;
    std::size_t count = 0;
    const double start = Now(clock);
    double last = start;
    voices.Synthesize(utterance, [&](std::span<const std::int16_t> samples) {
        const double now = Now(clock);
        heard.gap = std::max(heard.gap, now - last);
        last = now;
        for (std::int16_t sample : samples) {
            const int level = std::abs(int{sample});
            if (level > audible && heard.first < 0) {
                heard.first = now - start;
                heard.onset = count;
            }
            if (level > audible) heard.end = count + 1;
            heard.energy += static_cast<double>(sample * sample);
            heard.peak = std::max(heard.peak, level);
            ++count;
        }
        return true;
    });
    return heard;
}

double Seconds(Synthesizer& voices, int voice, int rate) {
    double seconds = 0;
    for (const char* text : passages) {
        const Heard heard = Hear(voices, {text, rate, voice}, CLOCK_THREAD_CPUTIME_ID);
        seconds += static_cast<double>(heard.end - heard.onset) / voices.Rate(voice);
    }
    return seconds;
}

int Words() {
    int words = 0;
    for (const std::string text : passages) {
        words += 1 + static_cast<int>(std::count(text.begin(), text.end(), ' '));
    }
    return words;
}

void TellFirstSounds(Synthesizer& voices, int voice, clockid_t clock) {
    std::vector<double> firsts;
    double gap = 0;
    std::string_view slowest;
    const auto measure = [&](std::string_view text) {
        const Heard heard = Hear(voices, {WithSpokenAmounts(text), 0, voice}, clock);
        if (firsts.empty() || heard.first > *std::max_element(firsts.begin(), firsts.end())) {
            slowest = text.substr(0, 40);
        }
        firsts.push_back(heard.first);
        gap = std::max(gap, heard.gap);
    };
    std::for_each(prompts.begin(), prompts.end(), measure);
    std::for_each(std::begin(answers), std::end(answers), measure);
    std::sort(firsts.begin(), firsts.end());
    std::printf("%2d  first sound %5.2F (max %5.2F, min %5.2F), longest step %5.2F  \"%s\"\n",
                voice, firsts[firsts.size() / 2], firsts.back(), firsts.front(), gap,
                std::string(slowest).c_str());
}

void TellPace(Synthesizer& voices, int voice) {
    std::printf("%2d  words a minute:", voice);
    for (int rate : {-10, -7, -5, -2, 0, 2, 5, 7, 10, 12, 15}) {
        const double seconds = Seconds(voices, voice, rate);
        const double first = voice == 0 ? seconds : Seconds(voices, 0, rate);
        std::printf("  %d: %.0F (%+.0F%%)", rate, Words() * 60 / seconds,
                    (first / seconds - 1) * 100);
    }
    const Heard heard = Hear(voices, {passages[4], 0, voice}, CLOCK_THREAD_CPUTIME_ID);
    std::printf("  level %.0F, peak %d\n",
                std::sqrt(heard.energy / static_cast<double>(heard.end - heard.onset)), heard.peak);
}

/// Elapsed milliseconds from a purge in the middle of a long text to the next text's first sample,
/// as the mixer gets it.
void TellBreakingOff(int voice) {
    VoiceSpeech speech;
    const auto engine = speech.CreateEngine();
    engine->SetVoice(voice);
    engine->Speak("ready", SpeakFlags::queue);
    std::string text;
    for (const char* passage : passages) text.append(passage).append(" ");
    std::vector<float> block(2 * 16);
    std::vector<double> times;
    auto pull = [&] {
        speech.Stream().Take(block.data(), 16, true);
        const bool sound = std::any_of(block.begin(), block.end(),
                                       [](float sample) { return std::abs(sample) > 0.00316F; });
        std::fill(block.begin(), block.end(), 0.0F);
        return sound;
    };
    for (int i = 0; i < 40; ++i) {
        engine->Speak(text, SpeakFlags::queue);
        std::this_thread::sleep_for(std::chrono::microseconds(1000 * i));
        engine->Speak("", SpeakFlags::purge);
        for (int k = 0; k < 12; ++k) pull();  // what fades away
        const double start = Now(CLOCK_MONOTONIC);
        engine->Speak(" select ", SpeakFlags::queue);
        while (!pull()) std::this_thread::sleep_for(std::chrono::microseconds(100));
        times.push_back(Now(CLOCK_MONOTONIC) - start);
        engine->Speak("", SpeakFlags::purge);
    }
    std::sort(times.begin(), times.end());
    std::printf("%2d  broken off and said again: %5.2F (max %5.2F)\n", voice,
                times[times.size() / 2], times.back());
}

int Run() {
    const double start = Now(CLOCK_MONOTONIC);
    const auto voices = MakeVoices();
    const int count = voices->Open();
    std::printf("%d voices, open after %.1F ms\n", count, Now(CLOCK_MONOTONIC) - start);
    if (count == 0) return 1;
    for (int voice = first_flite; voice < count; ++voice) {
        const double before = Now(CLOCK_MONOTONIC);
        voices->Prepare(voice);
        std::printf("%2d  made ready in %.1F ms\n", voice, Now(CLOCK_MONOTONIC) - before);
        const Heard heard = Hear(*voices, {"select", 0, voice}, CLOCK_MONOTONIC);
        std::printf("%2d  the very first text: %.2F elapsed\n", voice, heard.first);
    }
    for (clockid_t clock : {CLOCK_THREAD_CPUTIME_ID, CLOCK_MONOTONIC}) {
        std::puts(clock == CLOCK_MONOTONIC ? "elapsed" : "processor time");
        TellFirstSounds(*voices, 0, clock);
        for (int voice = first_flite; voice < count; ++voice)
            TellFirstSounds(*voices, voice, clock);
    }
    TellBreakingOff(0);
    for (int voice = first_flite; voice < count; ++voice) TellBreakingOff(voice);
    TellPace(*voices, 0);
    for (int voice = first_flite; voice < count; ++voice) TellPace(*voices, voice);
    return 0;
}

}  // namespace
}  // namespace tamlo

int main() {
    return tamlo::Run();
}
