// The keyboard: the single slot of the pending key, waiting for a key, typing a line.
#include "game/form1.h"
#include "services/key_codes.h"
#include "services/speech.h"
#include "text/text_encoding.h"
#include "text/utf8.h"

namespace tamlo {
namespace {

std::string UpperCase(const std::string& character) {
    const auto code = ToWindows1252(character);
    return code ? FromWindows1252(UpperCase1252(*code)) : character;
}

}  // namespace

// One slot, not a queue: of several presses in one event turn only the last remains.
void Form1::Form_KeyDown(int code, int /*modifiers*/) {
    gs.g = std::to_string(code);
    gs.g2 = FromWindows1252(LowerCase1252(code));
}

void Form1::pumpEvents(double rest) {
    platform.events.Turn(*this, rest);
}

void Form1::keyturn(double rest) {
    pumpEvents(gs.g.empty() ? rest : 0);
}

// The order matters: a key that is still queued is delivered in the first event turn, so it remains
// in `g` while its character is cleared.
void Form1::clk() {
    gs.g.clear();
    pumpEvents();
    gs.g2.clear();
    pumpEvents();
}

void Form1::getkey() {
    clk();
    while (gs.g.empty()) pumpEvents(until_event);
    stopspeech();
}

void Form1::saykey() {
    gs.Voice->SetEchoRate(gs.vr);
    stopspeech();
    if (gs.g != keys::f1) say2(gs.g2);  // whose character would be "p"
    gs.Voice->SetRate(gs.vr);
}

void Form1::getter(std::string_view prompt) {
    std::string typed;
    const auto ask = [&] {
        clk();
        say2(prompt);
        typed.clear();
    };
    bool upper_case = false;
    ask();
    while (true) {
        getkey();
        if (gs.g == keys::f1) {
            ask();
            continue;
        }
        if (gs.g == keys::shift) {
            upper_case = true;
            continue;
        }
        if (upper_case) {
            upper_case = false;
            gs.g2 = UpperCase(gs.g2);
        }
        if (gs.g == keys::enter) break;
        if (gs.g == keys::backspace) {
            if (typed.empty()) continue;
            gs.g2 = typed.substr(typed.size() - LastCharacter(typed));
            saykey();
            typed.resize(typed.size() - gs.g2.size());
        } else {
            saykey();
            typed += gs.g2;
        }
    }
    gs.r = typed;
}

}  // namespace tamlo
