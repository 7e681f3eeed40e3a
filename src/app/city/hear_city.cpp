#include "app/city/hear_city.h"

#include <utility>

#include "app/tool_list.h"
#include "city/city_check.h"
#include "city/streets_file.h"
#include "game/form1.h"
#include "game/restaurant.h"

namespace tamlo {
namespace {

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
    OpenTool(form, " The names of a city ");
    TakeNames(form.gs, names);
    std::vector<std::string> spoken;
    for (std::size_t i = 0; i < names.size(); ++i) {
        spoken.push_back(" " + PlaceOfName(static_cast<int>(i) + 1) + ", " + names[i] + " ");
    }
    ListMenu list{.prompt = ""};
    list.items.assign(spoken.begin(), spoken.end());
    RunToolList(form, std::move(list),
                " The names of " + city +
                    ". Up and Down arrow move from name to name, Enter speaks a corner, Escape "
                    "leaves. ",
                [&form](int item) { SayCorner(form, item); });
}

}  // namespace tamlo
