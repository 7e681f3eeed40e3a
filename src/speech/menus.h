// The two kinds of spoken prompts: a list menu and a yes/no question. Each is described by a struct
// that the caller fills in.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tamlo {

/// The effect of an extra key in a list menu.
struct MenuKey {
    enum class Effect {
        none,     ///< not a key of this menu: the key is echoed and the menu restarts
        restart,  ///< the menu restarts from its prompt
        move,     ///< `value` becomes the current item and is spoken
        leave,    ///< the menu returns `value`
    };
    Effect effect = Effect::none;
    int value = 0;

    static MenuKey Restart() { return {Effect::restart, 0}; }
    static MenuKey Move(int item) { return {Effect::move, item}; }
    static MenuKey Leave(int value) { return {Effect::leave, value}; }
};

struct ListMenu {
    std::string_view prompt = " select ";
    std::vector<std::string_view> items = {};  ///< numbered from 1; at least one
    int first = 1;                             ///< current when the menu starts
    bool pause = false;                        ///< 0.2 s pass before the prompt
    bool clear = false;                        ///< the pending key is cleared before the prompt
    /// Called for every key except Enter, Up and Down, with the current item.
    std::function<MenuKey(int item)> extra = {};
};

struct YesNoPrompt {
    /// What happens before the question each time it is asked.
    enum class Lead { none, clear, pause, clear_pause, pause_clear };
    /// Whether the keys y and n answer, and when they are checked.
    enum class Letters { none, before_arrows, after_echo };

    std::string question;
    Lead lead = Lead::none;
    bool spoken_in_full = false;  ///< by `say` instead of `say2`
    bool clear_after = false;     ///< `clk` after the question
    bool initial_yes = false;
    bool pause_before_answer = false;  ///< `clk` and 0.2 s before each spoken answer
    Letters letters = Letters::none;
    bool repeats_on_f1 = false;
    bool echoes = true;
};

}  // namespace tamlo
