// The options menu and its dialogs: voice, rate, volume, gender. Each applies a change at once, so
// that it is audible, and stores the settings at its end.
#include <functional>

#include "game/form1.h"
#include "game/volumes.h"
#include "services/key_codes.h"
#include "services/sound.h"
#include "services/speech.h"
#include "speech/menus.h"

namespace tamlo {
namespace {

constexpr int voice_volume_step = 5;
constexpr int sound_volume_step = 100;

/// Offers the voices one by one, from the first, until one is taken.
void OfferVoices(Form1& form) {
    GameState& gs = form.gs;
    const YesNoPrompt offer{.question = "do you wish to use this voice",
                            .lead = YesNoPrompt::Lead::clear,
                            .letters = YesNoPrompt::Letters::before_arrows,
                            .echoes = false};
    gs.nv = 0;
    form.prepare(gs.wb1, "tamlo24");
    gs.wb1->Play(PlayMode::once);
    while (true) {
        form.setupvoice();
        form.dy(0.2);
        if (form.askYesNo(offer) == 1) return;
        gs.nv = gs.nv + 1 < gs.nov ? gs.nv + 1 : 0;
    }
}

/// Changes the volume by a step within its limits, and speaks a word for it.
void ChangeVoiceVolume(Form1& form, int step) {
    GameState& gs = form.gs;
    gs.vv += step;
    const char* word = step > 0 ? " louder " : " quieter ";
    if (step > 0 && gs.vv >= 100) {
        gs.vv = 100;
        word = " maximum ";
    } else if (step < 0 && gs.vv <= 0) {
        gs.vv = 0;
        word = " minimum ";
    }
    gs.Voice->SetVolume(gs.vv);
    form.say2(word);
}

/// Tells what to do, then changes a volume with the arrow keys until Enter is pressed.
void ByArrows(Form1& form, const std::function<void()>& tell,
              const std::function<void(bool louder)>& change) {
    const std::string& g = form.gs.g;
    while (true) {
        tell();
        while (true) {
            form.getkey();
            form.stopspeech();
            if (g == keys::enter) return;
            if (g != keys::up && g != keys::down) break;
            change(g == keys::up);
        }
        if (g != keys::f1) form.saykey();
    }
}

void AdjustVoiceVolume(Form1& form) {
    const auto tell = [&form] {
        form.clk();
        form.say2(
            " use the up and down arrow keys to raise and lower the volume of the voice. "
            "  Press enter when you have the volume set the way that you want it. ");
    };
    ByArrows(form, tell, [&form](bool louder) {
        ChangeVoiceVolume(form, louder ? voice_volume_step : -voice_volume_step);
    });
}

void ChangeSoundVolume(Form1& form, int step) {
    GameState& gs = form.gs;
    gs.wavol += step;
    const char* word = step > 0 ? " louder " : " quieter ";
    if (step > 0 && gs.wavol >= 0) {
        gs.wavol = 0;
        word = " maximum ";
    } else if (step < 0 && gs.wavol < quietest_sound) {
        gs.wavol = quietest_sound;
        word = " minimum ";
    }
    form.say2(word);
}

/// Plays the test sound at the new volume, together with the word; a key cuts it short.
void HearSoundVolume(Form1& form) {
    GameState& gs = form.gs;
    form.clk();
    gs.wb1->SetCurrentPosition(0);
    gs.wb1->SetVolume(gs.wavol);
    gs.wb1->Play(PlayMode::once);
    do {
        form.keyturn(gs.wb1->SecondsLeft());
    } while (gs.g.empty() && gs.wb1->GetStatus() == status_playing);
    gs.wb1->Stop();
    form.clk();
}

void AdjustSoundVolume(Form1& form) {
    GameState& gs = form.gs;
    form.clk();
    form.prepare(gs.wb1, "tamlo24");
    gs.wb1->Play(PlayMode::once);
    form.dy(1.5);
    gs.wb1->Stop();
    const auto tell = [&form] {
        form.say2(
            " use the up and down arrow keys to adjust the volume of the sounds. "
            "  Press enter when you have the volume set the way that you want it. ");
    };
    ByArrows(form, tell, [&form](bool louder) {
        ChangeSoundVolume(form, louder ? sound_volume_step : -sound_volume_step);
        HearSoundVolume(form);
    });
}

}  // namespace

void Form1::omen() {
    const ListMenu menu{.items = {" return to the game ", " reed instructions ",
                                  " reed special key instructions ", " change voice ",
                                  " adjust rate of speech ", " adjust volume ", " choose gender "},
                        .clear = true};
    while (true) {
        switch (runMenu(menu)) {
            case 1: return;
            case 2: readins(); break;
            case 3: speckeys(); break;
            case 4: changevoice(); break;
            case 5: adjrate(); break;
            case 6: adjvol(); break;
            default: choosegender(); dy(0.2);
        }
    }
}

void Form1::choosegender() {
    gs.gnd = runMenu({.items = {" female ", " male "}});
    printCFG();
}

void Form1::changevoice() {
    clk();
    if (gs.nov > 1) OfferVoices(*this);
    clk();
    printCFG();
}

void Form1::adjrate() {
    do {
        clk();
        gs.Voice->SetRate(gs.vr);
        say2("to adjust the speech rate, use the arrow keys and then press enter");
        say2(std::to_string(gs.vr));
        while (true) {
            // getkey would let Enter cut the instruction short.
            gs.g.clear();
            while (gs.g.empty()) pumpEvents(until_event);
            if (gs.g != keys::up && gs.g != keys::down) break;
            gs.vr += gs.g == keys::up ? 1 : -1;
            gs.Voice->SetRate(gs.vr);
            stopspeech();
            say2(std::to_string(gs.vr));
        }
    } while (gs.g != keys::enter);
    clk();
    printCFG();
}

void Form1::adjvol() {
    AdjustVoiceVolume(*this);
    AdjustSoundVolume(*this);
    gs.wb1.reset();
    printCFG();
    clk();
    dy(0.2);
    for (const auto* buffer : {&gs.wbstart, &gs.wbgo, &gs.wbidle, &gs.wbppk, &gs.wbbg}) {
        (*buffer)->SetVolume(gs.wavol);
    }
}

}  // namespace tamlo
