// Harmonic sources through throats.
#include "voices.h"

#include <cmath>
#include <numbers>

#include "filters.h"
#include "sources.h"

namespace tamlo::soundsmith {

namespace {

// The throat of someone in a crowd: two vowels that take turns, so that it speaks without words.
Sound Chatter(const Sound& like, Chance& chance) {
    const double seconds = like.Seconds();
    const double pitch = chance.OneIn(2) ? chance.Between(95, 140) : chance.Between(170, 250);
    std::vector<Curve::Point> melody, syllables, vowels;
    double level = 0.0;
    for (double t = 0.0; t < seconds - 0.3;) {
        const bool speaking = !chance.OneIn(5.0);
        const double length = speaking ? chance.Between(0.1, 0.24) : chance.Between(0.4, 1.6);
        level = speaking ? chance.Between(0.4, 1.0) : 0.0;
        melody.push_back({t, pitch * chance.Between(0.82, 1.28)});
        vowels.push_back({t, chance.Next()});
        syllables.push_back({t, 0.05 * level});
        syllables.push_back({t + 0.4 * length, level});
        syllables.push_back({t + length, 0.05 * level});
        t += length + 0.001;
    }
    syllables.push_back({seconds, 0.0});
    Sound source = Tone(like.rate, seconds, Curve(melody), FallingHarmonics(16, -9));
    source.samples.resize(like.samples.size());
    source.loop = like.loop;
    MixAt(source, NoiseBand(like, 800, 4000, chance), 0.0, 0.06);
    Shape(source, Curve(syllables));
    Sound open =
        Resonate(source, {{chance.Between(600, 800), 5, 1.0}, {1200, 7, 0.7}, {2600, 9, 0.2}});
    Sound close =
        Resonate(source, {{chance.Between(300, 450), 5, 1.0}, {1900, 8, 0.5}, {2500, 9, 0.3}});
    const Curve vowel(vowels);
    for (std::size_t i = 0; i < source.samples.size(); ++i) {
        const double part = vowel(static_cast<double>(i) / like.rate);
        source.samples[i] = part * open.samples[i] + (1.0 - part) * close.samples[i];
    }
    return source;
}

}  // namespace

Sound Bark(int rate, double hz, double seconds, Chance& chance) {
    const double peak = hz * chance.About(0.06);
    const Curve pitch{{0.0, 0.75 * peak},
                      {0.12 * seconds, 1.25 * peak},
                      {0.45 * seconds, 1.1 * peak},
                      {seconds, 0.6 * peak}};
    Sound voice = Tone(rate, seconds, pitch, FallingHarmonics(30, -4));
    // A rough throat: every second wave is weaker, and breath goes with it.
    double turns = 0.0;
    for (std::size_t i = 0; i < voice.samples.size(); ++i) {
        const double time = static_cast<double>(i) / rate;
        turns += 0.5 * pitch(time) / rate;
        voice.samples[i] *= 1.0 + 0.45 * std::sin(2.0 * std::numbers::pi * turns);
        voice.samples[i] += 1.6 * chance.Noise();
    }
    const double size = std::sqrt(hz / 420.0);
    Sound bark = Resonate(
        voice,
        {{620 * size, 4, 1.0}, {1250 * size, 5, 0.9}, {2500 * size, 5, 0.5}, {4200 * size, 5, 0.2}},
        0.05);
    Shape(bark,
          {{0.0, 0.0}, {0.02, 0.8}, {0.35 * seconds, 1.0}, {0.7 * seconds, 0.35}, {seconds, 0.0}});
    NormalisePeak(bark);
    Saturate(bark, 1.8);
    return bark;
}

Sound BirdPhrase(int rate, double hz, int notes, Chance& chance) {
    Sound phrase = Silence(rate, 0.05);
    const double warble = chance.Between(15, 38);
    const double swing = chance.Between(0.02, 0.12);
    const double slope = chance.Between(-0.25, 0.25);
    const double length = chance.Between(0.07, 0.19);
    for (int note = 0; note < notes; ++note) {
        const double pitch = hz * chance.About(0.12);
        std::vector<Curve::Point> course;
        for (double t = 0.0; t <= length; t += 0.002)
            course.push_back({t, pitch * (1.0 + slope * t / length +
                                          swing * std::sin(2.0 * std::numbers::pi * warble * t))});
        Sound whistle = Tone(rate, length, Curve(course), {1.0, 0.08, 0.02});
        for (std::size_t i = 0; i < whistle.samples.size(); ++i)
            whistle.samples[i] *= Hill(static_cast<double>(i) / rate, length);
        Sound gap = Silence(rate, chance.Between(0.03, 0.12));
        Gain(whistle, chance.Between(0.6, 1.0));
        phrase = Append(Append(phrase, whistle), gap);
    }
    return phrase;
}

Sound Murmur(const Sound& like, int people, Chance& chance) {
    Sound crowd = like;
    Gain(crowd, 0.0);
    for (int i = 0; i < people; ++i)
        MixAt(crowd, Chatter(like, chance), 0.0, chance.Between(0.4, 1.0));
    LowPass(crowd, 2600);
    HighPass(crowd, 160);
    return crowd;
}

Sound Breath(int rate, bool inwards, double seconds, Chance& chance) {
    Sound air = WhiteNoise(rate, seconds, chance);
    Sound breath = inwards ? Resonate(air, {{1500, 2.5, 1.0}, {2900, 3, 0.8}, {5200, 2, 0.5}})
                           : Resonate(air, {{700, 2.0, 1.0}, {1400, 2.5, 0.6}, {3000, 2, 0.2}});
    for (std::size_t i = 0; i < breath.samples.size(); ++i)
        breath.samples[i] *= Hill(static_cast<double>(i) / rate, seconds);
    return breath;
}

Sound ChildCall(int rate, Chance& chance) {
    const int syllables = 1 + static_cast<int>(chance.Between(0, 3));
    Sound call = Silence(rate, 0.02);
    double pitch = chance.Between(380, 520);
    for (int i = 0; i < syllables; ++i) {
        const double length = chance.Between(0.14, 0.38);
        const Curve course{
            {0.0, pitch * 0.9}, {0.3 * length, pitch * 1.15}, {length, pitch * 0.85}};
        Sound voice = Tone(rate, length, course, FallingHarmonics(12, -7));
        voice = Resonate(voice, {{chance.Between(700, 1100), 5, 1.0},
                                 {chance.Between(1500, 2300), 6, 0.8},
                                 {3600, 6, 0.3}});
        for (std::size_t k = 0; k < voice.samples.size(); ++k)
            voice.samples[k] *= Hill(static_cast<double>(k) / rate, length);
        call = Append(call, voice);
        pitch *= chance.Between(0.85, 1.2);
    }
    return call;
}

}  // namespace tamlo::soundsmith
