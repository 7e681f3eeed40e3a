#include "speech/menus.h"

#include "game/form1.h"
#include "services/key_codes.h"

namespace tamlo {
namespace {

using Lead = YesNoPrompt::Lead;
using Letters = YesNoPrompt::Letters;

constexpr int yes = 1;
constexpr int no = 2;

/// Runs a menu once, from its prompt. True if `result` is the menu's result; false if the menu has
/// to restart.
bool RunOnce(Form1& form, const ListMenu& menu, int& result) {
    const int count = static_cast<int>(menu.items.size());
    if (menu.pause) form.dy(0.2);
    if (menu.clear) form.clk();
    int item = menu.first;
    form.say2(menu.prompt);
    while (true) {
        form.say2(menu.items[static_cast<std::size_t>(item) - 1]);
        form.getkey();
        if (form.gs.g == keys::enter) {
            result = item;
            return true;
        }
        if (form.gs.g == keys::up) {
            item = item > 1 ? item - 1 : count;
        } else if (form.gs.g == keys::down) {
            item = item < count ? item + 1 : 1;
        } else {
            const MenuKey key = menu.extra ? menu.extra(item) : MenuKey{};
            if (key.effect == MenuKey::Effect::none) form.saykey();
            if (key.effect == MenuKey::Effect::leave) {
                result = key.value;
                return true;
            }
            if (key.effect != MenuKey::Effect::move) return false;
            item = key.value;
        }
    }
}

void LeadIn(Form1& form, Lead lead) {
    if (lead == Lead::clear || lead == Lead::clear_pause) form.clk();
    if (lead == Lead::pause || lead == Lead::clear_pause || lead == Lead::pause_clear) form.dy(0.2);
    if (lead == Lead::pause_clear) form.clk();
}

void AskQuestion(Form1& form, const YesNoPrompt& prompt) {
    LeadIn(form, prompt.lead);
    if (prompt.spoken_in_full) {
        form.say(prompt.question);
    } else {
        form.say2(prompt.question);
    }
    if (prompt.clear_after) form.clk();
}

/// The answer that the typed letter means, 0 for none.
int LetterAnswer(const Form1& form) {
    if (form.gs.g2 == "y") return yes;
    if (form.gs.g2 == "n") return no;
    return 0;
}

/// Asks a question once: the answer, or 0 if it has to be asked again.
int AskOnce(Form1& form, const YesNoPrompt& prompt) {
    AskQuestion(form, prompt);
    int answer = prompt.initial_yes ? yes : no;
    while (true) {
        if (prompt.pause_before_answer) {
            form.clk();
            form.dy(0.2);
        }
        form.say2(answer == yes ? " yes " : " no ");
        form.getkey();
        if (form.gs.g == keys::enter) return answer;
        if (prompt.letters == Letters::before_arrows && LetterAnswer(form)) {
            return LetterAnswer(form);
        }
        if (form.gs.g != keys::up && form.gs.g != keys::down) break;
        answer = answer == yes ? no : yes;
    }
    if (prompt.repeats_on_f1 && form.gs.g == keys::f1) return 0;
    if (prompt.echoes) form.saykey();
    return prompt.letters == Letters::after_echo ? LetterAnswer(form) : 0;
}

}  // namespace

int Form1::runMenu(const ListMenu& menu) {
    int result = 0;
    while (!RunOnce(*this, menu, result)) {
    }
    return result;
}

int Form1::askYesNo(const YesNoPrompt& prompt) {
    int answer = 0;
    while (answer == 0) answer = AskOnce(*this, prompt);
    return answer;
}

}  // namespace tamlo
