// The title tune: a quick waltz as a small restaurant band would play it, accordion and clarinet
// over bass, strummed chords and brushes. Its file runs at 8000 samples a second, so the
// arrangement keeps to the middle of the keyboard.
#include <array>
#include <span>

#include "filters.h"
#include "music.h"
#include "vocabulary/instruments.h"
#include "vocabulary/room.h"

namespace tamlo::soundsmith {

namespace {

constexpr double beat_length = 0.345;  // three to the bar
constexpr int intro_bars = 1;
constexpr int bars = 16;

struct Note {
    const char* name;
    double beats;
};

// clang-format off
constexpr Note melody[] = {  // a bar a line
    {"b4", 1}, {"d5", 1}, {"g5", 1},
    {"a5", 1.5}, {"g5", 0.5}, {"e5", 1},
    {"e5", 1}, {"g5", 0.5}, {"f#5", 0.5}, {"e5", 1},
    {"d5", 2}, {"d5", 0.5}, {"b4", 0.5},
    {"c5", 1}, {"e5", 1}, {"a5", 1},
    {"g5", 1.5}, {"f#5", 0.5}, {"c5", 1},
    {"b4", 1}, {"c5", 0.5}, {"c#5", 0.5}, {"d5", 1},
    {"d5", 0.5}, {"e5", 0.5}, {"f#5", 0.5}, {"g5", 0.5}, {"a5", 0.5}, {"f#5", 0.5},
    {"b5", 1}, {"g5", 1}, {"d5", 1},
    {"f5", 1.5}, {"e5", 0.5}, {"d5", 1},
    {"e5", 1}, {"g5", 1}, {"c6", 1},
    {"b5", 1.5}, {"g#5", 0.5}, {"e5", 1},
    {"a5", 1}, {"c6", 0.5}, {"b5", 0.5}, {"a5", 1},
    {"g5", 0.5}, {"f#5", 0.5}, {"e5", 0.5}, {"d5", 0.5}, {"c5", 0.5}, {"a4", 0.5},
    {"b4", 1}, {"d5", 0.5}, {"g5", 0.5}, {"a5", 0.5}, {"f#5", 0.5},
    {"g5", 1}, {"d5", 1}, {"g5", 2.5},
};

// The clarinet answers from the ninth bar on, mostly a third or a sixth below.
constexpr Note second_voice[] = {
    {"g4", 1}, {"d5", 1}, {"b4", 1},
    {"d5", 1.5}, {"c5", 0.5}, {"b4", 1},
    {"c5", 1}, {"e5", 1}, {"g5", 1},
    {"g#5", 1.5}, {"e5", 0.5}, {"d5", 1},
    {"c5", 1}, {"a5", 0.5}, {"g5", 0.5}, {"e5", 1},
    {"e5", 0.5}, {"d5", 0.5}, {"c5", 0.5}, {"a4", 0.5}, {"a4", 0.5}, {"f#4", 0.5},
    {"g4", 1}, {"b4", 0.5}, {"b4", 0.5}, {"c5", 0.5}, {"c5", 0.5},
    {"b4", 1}, {"a4", 1}, {"b4", 2.5},
};
// clang-format on

struct Chord {
    const char* bass;
    const char* fifth;  // the bass takes turns
    std::array<const char*, 3> notes;
};

constexpr Chord g{"g2", "d2", {"b3", "d4", "g4"}};
constexpr Chord c{"c3", "g2", {"c4", "e4", "g4"}};
constexpr Chord am{"a2", "e2", {"c4", "e4", "a4"}};
constexpr Chord d7{"d2", "a2", {"c4", "d4", "f#4"}};
constexpr Chord g7{"g2", "d2", {"b3", "d4", "f4"}};
constexpr Chord e7{"e2", "b2", {"b3", "d4", "g#4"}};

constexpr std::array harmony{g, g, c, g, am, d7, g, d7, g, g7, c, e7, am, d7, g, g};
static_assert(harmony.size() == bars);

using Instrument = Sound (*)(int rate, double hz, double seconds, Chance& chance);

void PlayLine(Sound& tune, std::span<const Note> line, double start, Instrument instrument,
              double level, Chance& chance) {
    double at = start;
    for (const Note& note : line) {
        const double length = note.beats * beat_length;
        // Players lean on the line: each note a little late or early, and shorter than written.
        const double late = chance.Between(-0.006, 0.006);
        MixAt(tune, instrument(tune.rate, NoteHz(note.name), 0.92 * length + 0.03, chance),
              at + late, level * chance.About(0.06));
        at += length;
    }
}

void Strum(Sound& tune, const Chord& chord, double at, double level, Chance& chance) {
    double delay = 0.0;
    for (const char* note : chord.notes) {
        MixAt(tune, PluckedString(tune.rate, NoteHz(note), 0.28, 0.55, chance), at + delay, level);
        delay += 0.008;
    }
}

void PlayBar(Sound& tune, const Chord& chord, int bar, Chance& chance) {
    const double at = 3 * beat_length * bar;
    const char* bass = bar % 2 == 0 ? chord.bass : chord.fifth;
    MixAt(tune, PluckedString(tune.rate, NoteHz(bass), 0.8, 0.22, chance), at, 1.7);
    for (const double beat : {1.0, 2.0}) {
        Strum(tune, chord, at + beat * beat_length, 0.5, chance);
        MixAt(tune, BrushOnSnare(tune.rate, chance), at + beat * beat_length, 0.22);
    }
}

}  // namespace

Sound TitleTune(Brief brief) {
    Sound tune = brief.Blank();
    Chance& chance = brief.chance;
    const double start = 3 * beat_length * intro_bars;
    PlayBar(tune, g, 0, chance);
    for (int bar = 0; bar < bars - 1; ++bar)
        PlayBar(tune, harmony[static_cast<std::size_t>(bar)], bar + intro_bars, chance);
    PlayLine(tune, melody, start, Accordion, 0.34, chance);
    PlayLine(tune, second_voice, start + 8 * 3 * beat_length, Clarinet, 0.28, chance);
    // The last bar: the whole band, three times, and the last chord rings.
    const double end = start + (bars - 1) * 3 * beat_length;
    const std::array<const Chord*, 3> cadence{&g, &d7, &g};
    for (std::size_t i = 0; i < 3; ++i) {
        const double at = end + static_cast<double>(i) * beat_length;
        Strum(tune, *cadence[i], at, 0.65, chance);
        MixAt(tune, PluckedString(tune.rate, NoteHz(cadence[i]->bass), 1.2, 0.25, chance), at, 1.7);
        MixAt(tune, BrushOnSnare(tune.rate, chance), at, 0.35);
    }
    LowPass(tune, 3400);
    AddRoom(tune, {8, 0.7, 3000, 0.16});
    return tune;
}

}  // namespace tamlo::soundsmith
