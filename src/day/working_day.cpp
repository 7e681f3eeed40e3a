// The start of a game and the working day: visits to the restaurant, and trips between them.
#include "game/form1.h"
#include "game/restaurant.h"
#include "orders/sentences.h"
#include "services/key_codes.h"
#include "speech/menus.h"
#include "text/play_time.h"

namespace tamlo {
namespace {

/// Tells that the chosen city has too few names, and asks whether to play with the default ones.
bool PlayWithDefaultNames(Form1& form) {
    form.sos();
    const ListMenu choice{.items = {" return to the main menu. ", " start game "},
                          .pause = true,
                          .clear = true,
                          .extra = [&form](int) {
                              form.saykey();
                              return MenuKey::Leave(0);
                          }};
    int item = 0;
    while (item == 0) {
        form.say(" I 'm sorry, but there were not enough names of streets in the " +
                 form.gs.csfnames(form.gs.nsf) + " file. ");
        form.dy(0.2);
        form.say(" The names of the streets have been set to the original names. ");
        form.dy(0.2);
        form.clk();
        form.dy(0.2);
        item = form.runMenu(choice);
    }
    return item == 2;
}

void CheckCash(Form1& form) {
    form.say(" You have" + form.money(form.gs.cash) + ". You have " + TamlosDelivered(form.gs.npd));
}

MenuKey RestaurantKey(Form1& form) {
    if (form.gs.g == keys::f1) {
        form.sayord();
        return MenuKey::Restart();
    }
    return form.announce() ? MenuKey::Restart() : MenuKey{};
}

/// Runs the restaurant menu until the player chooses to deliver; quitting ends the process.
void RestaurantMenu(Form1& form) {
    const ListMenu menu{
        .items = {" deliver tamlo ", " quit for the day ", " check cash ", " options menu "},
        .extra = [&form](int) { return RestaurantKey(form); }};
    while (true) {
        switch (form.runMenu(menu)) {
            case 1: return;
            case 2:
                if (form.saga()) form.runEnd();
                break;
            case 3: CheckCash(form); break;
            default: form.omen();
        }
    }
}

/// A visit to the restaurant, until the orders of the next trip are made.
void Visit(Form1& form) {
    GameState& gs = form.gs;
    gs.engon = 0;
    gs.noos = 1;
    if (gs.plast == 2 || gs.plast == 3) gs.noos = form.draw(gs.plast);
    gs.tit = 0;
    if (gs.saidhome == 1) {
        gs.saidhome = 2;
        form.say(" You are at The Tamlo Vorrel, which is on the south side of " +
                 gs.ewnames(restaurant_road) + " between " + gs.nsnames(restaurant_west_street) +
                 " and " + gs.nsnames(restaurant_east_street) + ". ");
    }
    form.dy(0.3);
    if (gs.firsttrip == 1) {
        gs.firsttrip = 2;
    } else {
        RestaurantMenu(form);
    }
    form.getord();
    gs.triptips = 0;
}

}  // namespace

bool Form1::startgame() {
    glocs();
    telltroubles();  // before a day's work that could not be saved
    if (gs.ncsf == 1) return true;
    dy(0.2);
    ssf(" select the city streets file to play ");
    setstreets2();
    return gs.sok != 2 || PlayWithDefaultNames(*this);
}

void Form1::workday() {
    ppk();
    dy(0.3);
    gs.atod = start_of_day;
    saytime();
    while (true) {
        Visit(*this);
        trip();
        comeback();
    }
}

}  // namespace tamlo
