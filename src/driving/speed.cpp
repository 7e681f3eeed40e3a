// The speed prompt: one or two digit keys, limited by the vehicle.
#include "game/form1.h"
#include "game/vehicles.h"
#include "services/key_codes.h"

namespace tamlo {
namespace {

bool IsDigitKey(const GameState& gs) {
    return gs.g2.size() == 1 && gs.g2[0] >= '0' && gs.g2[0] <= '9';
}

int Digit(const GameState& gs) {
    return gs.g2[0] - '0';
}

void Reject(Form1& form) {
    form.saykey();
    form.dy(0.2);
    form.say(" " + form.gs.g2 + " was not a valid input. Please press a number for the speed. ");
    form.dy(0.3);
}

/// Reads one or two digits into `sped`; a single digit followed by Enter counts tens. False after a
/// wrong key.
bool TypeSpeed(Form1& form) {
    if (!IsDigitKey(form.gs)) return false;
    const int tens = Digit(form.gs);
    form.saykey();
    form.getkey();
    int ones = 0;
    if (form.gs.g != keys::enter) {
        if (!IsDigitKey(form.gs)) return false;
        ones = Digit(form.gs);
        form.saykey();
    }
    form.gs.sped = 10 * tens + ones;
    return true;
}

void CapSpeed(Form1& form) {
    const Vehicle* vehicle = VehicleOf(form.gs.plast);
    if (!vehicle || form.gs.sped <= vehicle->top_speed) return;
    form.say(vehicle->too_fast);
    form.gs.sped = vehicle->top_speed;
}

}  // namespace

void Form1::GetSped() {
    while (true) {
        gs.oc1 = 1;
        say2(" How fast do you wish to go? ");
        getkey();
        if (gs.g == keys::enter) {
            gs.sped = gs.spedo;
        } else if (TypeSpeed(*this)) {
            CapSpeed(*this);
            gs.spedo = gs.sped;
        } else {
            Reject(*this);
            continue;
        }
        if (gs.sped >= 1) return;
        say(" You are already going zero miles an hour.  Try again. ");
    }
}

void Form1::setmaxa() {
    if (const Vehicle* vehicle = VehicleOf(gs.plast)) {
        gs.mst = vehicle->area_streets;
        gs.mew = vehicle->area_roads;
    }
}

}  // namespace tamlo
