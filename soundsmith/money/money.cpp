// The recipes of this theme.
#include "money.h"

#include <array>
#include <cmath>
#include <iterator>
#include <numbers>

#include "filters.h"
#include "vocabulary/bodies.h"
#include "vocabulary/instruments.h"
#include "vocabulary/room.h"
#include "vocabulary/sources.h"

namespace tamlo::soundsmith {

namespace {

// A ticket printer: its head runs across the paper line by line, pins buzzing, and the roll steps.
Sound TicketPrinter(int rate, Chance& chance) {
    Sound printer = Silence(rate, 1.25);
    const Body step{{{340, 0.04, 0.8}, {910, 0.03, 0.6}}, {0.6, 0.012, 400, 3500}};
    for (int line = 0; line < 5; ++line) {
        const double start = 0.24 * line;
        const double length = 0.13 + 0.05 * chance.Next();
        Sound pins = Tone(rate, length, 410 * chance.About(0.02), FallingHarmonics(20, -2));
        Sound hiss = NoiseBand(pins, 1500, 8000, chance);
        MixAt(pins, hiss, 0.0, 1.5);
        for (std::size_t i = 0; i < pins.samples.size(); ++i) {
            const double time = static_cast<double>(i) / rate;
            const bool printing = std::sin(2 * std::numbers::pi * 31 * time + line) > -0.35;
            pins.samples[i] *= printing ? 1.0 : 0.12;
        }
        pins = Resonate(pins, {{1250, 3, 0.8}, {2700, 4, 1.0}, {4600, 3, 0.7}}, 0.05);
        FadeIn(pins, 0.004);
        FadeOut(pins, 0.01);
        MixAt(printer, pins, start, 0.5);
        MixAt(printer, Hit(step, rate, 0.8, chance), start + length + 0.02, 0.6);
    }
    return printer;
}

// Paper torn along its perforation: a burst of small snaps.
Sound Tear(int rate, Chance& chance) {
    Sound tear = Silence(rate, 0.35);
    for (int i = 0; i < 70; ++i)
        MixAt(tear, NoiseBurst(rate, 0.0003, 0.005, 1800, 10000, chance),
              0.0042 * i * chance.About(0.3) + 0.01, chance.Between(0.3, 1.0));
    return tear;
}

// A new note bent and let go: many tiny crackles, densest in the middle.
Sound Rustle(int rate, double seconds, Chance& chance) {
    Sound rustle = Silence(rate, seconds);
    for (int i = 0; i < 70; ++i) {  // a few loud among many faint ones
        const double at = seconds * (chance.Next() + chance.Next()) / 2.0;
        const double level = 0.08 + 1.5 * std::pow(chance.Next(), 4.0);
        MixAt(rustle, NoiseBurst(rate, 0.0003, 0.003, 1800, 9500, chance), at, level);
    }
    MixAt(rustle, NoiseBurst(rate, 0.4 * seconds, 0.5 * seconds, 1500, 7000, chance), 0.0, 0.08);
    return rustle;
}

}  // namespace

Sound NewOrder(Brief brief) {
    Sound order = brief.Blank();
    const Body bell = BellOf(1975.5, 1.1);
    MixAt(order, Hit(bell, brief.rate, 1.0, brief.chance), 0.03, 0.35);
    MixAt(order, Hit(bell, brief.rate, 1.0, brief.chance), 0.4, 0.4);
    MixAt(order, TicketPrinter(brief.rate, brief.chance), 1.15, 0.9);
    MixAt(order, Tear(brief.rate, brief.chance), 2.5, 0.8);
    AddRoom(order, shop);
    return order;
}

Sound BankNotes(Brief brief) {
    Sound notes = brief.Blank();
    for (const double at : {0.01, 0.2, 0.39}) {
        MixAt(notes, Rustle(brief.rate, 0.16, brief.chance), at);
        MixAt(notes, NoiseBurst(brief.rate, 0.001, 0.015, 900, 6000, brief.chance), at + 0.14, 1.2);
    }
    return notes;
}

Sound Coins(Brief brief) {
    Sound coins = brief.Blank();
    const double sizes[] = {1.0, 1.27, 0.86};
    const double times[] = {0.006, 0.046, 0.094};
    for (int i = 0; i < 3; ++i) {
        const Body coin =
            Scaled({{{4350, 0.09, 1.0}, {5480, 0.08, 0.9}, {7160, 0.06, 0.7}, {9300, 0.04, 0.4}},
                    {0.5, 0.003, 3000, 10000},
                    0.01},
                   sizes[i]);
        MixAt(coins, Hit(coin, brief.rate, 1.0, brief.chance), times[i]);
        MixAt(coins, Hit(coin, brief.rate, 0.6, brief.chance), times[i] + 0.017, 0.5);
    }
    return coins;
}

Sound Fanfare(Brief brief) {
    Sound fanfare = brief.Blank();
    struct Note {
        double at, seconds;
        const char* top;
        const char* middle;
        const char* low;
    };
    constexpr Note fall[] = {{0.02, 0.14, "g4", "e4", "c3"},
                             {0.18, 0.14, "g4", "e4", "c3"},
                             {0.34, 0.14, "g4", "e4", "c3"},
                             {0.5, 0.26, "c5", "g4", "e3"},
                             {0.78, 0.74, "e5", "c5", "c3"}};
    for (const Note& note : fall) {
        MixAt(fanfare, Brass(brief.rate, NoteHz(note.top), note.seconds, brief.chance), note.at);
        MixAt(fanfare, Brass(brief.rate, NoteHz(note.middle), note.seconds, brief.chance), note.at,
              0.8);
        MixAt(fanfare, Brass(brief.rate, NoteHz(note.low), note.seconds, brief.chance), note.at,
              0.6);
    }
    MixAt(fanfare, Cymbal(brief.rate, 0.9, brief.chance), 0.78, 0.25);
    AddRoom(fanfare, {12, 0.9, 4000, 0.2});
    return fanfare;
}

std::span<const RecipeEntry> MoneyRecipes() {
    static constexpr std::array<RecipeEntry, 4> all_recipes{{
        {"tamlo19", NewOrder},
        {"tamlo38", Fanfare},
        {"tamlo81", BankNotes},
        {"tamlo85", Coins},
    }};
    return all_recipes;
}

}  // namespace tamlo::soundsmith
