#include "monkeys/monkey.h"

#include <array>

#include "services/key_codes.h"

namespace tamlo {
namespace {

using keys::down;
using keys::enter;
using keys::escape;
using keys::f1;
using keys::shift;
using keys::space;
using keys::up;

constexpr std::array<int, 21> meaning_something = {keys::backspace,
                                                   enter,
                                                   shift,
                                                   escape,
                                                   space,
                                                   keys::left,
                                                   up,
                                                   keys::right,
                                                   down,
                                                   '0',
                                                   '3',
                                                   '5',
                                                   '9',
                                                   'N',
                                                   'Y',
                                                   f1,
                                                   keys::f2,
                                                   keys::f3,
                                                   keys::f4,
                                                   keys::f5,
                                                   keys::f6};

std::vector<int> Walk(int key, int times, std::vector<int> then) {
    then.insert(then.begin(), static_cast<std::size_t>(times), key);
    return then;
}

}  // namespace

std::vector<Stroke> Monkey::Strokes(const GameState& gs, const std::string& asked) {
    std::vector<Stroke> strokes;
    const bool wild_due = wild_ * 5 < keys_;
    if (wild_due && OneIn(2)) {
        ++wild_;
        Strike(strokes, WildKey());
        return strokes;
    }
    for (const int key : Plan(gs, asked)) Strike(strokes, key);
    if (wild_due) {
        ++wild_;
        Strike(strokes, WildKey());
    }
    return strokes;
}

void Monkey::Strike(std::vector<Stroke>& strokes, int key) {
    constexpr int longest = 3 * ticks_per_second;
    ++keys_;
    const bool hasty = !strokes.empty() && hasty_ * 3 < keys_;
    if (hasty) ++hasty_;
    strokes.push_back({key, hasty ? 1 + Below(OneIn(2) ? 40 : longest) : 0});
}

int Monkey::WildKey() {
    if (OneIn(4)) {
        return meaning_something[static_cast<std::size_t>(Below(meaning_something.size()))];
    }
    return 10 + Below(245);  // a script can name no lower ones
}

Monkey::Codes Monkey::Plan(const GameState& gs, const std::string& asked) {
    if (asked == " start game ") return AtMainMenu();
    if (asked == " deliver tamlo ") return AtRestaurant();
    if (asked == " turn left, west ") return AtDeparture(gs, asked);
    if (asked == " go forward ") return AtCorner(gs, asked);
    if (asked == " return to the game ") return InOptions();
    if (asked == " How fast do you wish to go? ") return Speed(gs);
    if (asked == " Enter your name as the new record holder. ") return Driven(gs, asked);
    if (asked == " Enter the name of your city ") return {shift, 'A' + Below(2), enter};
    if (asked == " yes ") return OneIn(8) ? Codes{down, enter} : Codes{enter};
    // On the road " no " keeps the career.
    if (asked == " no ") return OneIn(gs.engon == 1 ? 12 : 3) ? Codes{down, enter} : Codes{enter};
    // All the way to the end of a volume, as long as it is told how to change it.
    if (asked.starts_with(" use the up and down") && OneIn(6)) {
        return Walk(OneIn(2) ? up : down, 40, {enter});
    }
    if (OneIn(4)) return {down};
    return {enter};
}

Monkey::Codes Monkey::Driven(const GameState& gs, const std::string& asked) {
    Codes keys;
    for (const Step& step : driver_.Answer(gs, asked)) keys.push_back(step.key);
    driver_.script.clear();
    return keys;
}

Monkey::Codes Monkey::AtMainMenu() {
    if (!OneIn(3)) return {enter};
    switch (const int item = OneIn(4) ? 8 + Below(2) : 1 + Below(12); item) {
        case 5: return Walk(down, item - 1, {enter, up, up, down, enter});
        case 6: return Walk(down, item - 1, {enter, down, up, enter, down, up, enter});
        case 9: return Walk(up, 4, {enter, shift, 'A' + Below(2), enter, enter});
        case 10: return Walk(up, 3, {enter, down, enter, space});
        case 11: return Walk(up, 2, {enter, down, enter});
        case 12: return {up, enter};
        default: return Walk(down, item - 1, {enter});
    }
}

Monkey::Codes Monkey::AtRestaurant() {
    switch (Below(8)) {
        case 0:
        case 1:
        case 2:
        case 3: return {down, enter};  // quit for the day
        case 4: return {down, down, enter};
        case 5: return {up, enter};
        case 6: return {f1 + Below(6)};
        default: return {enter};
    }
}

Monkey::Codes Monkey::AtDeparture(const GameState& gs, const std::string& asked) {
    if (OneIn(10)) return {f1 + Below(6)};
    if (OneIn(20)) return {up, enter};
    Codes keys = Driven(gs, asked);
    for (const int key : Speed(gs)) keys.push_back(key);
    return keys;
}

Monkey::Codes Monkey::AtCorner(const GameState& gs, const std::string& asked) {
    if (OneIn(15)) return {f1 + Below(6)};
    if (OneIn(60)) return {up, enter};
    if (OneIn(80)) return {escape};
    Codes keys = OneIn(25) ? Codes{OneIn(2) ? keys::left : keys::right, enter} : Driven(gs, asked);
    for (const int key : Speed(gs)) keys.push_back(key);
    return keys;
}

Monkey::Codes Monkey::InOptions() {
    if (OneIn(3)) return {enter};
    return Walk(down, 1 + Below(6), {enter});
}

Monkey::Codes Monkey::Speed(const GameState& gs) {
    if (OneIn(30)) return {'0', '0'};
    if (OneIn(30)) return {'9', '9'};
    if (OneIn(30)) return {'3', enter};
    if (OneIn(30)) return {enter};
    return Driven(gs, " How fast do you wish to go? ");
}

}  // namespace tamlo
