// A delivery trip, corner by corner.
#include "game/form1.h"
#include "game/restaurant.h"
#include "services/key_codes.h"
#include "speech/menus.h"

namespace tamlo {
namespace {

constexpr int seconds_standing = 70;  // driving a block costs this minus the speed

/// Results of the trip's menus other than their items.
enum Choice { repeat_orders = -1, repeat_corner = -2, ask_exit = -3 };

MenuKey DepartureKey(Form1& form) {
    const std::string& g = form.gs.g;
    if (g == keys::left) return MenuKey::Move(1);
    if (g == keys::right) return MenuKey::Move(2);
    if (g == keys::escape) {
        form.stoploop();
        form.runEnd();
    }
    if (g == keys::f1) return MenuKey::Leave(repeat_orders);
    return form.announce() ? MenuKey::Restart() : MenuKey{};
}

MenuKey CornerKey(Form1& form) {
    const std::string& g = form.gs.g;
    if (g == keys::left) return MenuKey::Move(2);
    if (g == keys::right) return MenuKey::Move(3);
    if (g == keys::escape) return MenuKey::Leave(ask_exit);
    if (g == keys::f1) {
        form.sayord();
        return MenuKey::Leave(repeat_corner);
    }
    return form.announce() ? MenuKey::Leave(repeat_corner) : MenuKey{};
}

/// Reads the orders and starts the engine, once a trip.
void StartTrip(Form1& form) {
    form.dy(0.3);
    form.sayord();
    form.dy(0.2);
    if (form.gs.engon == 1) return;
    form.stopppk();
    form.startcar();
    form.pidl();
    form.pbg();
    form.gs.engon = 1;
}

/// The departure menu, until the car leaves to the west or the east.
void Depart(Form1& form) {
    const ListMenu menu{.prompt = " Select ",
                        .items = {" turn left, west ", " turn right, east ", " options menu "},
                        .extra = [&form](int) { return DepartureKey(form); }};
    StartTrip(form);
    while (true) {
        switch (form.runMenu(menu)) {
            case 1:
                form.gs.rox = restaurant_west_street;
                form.gs.roy = restaurant_road;
                form.gs.roz = 4;
                return;
            case 2:
                form.gs.rox = restaurant_east_street;
                form.gs.roy = restaurant_road;
                form.gs.roz = 2;
                return;
            case repeat_orders: StartTrip(form); break;
            default: form.omen();
        }
    }
}

/// The speed, the engine, the time of a block.
void MoveOff(Form1& form, bool from_a_corner) {
    GameState& gs = form.gs;
    form.GetSped();
    gs.oc1 = 1;
    if (from_a_corner) form.stoppidl();
    if (gs.cartog == 1) {
        form.playgo();
    } else {
        form.pidl();
        form.play2("tamlo18");
        form.dy(0.3);
        form.stoppidl();
    }
    form.pidl();
    form.addtime(seconds_standing - gs.sped);
}

/// Says where the car is and plays out the road events that are due.
void ArriveAtCorner(Form1& form) {
    form.dy(0.2);
    form.pbg();
    form.saywhere();
    if (form.gs.oc1 == 1) {
        form.checkspec();
        form.gs.oc1 = 2;
    }
    form.dy(0.3);
}

/// Leaving the game on the road deletes the saved game.
void AskExit(Form1& form) {
    const int answer = form.askYesNo(
        {.question = " Do you wish to exit the game? ", .lead = YesNoPrompt::Lead::pause_clear});
    if (answer != 1) return;
    form.endsaga();
    form.runEnd();
}

/// Runs the menu at a corner until a way is chosen: 1 forward, 2 left, 3 right.
int ChooseWay(Form1& form) {
    const ListMenu menu{.prompt = " Select ",
                        .items = {" go forward ", " turn left ", " turn right ", " options menu "},
                        .extra = [&form](int) { return CornerKey(form); }};
    while (true) {
        ArriveAtCorner(form);
        const int choice = form.runMenu(menu);
        if (choice >= 1 && choice <= 3) return choice;
        if (choice == ask_exit) AskExit(form);
        if (choice == 4) form.omen();
    }
}

void ChangeHeading(GameState& gs, int way) {
    if (way == 2) gs.roz = gs.roz > 1 ? gs.roz - 1 : 4;
    if (way == 3) gs.roz = gs.roz < 4 ? gs.roz + 1 : 1;
}

/// The first order for this corner, 0 if there is none. Delivered orders have the corner (-1, -1).
int OrderHere(const GameState& gs) {
    for (int k = 1; k <= gs.noos; ++k) {
        if (gs.ordx(k) == gs.rox && gs.ordy(k) == gs.roy) return k;
    }
    return 0;
}

}  // namespace

void Form1::trip() {
    Depart(*this);
    MoveOff(*this, false);
    while (true) {
        ChangeHeading(gs, ChooseWay(*this));
        moveblock();
        MoveOff(*this, true);
        if (gs.p2d <= 0 && IsRestaurant(gs.rox, gs.roy)) return;
        if (const int k = OrderHere(gs)) deliver(k);
    }
}

}  // namespace tamlo
