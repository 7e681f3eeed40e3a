// Playing effects: to the end, until a key is pressed, without waiting, or in a loop; and the
// preloaded buffers of the vehicle and the background.
#include "game/form1.h"
#include "game/vehicles.h"
#include "services/sound.h"

namespace tamlo {
namespace {

constexpr int backgrounds = 4;
constexpr int fade_steps = 15;
constexpr int fade_step = 85;  // hundredths of a decibel

/// Changes the volume of the background step by step.
void Fade(Form1& form, int step) {
    for (int i = 0; i < fade_steps; ++i) {
        form.gs.ajv += step;
        form.gs.wbbg->SetVolume(form.gs.ajv);
        form.dy(0.2);
    }
}

}  // namespace

void Form1::prepare(std::unique_ptr<SoundBuffer>& buffer, std::string_view name) {
    buffer = gs.ds8->CreateBufferFromFile(name, gs.bufdesc);
    buffer->SetCurrentPosition(0);
    buffer->SetVolume(gs.wavol);
    buffer->SetFrequency(buffer->GetFrequency() + 1);
}

void Form1::waitfor(const SoundBuffer& buffer) {
    do {
        pumpEvents(buffer.SecondsLeft());
    } while (buffer.GetStatus() == status_playing);
}

void Form1::play(std::string_view name) {
    clk();
    prepare(gs.wb1, name);
    gs.wb1->Play(PlayMode::once);
    waitfor(*gs.wb1);
    gs.wb1.reset();
}

void Form1::play2(std::string_view name) {
    clk();
    prepare(gs.wb2, name);
    gs.wb2->Play(PlayMode::once);
    do {
        keyturn(gs.wb2->SecondsLeft());
    } while (gs.g.empty() && gs.wb2->GetStatus() == status_playing);
    gs.wb2->Stop();
    gs.wb2.reset();
}

void Form1::play3(std::string_view name) {
    clk();
    prepare(gs.wb2, name);
    gs.wb2->Play(PlayMode::once);
}

void Form1::playloop(std::string_view name) {
    prepare(gs.wbloop, name);
    gs.wbloop->Play(PlayMode::looping);
}

void Form1::stoploop() {
    if (!gs.wbloop) return;
    gs.wbloop->Stop();
    gs.wbloop.reset();
}

void Form1::opensound() {
    gs.dx8 = &platform.sound;
    gs.ds8 = gs.dx8->CreateDevice();
    gs.ds8->SetCooperativeLevel(2);
    gs.bufdesc.flags = BufferDescription::control_frequency | BufferDescription::control_pan |
                       BufferDescription::control_volume;
}

void Form1::starttitle() {
    // Always at full volume and 8000 samples per second, whatever the settings are.
    gs.wb1 = gs.ds8->CreateBufferFromFile("tamlo1", gs.bufdesc);
    gs.wb1->SetCurrentPosition(0);
    gs.wb1->SetVolume(0);
    gs.wb1->SetFrequency(8000);
    gs.wb1->Play(PlayMode::once);
}

void Form1::endtitle() {
    do {
        keyturn(gs.wb1->SecondsLeft());
    } while (gs.g.empty() && gs.wb1->GetStatus() == status_playing);
    gs.wb1->Stop();
    gs.wb1.reset();
}

void Form1::pbg() {
    seed();
    prepare(gs.wbbg, "tamlob" + std::to_string(draw(backgrounds)));
    gs.wbbg->Play(PlayMode::looping);
}

void Form1::bgdown() {
    gs.ajv = gs.wavol;
    Fade(*this, -fade_step);
}

void Form1::bgup() {
    Fade(*this, fade_step);
}

void Form1::bgstop() {
    gs.wbbg->Stop();
}

void Form1::ldwv() {
    ldwv2();
    prepare(gs.wbppk, "tamlo5");
    prepare(gs.wbbg, "tamlob1");
}

void Form1::ldwv2() {
    const Vehicle* vehicle = VehicleOf(gs.plast);
    if (vehicle == nullptr) return;
    prepare(gs.wbstart, vehicle->start_sound);
    prepare(gs.wbgo, vehicle->go_sound);
    prepare(gs.wbidle, vehicle->idle_sound);
}

}  // namespace tamlo
