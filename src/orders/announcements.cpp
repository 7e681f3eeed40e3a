// What the player can ask for at any time: the open orders and the clocks.
#include <cmath>

#include "game/form1.h"
#include "game/restaurant.h"
#include "services/clock.h"
#include "services/key_codes.h"
#include "services/speech.h"
#include "text/clock_text.h"

namespace tamlo {
namespace {

/// " They are expecting ...": only the first time that the orders are read out.
std::string Expectation(const GameState& gs, int order) {
    if (gs.nst > gs.noos - 1) return "";
    const int minutes = static_cast<int>(std::floor(gs.ordeta(order) / 60.0));
    return std::string(" They are expecting their ") + (gs.ordqty(order) < 2 ? "tamlo" : "tamlos") +
           " in approximately " + std::to_string(minutes) + " minute" + (minutes == 1 ? "" : "s");
}

/// A key silences the order being read and, since the key stays pending, the remaining ones.
void ReadOrder(Form1& form, const std::string& text) {
    if (!form.gs.g.empty()) return;
    form.say2(text);
    form.dy(0.3);
    while (form.gs.g.empty() && form.speaking()) form.pumpEvents(form.gs.Voice->SecondsLeft());
    form.stopspeech();
}

}  // namespace

void Form1::sayord() {
    clk();
    if (gs.p2d == 0) {
        say2(
            " You no longer have any tamlos to deliver. It's time to head back to the Tamlo Vorrel"
            ", on " +
            gs.ewnames(restaurant_road) + ", between " + gs.nsnames(restaurant_west_street) +
            " and " + gs.nsnames(restaurant_east_street) + ". ");
        return;
    }
    for (int order = 1; order <= gs.noos; ++order) {
        if (gs.ordopen(order) != 1) continue;
        dy(0.2);
        ReadOrder(*this, gs.ordtext(order) + " " + Expectation(gs, order));
        ++gs.nst;
        logline(gs.ordtext(order));
        dy(0.3);
    }
}

void Form1::saytime() {
    const std::string text = " The time is " + GameTime(gs.atod);
    say(text);
    if (gs.ypt == 1) logline(text);
}

void Form1::sayctt() {
    say(" Your current delivery trip time is " + TripTime(gs.tit));
}

void Form1::sayrealtime() {
    say2(" The real time is " + RealTime(platform.clock.Now()));
}

bool Form1::announce() {
    if (gs.g == keys::f2) {
        saytime();
    } else if (gs.g == keys::f3) {
        sayctt();
    } else if (gs.g == keys::f4) {
        saylay();
    } else if (gs.g == keys::f5) {
        togcar();
    } else if (gs.g == keys::f6) {
        sayrealtime();
    } else {
        return false;
    }
    return true;
}

}  // namespace tamlo
