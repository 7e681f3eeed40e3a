// The vehicle's sounds (start, idle, acceleration), the restaurant's loop, and the switch of the
// rev sound.
#include <cmath>

#include "game/form1.h"
#include "services/sound.h"

namespace tamlo {

void Form1::startcar() {
    gs.wbstart->SetCurrentPosition(0);
    gs.wbstart->Play(PlayMode::once);
    waitfor(*gs.wbstart);
    gs.wbstart->Stop();
}

void Form1::playgo() {
    clk();
    gs.wbgo->SetCurrentPosition(0);
    gs.wbgo->SetVolume(gs.wavol);
    gs.wbgo->SetFrequency(static_cast<int>(std::lround(22051 + 327 * (gs.sped - 35))));
    gs.wbgo->Play(PlayMode::once);
    waitfor(*gs.wbgo);
    gs.wbgo->Stop();
}

// The loops continue where they were stopped.
void Form1::pidl() {
    gs.wbidle->Play(PlayMode::looping);
}
void Form1::stoppidl() {
    gs.wbidle->Stop();
}
void Form1::ppk() {
    gs.wbppk->Play(PlayMode::looping);
}
void Form1::stopppk() {
    gs.wbppk->Stop();
}

void Form1::togcar() {
    if (gs.cartog == 1) {
        gs.cartog = 2;
        say("vehicle rev sound off");
    } else {
        gs.cartog = 1;
        say(" vehicle rev sound on ");
    }
    gs.g.clear();
    gs.g2.clear();
}

}  // namespace tamlo
