#include "app/city/hear_city.h"

#include "city/city_check.h"
#include "city/streets_file.h"
#include "game/form1.h"
#include "game/restaurant.h"
#include "services/end_of_process.h"
#include "services/events.h"
#include "services/key_codes.h"
#include "speech/menus.h"

namespace tamlo {
namespace {

constexpr int leave = -1;
constexpr int help = -2;

MenuKey ListKey(const Form1& form) {
    if (form.gs.g == keys::escape) return MenuKey::Leave(leave);
    if (form.gs.g == keys::f1) return MenuKey::Leave(help);
    return {};
}

void Welcome(Form1& form, const std::string& city) {
    form.say2(" The names of " + city +
              ". Up and Down arrow move from name to name, Enter speaks a corner, Escape leaves. ");
}

void TakeNames(GameState& gs, const std::vector<std::string>& names) {
    int at = 0;
    for (const std::string& name : names) {
        ++at;
        (at <= most_roads ? gs.ewnames(at) : gs.nsnames(at - most_roads)) = name;
    }
    gs.dirnames(gs.roz) = "North";
}

/// The corner of a road with a street of the restaurant, or of a street with its road.
void SayCorner(Form1& form, int name) {
    form.gs.rox = name <= most_roads ? restaurant_west_street : name - most_roads;
    form.gs.roy = name <= most_roads ? name : restaurant_road;
    form.clk();
    form.saywhere();
    form.w4s();
}

}  // namespace

void HearCity(Form1& form, const std::string& city, const std::vector<std::string>& names) {
    form.platform.events.ShowWindow(" The names of a city ");
    form.opensound();
    form.countvoices();
    form.getdatapath();
    form.readCFG();
    form.setupvoice();
    TakeNames(form.gs, names);
    std::vector<std::string> spoken;
    for (std::size_t i = 0; i < names.size(); ++i) {
        spoken.push_back(" " + PlaceOfName(static_cast<int>(i) + 1) + ", " + names[i] + " ");
    }
    ListMenu menu{.prompt = "", .extra = [&form](int) { return ListKey(form); }};
    menu.items.assign(spoken.begin(), spoken.end());
    Welcome(form, city);
    while (true) {
        const int item = form.runMenu(menu);
        if (item == leave) break;
        if (item == help) {
            Welcome(form, city);
            continue;
        }
        SayCorner(form, item);
        menu.first = item;  // the list continues at this item
    }
    form.say(" Good bye. ");
    throw EndOfProcess{};
}

}  // namespace tamlo
