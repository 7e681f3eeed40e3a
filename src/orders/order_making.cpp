// Making up the orders of a trip: quantity, size, toppings, corner, price.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "game/form1.h"
#include "game/restaurant.h"
#include "orders/menu_card.h"
#include "orders/sentences.h"
#include "text/number_text.h"
#include "text/play_time.h"

namespace tamlo {
namespace {

constexpr int most_toppings = 6;
constexpr int seconds_a_block = 40;  // expected by customers
constexpr int blocks_a_stop = 4;     // added for each stop at a door

struct Corner {
    int street, road;
};

/// The middle of every delivery area, from which the first customer's expected time is counted.
constexpr Corner area_middle{51, 22};

int Blocks(Corner from, Corner to) {
    return std::abs(to.street - from.street) + std::abs(to.road - from.road);
}

int DrawQuantity(Form1& form) {
    if (form.gs.plast == 2) {
        const int most = form.draw(3);
        return std::min(form.draw(most), 2);
    }
    if (form.gs.plast == 3) return form.draw(9, 2);
    return 1;
}

/// ", ham" · ", ham and onion" · ", ham, onion and steak": no topping occurs twice. Returns their
/// number.
int AppendToppings(Form1& form, std::string& text) {
    std::array<int, most_toppings> chosen{};
    const int count = form.draw(most_toppings);
    for (int p = 0; p < count; ++p) {
        const auto end = chosen.begin() + p;
        int topping = form.draw(form.gs.toppings.size());
        while (std::find(chosen.begin(), end, topping) != end) {
            topping = form.draw(form.gs.toppings.size());
        }
        *end = topping;
        text += count > 1 && p == count - 1 ? " and " : ", ";
        text += form.gs.toppings(topping);
    }
    return count;
}

/// Draws a coordinate from 1 to `count`, within an area of `width` around `middle`.
int DrawCoordinate(Form1& form, int width, int middle, int count) {
    const double drawn = form.draw(width) + middle - width / 2.0;
    return std::clamp(static_cast<int>(std::floor(drawn)), 1, count);
}

Corner DrawCorner(Form1& form) {
    while (true) {
        const int street = DrawCoordinate(form, form.gs.mst, area_middle.street, most_streets);
        const int road = DrawCoordinate(form, form.gs.mew, area_middle.road, most_roads);
        if (!IsRestaurant(street, road)) return {street, road};
    }
}

/// Expected trip time at the door of order k, counted on from the order before.
int ExpectedTime(const GameState& gs, int k, Corner corner) {
    if (k == 1) return seconds_a_block * Blocks(area_middle, corner);
    const Corner last{gs.ordx(k - 1), gs.ordy(k - 1)};
    return seconds_a_block * (Blocks(last, corner) + blocks_a_stop) + gs.ordeta(k - 1);
}

void MakeOrder(Form1& form, int k) {
    GameState& gs = form.gs;
    const int quantity = DrawQuantity(form);
    gs.npd = AddedUp(gs.npd, quantity);
    gs.ordqty(k) = quantity;
    const TamloSize& size = form.draw(4) == 3 ? large : extra_large;

    std::string text = OrderOpening(quantity);
    text += size.word;
    const int toppings = AppendToppings(form, text);
    text += quantity > 1 ? " tamlos" : " tamlo";
    text += ".  To be delivered to the corner of ";

    const Corner corner = DrawCorner(form);
    gs.ordx(k) = corner.street;
    gs.ordy(k) = corner.road;
    gs.ordeta(k) = ExpectedTime(gs, k, corner);
    text += gs.nsnames(corner.street) + " and " + gs.ewnames(corner.road) + ".";

    double price = size.base + toppings * size.per_topping;
    if (quantity > 1) price *= quantity;
    gs.ordprice(k) = price;
    gs.ordtext(k) = text + "  cost" + form.money(price) + ". ";
    gs.ordopen(k) = 1;
    ++gs.p2d;
}

}  // namespace

void Form1::settoppings() {
    std::copy(topping_names.begin(), topping_names.end(), gs.toppings.begin());
}

void Form1::fm5(double dollars) {
    gs.tp5 = MoneyText(dollars);
}

std::string Form1::money(double dollars) {
    fm5(dollars);
    return gs.tp5;
}

void Form1::getord() {
    play("tamlo19");
    seed();
    gs.ordopen.fill(0);
    gs.ordqty.fill(0);
    gs.nst = 0;
    for (int k = 1; k <= gs.noos; ++k) MakeOrder(*this, k);
}

}  // namespace tamlo
