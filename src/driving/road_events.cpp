// Road events at a corner: crossings, traps, hospitals, the truck, patrols, random scenes.
#include <algorithm>
#include <cmath>

#include "driving/hazards.h"
#include "driving/road_scenes.h"
#include "game/form1.h"
#include "services/clock.h"
#include "services/random.h"
#include "services/sound.h"
#include "text/number_text.h"

namespace tamlo {
namespace {

constexpr int scene_odds = 42;  // a scene plays at one corner in so many: when the draw
constexpr int scene_draw = 22;  // is this number
constexpr double patrol_base = 91;

/// A railway crossing: a train two times in three.
void c4train(Form1& form) {
    form.seed();
    if (form.draw(3) == 2) return;
    form.w4s();
    form.addtime(form.draw(120, 180));
    form.playloop("tamlo20");
    form.dy(1);
    form.play(form.draw(2) == 1 ? "tamlo21" : "tamlo22");
    form.dy(1);
    form.stoploop();
}

/// A police stop: a warning, and the time it takes.
void playbust(Form1& form) {
    form.w4s();
    form.play("tamlo25");
    form.addtime(form.draw(120, 300));
    form.dy(0.2);
    form.say(" The officer pulls you over and gives you a warning for going " +
             Plain(form.gs.sped) + " miles an hour. ");
    form.dy(0.3);
}

/// Plays a hazard; true if the check of the corner ends with it.
bool PlayHazard(Form1& form, HazardKind kind) {
    switch (kind) {
        case HazardKind::crossing: c4train(form); return true;
        case HazardKind::truck:
            form.playtruck();
            form.addtime(form.draw(60, 60));
            return true;
        case HazardKind::trap:
            if (form.gs.sped <= speed_limit) return false;
            playbust(form);
            return true;
        case HazardKind::hospital:
            form.w4s();
            form.playambu();
            form.addtime(form.draw(60, 60));
            return false;
    }
    return false;
}

/// Draws a random patrol; true if it stopped the driver.
bool PatrolStops(Form1& form) {
    if (!Patrolled(form.gs.rox, form.gs.roy) || form.gs.sped <= patrol_speed) return false;
    const double odds = patrol_base - form.gs.sped;
    const double hit = std::floor(odds / 3);
    if (hit != std::floor(form.platform.random.Next() * odds) + 1) return false;
    playbust(form);
    return true;
}

/// Draws a scene other than the last four, and records it.
int DrawScene(Form1& form) {
    auto& history = form.gs.evhist;
    int scene = 0;
    do {
        scene = form.draw(static_cast<int>(road_scenes.size()));
    } while (std::find(history.begin(), history.end(), scene) != history.end());
    std::move(history.begin() + 1, history.end(), history.begin());
    history(history.size()) = scene;
    return scene;
}

}  // namespace

void Form1::seed() {
    platform.random.Seed(platform.clock.SecondsSinceMidnight());
}

int Form1::draw(int n, int k) {
    return static_cast<int>(platform.random.Next() * n) + k;
}

void Form1::addtime(double seconds) {
    gs.tit += seconds;
    gs.atod += seconds;
}

void Form1::checkspec() {
    seed();
    for (const Hazard& hazard : hazards) {
        const bool here = gs.rox == hazard.street && gs.roy == hazard.road;
        if (here && PlayHazard(*this, hazard.kind)) return;
    }
    if (PatrolStops(*this)) return;
    if (draw(scene_odds) != scene_draw) return;
    playscene(DrawScene(*this));
    addtime(draw(30, 30));
}

// The steps of 0.07 s are heard as movement, so every one is waited for in full.
void Form1::playambu() {
    constexpr int range = 1000;
    constexpr int step = 50;
    const int low = gs.wavol - range;
    gs.wb2 = gs.ds8->CreateBufferFromFile("tamlo23", gs.bufdesc);
    gs.wb2->SetFrequency(gs.wb2->GetFrequency() + 1);
    gs.wb2->SetVolume(low);
    gs.wb2->Play(PlayMode::once);
    for (int volume = low; volume <= gs.wavol; volume += step) {
        gs.wb2->SetVolume(volume);
        dy(0.07);
    }
    dy(0.3);
    for (int volume = gs.wavol; volume >= low; volume -= step) {
        gs.wb2->SetVolume(volume);
        dy(0.07);
    }
    dy(0.2);
    gs.wb2->Stop();
    gs.wb2.reset();
}

// Not stopped here: the truck's sound plays to its own end.
void Form1::playtruck() {
    prepare(gs.wbloop, "tamlo34");
    w4s();
    const int side = draw(2) == 1 ? 1 : -1;
    gs.wbloop->SetPan(side * 1500);
    gs.wbloop->Play(PlayMode::once);
    for (int pan = 1500; pan >= -1500; pan -= 50) {
        gs.wbloop->SetPan(side * pan);
        dy(0.1);
    }
}

}  // namespace tamlo
