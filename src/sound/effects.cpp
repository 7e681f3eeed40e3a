#include "sound/effects.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tamlo {

namespace {

constexpr bool y = true, n = false;

// Sounds that play under speech (idles, the restaurant, the backgrounds) are much softer than those
// heard alone.
// clang-format off
constexpr std::array<Effect, 93> effects{{
    // name           rate bits loop LUFS peak    size fields last   role
    {"tamlo1",    8000, 16, n, -20,  -2, { 304242,  7,   45}, "title tune"},
    {"tamlo2",   22050, 16, n, -22,  -2, { 141316, 15,   54}, "scooter: the engine starts"},
    {"tamlo3",   22050, 16, y, -36, -12, { 176594, 15,  382}, "scooter: idle"},
    {"tamlo4",   22050, 16, n, -19,  -2, { 450032,  5,   34}, "scooter: pulls away"},
    {"tamlo5",   22050, 16, y, -36, -12, {1199564,  1,   51}, "in the restaurant"},
    {"tamlo6",   22050, 16, n, -30,  -2, { 191238,  4,  139}, "a man walks, to the door or back"},
    {"tamlo7",   22050, 16, n, -30,  -2, { 189416,  1,  204}, "a woman walks, to the door or back"},
    {"tamlo8",   22050, 16, n, -26,  -2, { 114890,  3,  134}, "knocking on wood"},
    {"tamlo9",   22050, 16, n, -22,  -2, { 176548,  9,  103}, "two-tone door bell"},
    {"tamlo10",  22050, 16, n, -24,  -2, {  79530, 13,    3}, "door buzzer"},
    {"tamlo11",  22050, 16, n, -22,  -2, { 176578,  3,  129}, "four-note door chime"},
    {"tamlo12",  22050, 16, n, -24,  -2, {  61932,  3,  103}, "iron door knocker"},
    {"tamlo13",  22050, 16, n, -24,  -2, {  69260,  2,   18}, "an impatient fist on the door"},
    {"tamlo14",  22050, 16, n, -26,  -2, {  79612,  3,   18}, "the door opens"},
    {"tamlo15",  22050, 16, n, -29,  -2, { 211862,  5,   54}, "steps inside, chain and bolt, the door opens"},
    {"tamlo16",  22050, 16, n, -26,  -2, { 316268,  7,   73}, "a dog behind the door, the door opens"},
    {"tamlo17",  11025, 16, n, -23,  -2, {  65256, 26,   14}, "arrival at the corner"},
    {"tamlo18",  11025,  8, n, -26,  -2, {   2348,  1, 2331}, "moving off"},
    {"tamlo19",  22050, 16, n, -22,  -2, { 132544,  1,  102}, "a new order"},
    {"tamlo20",  22050, 16, y, -29,  -2, { 176444, 14,  343}, "railway crossing bell"},
    {"tamlo21",  22050, 16, n, -21,  -2, { 622798, 19,  537}, "freight train"},
    {"tamlo22",  22050, 16, n, -21,  -2, { 529476,  1,  165}, "passenger train"},
    {"tamlo23",  11025, 16, n, -18,  -2, {  85936,  4,   32}, "ambulance"},
    {"tamlo24",  22050, 16, y, -24,  -2, {  88402,  2,   21}, "old car with a bulb horn"},
    {"tamlo25",  22050, 16, n, -18,  -2, { 377540,  6,   25}, "police stop"},
    {"tamlo26",  22050, 16, n, -22,  -2, { 131980,  1,  414}, "dune buggy: the engine starts"},
    {"tamlo27",  11025, 16, y, -36, -12, {  17684,  7,  258}, "dune buggy: idle"},
    {"tamlo28",  22050, 16, n, -19,  -2, { 255824,  5,  356}, "dune buggy: pulls away"},
    {"tamlo29",  22050, 16, y, -24,  -2, { 101304,  8,  211}, "bicycle"},
    {"tamlo30",  22050, 16, n, -22,  -2, { 302020,  7,    9}, "van: the engine starts"},
    {"tamlo31",  22050, 16, y, -36, -12, { 123676,  2,  208}, "van: idle"},
    {"tamlo32",  22050, 16, n, -19,  -2, { 205702,  4,  221}, "van: pulls away"},
    {"tamlo33",  11025, 16, n, -21,  -2, {  63252,  2,  260}, "a near miss: tyres and an angry horn"},
    {"tamlo34",  22050, 16, n, -20,  -2, { 264644,  7,   36}, "truck"},
    {"tamlo35",  11025, 16, y, -23,  -2, { 108360,  1,  232}, "ice-cream van"},
    {"tamlo36",  22050, 16, y, -24,  -2, { 132514,  1,  141}, "marching band"},
    {"tamlo37",  22050, 16, y, -28,  -2, {  75256, 23, 7185}, "jogger"},
    {"tamlo38",  11025, 16, n, -20,  -2, {  35324,  2,  422}, "fanfare: two thousand dollars"},
    {"tamlo39",  22050, 16, y, -26,  -2, {  88244, 12,   35}, "horse and carriage"},
    {"tamlo40",  22050, 16, y, -24,  -2, {  79988,  1,   44}, "shopping trolley"},
    {"tamlo41",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo42",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo43",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo44",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo45",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo46",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo47",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo48",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo49",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo50",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo51",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo52",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo53",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo54",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo55",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo56",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo57",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo58",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo59",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo60",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a woman at the door"},
    {"tamlo61",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo62",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo63",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo64",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo65",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo66",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo67",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo68",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo69",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo70",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo71",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo72",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo73",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo74",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo75",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo76",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo77",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo78",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo79",  22050, 16, n, -22,  -2, {      0,  0,    0}, "a man at the door"},
    {"tamlo80",   8000,  8, n, -22,  -2, {   4454,  3, 1302}, "a man at the door, by intercom"},
    {"tamlo81",  22050,  8, n, -28,  -2, {  13348,  2,   23}, "bank notes"},
    {"tamlo82",  22050, 16, y, -23,  -2, {  97064, 11,   47}, "skateboard"},
    {"tamlo83",  11025, 16, y, -23,  -2, {  37626, 11, 3253}, "dog running by"},
    {"tamlo84",  22050, 16, y, -24,  -2, {  13960,  2,  143}, "helicopter"},
    {"tamlo85",  22050,  8, n, -20,  -2, {   3414,  3, 3369}, "coins"},
    {"tamlo86",  11025,  8, n, -22,  -2, { 198494, 62, 1430}, "city bus"},
    {"tamlo87",  22050, 16, y, -26,  -2, { 264852,  2,   15}, "motorbikes"},
    {"tamlo88",  22050, 16, y, -23,  -2, { 220544,  3,  162}, "tram"},
    {"tamlo89",  22050, 16, y, -22,  -2, { 132344, 12,   44}, "sports car"},
    {"tamlob1",  22050, 16, y, -36, -12, { 441264,  2,   43}, "background: quiet suburb"},
    {"tamlob2",  22050, 16, y, -36, -12, { 441222,  1,   36}, "background: avenue"},
    {"tamlob3",  22050, 16, y, -36, -12, { 441224,  1,  229}, "background: windy street"},
    {"tamlob4",  22050, 16, y, -36, -12, { 441262,  1,  203}, "background: rain"},
}};
// clang-format on

// The check goes by the order of names, with tamlo80 to tamlo89 last.
bool IsCheckedBefore(const Effect* a, const Effect* b) {
    const auto place = [](const Effect* effect) {
        const bool at_the_end = effect->name.size() == 7 && effect->name.starts_with("tamlo8");
        return std::pair(at_the_end, effect->name);
    };
    return place(a) < place(b);
}

}  // namespace

std::span<const Effect> Effects() {
    return effects;
}

std::vector<const Effect*> CheckedEffects() {
    std::vector<const Effect*> checked;
    for (const Effect& effect : effects) {
        if (effect.text.size > 0) checked.push_back(&effect);
    }
    std::sort(checked.begin(), checked.end(), IsCheckedBefore);
    return checked;
}

const Effect* FindEffect(std::string_view name) {
    const auto found = std::find_if(effects.begin(), effects.end(),
                                    [&](const Effect& effect) { return effect.name == name; });
    return found == effects.end() ? nullptr : &*found;
}

}  // namespace tamlo
