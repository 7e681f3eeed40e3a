// The random scenes: something passes the driver. The pan steps are heard as movement, so every
// delay is waited for in full.
#include "driving/road_scenes.h"

#include "game/form1.h"
#include "services/sound.h"

namespace tamlo {
namespace {

/// 1 for a scene that comes from the right, -1 from the left.
int DrawSide(Form1& form) {
    return form.draw(2) == 1 ? 1 : -1;
}

/// Moves `wbloop` from one pan to another, including the end if it is a whole number of steps away.
void Sweep(Form1& form, int side, int from, int to, int step, double pause) {
    for (int pan = from; pan >= to; pan -= step) {
        form.gs.wbloop->SetPan(side * pan);
        form.dy(pause);
    }
}

void SlowCrossing(Form1& form, const RoadScene& scene) {
    form.w4s();
    form.playloop(scene.sound);
    Sweep(form, DrawSide(form), scene.width, -scene.width, scene.step, 0.3);
    form.stoploop();
}

void Crossing(Form1& form, const RoadScene& scene) {
    form.prepare(form.gs.wbloop, scene.sound);
    form.w4s();
    const int side = DrawSide(form);
    form.gs.wbloop->SetPan(side * scene.width);
    form.gs.wbloop->Play(PlayMode::looping);
    Sweep(form, side, scene.width, -scene.width, scene.step, 0.1);
    form.gs.wbloop->Stop();
}

void Bus(Form1& form, const RoadScene& scene) {
    form.prepare(form.gs.wbloop, scene.sound);
    form.w4s();
    const int side = DrawSide(form);
    form.gs.wbloop->SetPan(side * scene.width);
    form.gs.wbloop->Play(PlayMode::once);
    Sweep(form, side, scene.width, 0, scene.step, 0.1);
    form.dy(5);
    Sweep(form, side, 0, -scene.width, scene.step, 0.1);
    form.stoploop();
}

constexpr int spacing = 333;     // pan between one copy and the next
constexpr int line_end = -2750;  // where the leader's pan ends
constexpr int silenced = -6400;  // volume of a copy that has passed
constexpr int silence_delay =
    150;  // additional time for which each copy is heard after the one ahead

void FiveInLine(Form1& form, const RoadScene& scene) {
    GameState& gs = form.gs;
    const std::array<std::unique_ptr<SoundBuffer>*, 5> copies = {&gs.wbloop, &gs.wbgrp2, &gs.wbgrp3,
                                                                 &gs.wbgrp4, &gs.wbgrp5};
    for (auto* copy : copies) form.prepare(*copy, scene.sound);
    form.w4s();
    const int side = DrawSide(form);
    const auto place = [&](int leader) {
        int behind = 0;
        for (auto* copy : copies) (*copy)->SetPan(side * (leader + spacing * behind++));
    };
    place(scene.width);
    for (auto* copy : copies) {
        (*copy)->Play(PlayMode::looping);
        if (copy != copies.back()) form.dy(0.4);
    }
    for (int leader = scene.width; leader >= line_end; leader -= scene.step) {
        place(leader);
        form.dy(0.1);
        int gone = -scene.width;
        for (auto* copy : copies) {
            if (leader < gone) (*copy)->SetVolume(silenced);
            gone -= silence_delay;
        }
    }
    for (auto* copy : copies) (*copy)->Stop();
    for (auto* copy : copies) copy->reset();
}

}  // namespace

void Form1::playscene(int number) {
    const RoadScene& scene = road_scenes.at(static_cast<std::size_t>(number) - 1);
    switch (scene.movement) {
        case Movement::ambulance:
            w4s();
            playambu();
            break;
        case Movement::slow_crossing: SlowCrossing(*this, scene); break;
        case Movement::centred:
            w4s();
            play(scene.sound);
            break;
        case Movement::truck: playtruck(); break;
        case Movement::crossing: Crossing(*this, scene); break;
        case Movement::bus: Bus(*this, scene); break;
        case Movement::five_in_line: FiveInLine(*this, scene); break;
    }
}

}  // namespace tamlo
