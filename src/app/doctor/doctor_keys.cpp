#include "app/doctor/doctor_keys.h"

#include "game/form1.h"
#include "services/key_codes.h"

namespace tamlo {
namespace {

struct NamedKey {
    int code;
    const char* name;
};

constexpr NamedKey named_keys[] = {
    {8, "Backspace"},
    {9, "Tab"},
    {12, "keypad 5 without Num Lock"},
    {13, "Enter"},
    {16, "Shift"},
    {17, "Control"},
    {18, "Alt"},
    {19, "Pause"},
    {20, "Caps Lock"},
    {27, "Escape"},
    {32, "space bar"},
    {33, "Page Up"},
    {34, "Page Down"},
    {35, "End"},
    {36, "Home"},
    {37, "Left Arrow"},
    {38, "Up Arrow"},
    {39, "Right Arrow"},
    {40, "Down Arrow"},
    {44, "Print Screen"},
    {45, "Insert"},
    {46, "Delete"},
    {91, "left Super key"},
    {92, "right Super key"},
    {93, "menu key"},
    {106, "keypad times"},
    {107, "keypad plus"},
    {109, "keypad minus"},
    {110, "keypad point"},
    {111, "keypad divided by"},
    {144, "Num Lock"},
    {145, "Scroll Lock"},
    {186, "semicolon"},
    {187, "equals"},
    {188, "comma"},
    {189, "hyphen"},
    {190, "full stop"},
    {191, "slash"},
    {192, "grave accent"},
    {219, "left bracket"},
    {220, "backslash"},
    {221, "right bracket"},
    {222, "apostrophe"},
    {226, "key beside the left Shift"},
};

constexpr std::size_t longest_list = 2000;  // characters; a held key must not fill the report

}  // namespace

std::string KeyName(int code) {
    if (code >= '0' && code <= '9') return std::string("digit ") + static_cast<char>(code);
    if (code >= 'A' && code <= 'Z') return std::string("letter ") + static_cast<char>(code);
    if (code >= 96 && code <= 105) return "keypad " + std::to_string(code - 96);
    if (code >= 112 && code <= 135) return "F" + std::to_string(code - 111);
    for (const NamedKey& key : named_keys) {
        if (key.code == code) return key.name;
    }
    return "key without a name";
}

std::string TryKeys(Form1& form) {
    form.say2(
        " Press any keys: each is told by its name and its code. A key that is not told never "
        "reaches the game. Press Escape twice to end. ");
    std::string pressed;
    bool escape_before = false;
    while (true) {
        form.getkey();
        const bool escape = form.gs.g == keys::escape;
        if (escape && escape_before) return pressed;
        escape_before = escape;
        const std::string told = KeyName(std::stoi(form.gs.g)) + ", " + form.gs.g;
        if (pressed.size() < longest_list) pressed += (pressed.empty() ? "" : "; ") + told;
        form.say2(" " + told + " ");
    }
}

}  // namespace tamlo
