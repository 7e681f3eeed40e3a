// The player's position: the corner and heading, the city's layout, and driving one block.
#include "city/street_names.h"
#include "game/form1.h"
#include "services/desktop.h"

namespace tamlo {
namespace {

struct Heading {
    int east, south;  // change of street and road
};
constexpr std::array<Heading, 4> headings = {{{0, -1}, {1, 0}, {0, 1}, {-1, 0}}};

}  // namespace

void Form1::sos() {
    for (int road = 1; road <= most_roads; ++road) {
        gs.ewnames(road) = default_roads[static_cast<std::size_t>(road) - 1];
    }
    for (int street = 1; street <= most_streets; ++street) {
        gs.nsnames(street) = DefaultStreet(street);
    }
}

void Form1::saywhere() {
    say2(" You are at the corner of " + gs.nsnames(gs.rox) + " and " + gs.ewnames(gs.roy) +
         ", heading " + gs.dirnames(gs.roz));
}

// Always the default names, even in a city that the player has made.
void Form1::saylay() {
    clk();
    say2(
        "Center runs east to west. "
        "East from fifty first avenue to first avenue, then west from first street to fifty first "
        "street. "
        "North of Center the names are names of trees in alphabetical order from Apple to Willow. "
        "South of Center they are names of automobile manufactures in alphabetical order from "
        "Buick to Volkswagon.");
    w4s();
}

void Form1::moveblock() {
    const Heading& heading = headings[static_cast<std::size_t>(gs.roz) - 1];
    const int street = gs.rox + heading.east;
    const int road = gs.roy + heading.south;
    if (street < 1 || street > most_streets || road < 1 || road > most_roads) {
        platform.desktop.Beep();
        return;
    }
    gs.rox = street;
    gs.roy = road;
}

}  // namespace tamlo
