// The two ways of asking the player: a list menu and a yes/no question, each described by a
// record that the owner of the menu fills in.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tamlo {

/// What an extra key of a list menu does.
struct MenuKey {
    enum class Effect {
        none,     ///< not a key of this menu: it is echoed and the menu starts again
        restart,  ///< the menu starts again from its prompt
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
    /// Asked for every key but Enter, Up and Down, with the current item.
    std::function<MenuKey(int item)> extra = {};
};

struct YesNoPrompt {
    /// What comes before the question, each time it is asked.
    enum class Lead { none, clear, pause, clear_pause, pause_clear };
    /// Whether the keys y and n answer, and when they are looked at.
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
