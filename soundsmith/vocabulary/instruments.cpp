// Reeds, strings, brass and drums.
#include "instruments.h"

#include <cmath>
#include <stdexcept>
#include <string>
#include <string_view>

#include "bodies.h"
#include "filters.h"
#include "sources.h"

namespace tamlo::soundsmith {

double NoteHz(double semitones) {
    return 440.0 * std::pow(2.0, semitones / 12.0);
}

double NoteHz(const char* name) {
    constexpr std::string_view names = "c d ef g a b";  // a blank is a black key
    const std::string_view text = name;
    const std::size_t key = text.empty() ? std::string_view::npos : names.find(text.front());
    const char octave = text.empty() ? '\0' : text.back();
    if (key == std::string_view::npos || text.front() == ' ' || octave < '0' || octave > '9')
        throw std::logic_error("no note: " + std::string(text));
    double semitones = static_cast<double>(key) + 12.0 * (octave - '0') - 57.0;
    if (text.size() == 3) semitones += text[1] == '#' ? 1.0 : -1.0;
    return NoteHz(semitones);
}

Sound Accordion(int rate, double hz, double seconds, Chance& chance) {
    // Two reeds a few cents apart beat against each other; a third lies an octave below.
    Sound note = Tone(rate, seconds, hz, FallingHarmonics(14, -5));
    MixAt(note, Tone(rate, seconds, hz * 1.006, FallingHarmonics(14, -5)), 0.0, 0.8);
    MixAt(note, Tone(rate, seconds, hz * 0.5, FallingHarmonics(12, -6)), 0.0, 0.35);
    MixAt(note, NoiseBurst(rate, 0.004, 0.03, 800, 3000, chance), 0.0, 0.25);
    Shape(note, {{0.0, 0.0}, {0.03, 0.9}, {0.12, 1.0}, {seconds - 0.05, 0.75}, {seconds, 0.0}});
    return note;
}

Sound PluckedString(int rate, double hz, double seconds, double brightness, Chance& chance) {
    // A loop of noise as long as one wave, smoothed at each turn.
    const double period = rate / hz - 0.5;
    const auto length = static_cast<std::size_t>(period);
    const double part = period - static_cast<double>(length);
    std::vector<double> string(length + 1);
    double last = 0.0;
    for (double& sample : string) {
        last += brightness * (chance.Noise() - last);
        sample = last;
    }
    Sound note = Silence(rate, seconds);
    double previous = 0.0;
    std::size_t place = 0;
    for (double& sample : note.samples) {
        const double next = string[(place + 1) % string.size()];
        const double heard = string[place] + (1.0 - part) * (next - string[place]);
        sample = heard;
        string[place] = 0.997 * 0.5 * (heard + previous);
        previous = heard;
        place = (place + 1) % string.size();
    }
    FadeOut(note, 0.03);
    NormalisePeak(note);
    return note;
}

Sound Brass(int rate, double hz, double seconds, Chance& chance) {
    // The harder it is blown, the brighter: a low-pass opens with the breath.
    Sound note = Tone(rate, seconds, Vibrato(hz, 0.003, 5.2, seconds), FallingHarmonics(22, -2.5));
    MixAt(note, Tone(rate, seconds, hz * chance.About(0.003), FallingHarmonics(22, -2.5)), 0.0,
          0.6);
    MovingLowPass(note, {{0.0, hz}, {0.05, hz * 7}, {0.15, hz * 4.5}, {seconds, hz * 3}});
    Shape(note, {{0.0, 0.0}, {0.03, 1.0}, {0.15, 0.8}, {seconds - 0.06, 0.75}, {seconds, 0.0}});
    return note;
}

Sound Tuba(int rate, double hz, double seconds, Chance& chance) {
    Sound note = Tone(rate, seconds, hz * chance.About(0.002), FallingHarmonics(12, -4));
    MovingLowPass(note, {{0.0, 200}, {0.04, 900}, {0.2, 500}, {seconds, 300}});
    Shape(note, {{0.0, 0.0}, {0.03, 1.0}, {0.5 * seconds, 0.7}, {seconds, 0.0}});
    return note;
}

Sound Clarinet(int rate, double hz, double seconds, Chance& chance) {
    Sound note = Tone(rate, seconds, Vibrato(hz, 0.002, 5, seconds),
                      {1.0, 0.04, 0.55, 0.05, 0.3, 0.06, 0.16, 0.05, 0.08});
    MixAt(note, NoiseBurst(rate, 0.01, seconds, 1500, 3500, chance), 0.0, 0.03);
    Shape(note, {{0.0, 0.0}, {0.03, 0.9}, {0.1, 1.0}, {seconds - 0.04, 0.8}, {seconds, 0.0}});
    return note;
}

Sound MusicBox(int rate, double hz, double seconds, Chance& chance) {
    Sound note = Hit(BarOf(hz, seconds), rate, 1.0, chance);
    SetLength(note, seconds);
    FadeOut(note, 0.02);
    return note;
}

Sound BassDrum(int rate, Chance& chance) {
    const Curve pitch{{0.0, 130}, {0.05, 72}, {0.5, 62}};
    Sound drum = Tone(rate, 0.5, pitch, {1.0, 0.4, 0.15});
    Shape(drum, {{0.0, 0.0}, {0.003, 1.0}, {0.12, 0.5}, {0.5, 0.0}});
    MixAt(drum, NoiseBurst(rate, 0.001, 0.05, 150, 1500, chance), 0.0, 0.9);
    return drum;
}

Sound SnareDrum(int rate, double seconds, Chance& chance) {
    Sound drum = NoiseBurst(rate, 0.001, seconds, 900, 9000, chance);
    MixAt(drum,
          Hit({{{185, 0.12, 1.0}, {330, 0.09, 0.7}, {480, 0.06, 0.3}}, {0, 0, 0, 0}}, rate, 1.0,
              chance),
          0.0, 0.6);
    return drum;
}

Sound Cymbal(int rate, double seconds, Chance& chance) {
    Body plate{{}, {1.0, seconds * 0.7, 4000, 15000}};
    for (int i = 0; i < 24; ++i)
        plate.modes.push_back({chance.Between(1800, 9000), seconds * chance.Between(0.3, 1.0),
                               chance.Between(0.05, 0.2)});
    return Hit(plate, rate, 1.0, chance);
}

Sound BrushOnSnare(int rate, Chance& chance) {
    return NoiseBurst(rate, 0.012, 0.11, 1400, 3500, chance);
}

}  // namespace tamlo::soundsmith
