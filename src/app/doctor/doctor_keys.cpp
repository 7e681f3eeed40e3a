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
    {keys::backspace, "Backspace"},
    {keys::tab, "Tab"},
    {keys::clear, "keypad 5 without Num Lock"},
    {keys::enter, "Enter"},
    {keys::shift, "Shift"},
    {keys::control, "Control"},
    {keys::alt, "Alt"},
    {keys::pause, "Pause"},
    {keys::caps_lock, "Caps Lock"},
    {keys::escape, "Escape"},
    {keys::space, "space bar"},
    {keys::page_up, "Page Up"},
    {keys::page_down, "Page Down"},
    {keys::end, "End"},
    {keys::home, "Home"},
    {keys::left, "Left Arrow"},
    {keys::up, "Up Arrow"},
    {keys::right, "Right Arrow"},
    {keys::down, "Down Arrow"},
    {keys::print_screen, "Print Screen"},
    {keys::insert, "Insert"},
    {keys::delete_key, "Delete"},
    {keys::left_super, "left Super key"},
    {keys::right_super, "right Super key"},
    {keys::menu, "menu key"},
    {keys::keypad_times, "keypad times"},
    {keys::keypad_plus, "keypad plus"},
    {keys::keypad_minus, "keypad minus"},
    {keys::keypad_point, "keypad point"},
    {keys::keypad_divide, "keypad divided by"},
    {keys::num_lock, "Num Lock"},
    {keys::scroll_lock, "Scroll Lock"},
    {keys::semicolon, "semicolon"},
    {keys::equals, "equals"},
    {keys::comma, "comma"},
    {keys::hyphen, "hyphen"},
    {keys::full_stop, "full stop"},
    {keys::slash, "slash"},
    {keys::grave_accent, "grave accent"},
    {keys::left_bracket, "left bracket"},
    {keys::backslash, "backslash"},
    {keys::right_bracket, "right bracket"},
    {keys::apostrophe, "apostrophe"},
    {keys::beside_left_shift, "key beside the left Shift"},
};

constexpr std::size_t longest_list =
    2000;  // characters; so that a held key does not fill the report

}  // namespace

std::string KeyName(int code) {
    if (code >= '0' && code <= '9') return std::string("digit ") + static_cast<char>(code);
    if (code >= 'A' && code <= 'Z') return std::string("letter ") + static_cast<char>(code);
    if (code >= keys::keypad_0 && code <= keys::keypad_0 + 9) {
        return "keypad " + std::to_string(code - keys::keypad_0);
    }
    if (code >= keys::f1 && code <= keys::f24) return "F" + std::to_string(code - keys::f1 + 1);
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
