// The program of the page: the game, or one of its companions.
#include <emscripten.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "app/sounds/learn_sounds.h"
#include "game/form1.h"
#include "services/wakeup.h"
#include "web/page/page_calls.h"
#include "web/page/page_events.h"
#include "web/page/page_mail.h"
#include "web/programs/page_session.h"

namespace {

tamlo::PageEvents the_events;
tamlo::PageMail the_mail;

std::atomic<bool> begun{false};
tamlo::Wakeup begin_bell;
std::string what_to_do;
std::string what_to_say;

void AwaitBegin() {
    while (!begun) begin_bell.Sleep();
}

/// Takes over memory that the page has allocated.
std::string Taken(char* bytes, std::uint32_t size) {
    std::string text(bytes, size);
    std::free(bytes);
    return text;
}

std::string Taken(char* text) {
    return Taken(text, static_cast<std::uint32_t>(std::strlen(text)));
}

}  // namespace

// Called by the page, on its own thread.
extern "C" {

/// The program waits for this. `what`: "play"; "sounds", the lessons; "say", with the text.
EMSCRIPTEN_KEEPALIVE void tamlo_begin(char* what, char* text) {
    what_to_do = Taken(what);
    what_to_say = Taken(text);
    begun = true;
    begin_bell.Ring();
}

EMSCRIPTEN_KEEPALIVE void tamlo_press(int code, int modifiers) {
    the_events.Press(code, modifiers);
}

EMSCRIPTEN_KEEPALIVE void tamlo_close() {
    the_events.Close();
}

EMSCRIPTEN_KEEPALIVE void tamlo_send_file(int players, char* name, char* bytes,
                                          std::uint32_t size) {
    using Owner = tamlo::PageMail::Owner;
    the_mail.SendFile(players != 0 ? Owner::player : Owner::program, Taken(name),
                      Taken(bytes, size));
}

EMSCRIPTEN_KEEPALIVE void tamlo_send_sounds(const char* pack, std::uint32_t size) {
    the_mail.SendSounds({pack, size});
}
}

int main() {
    AwaitBegin();
    const tamlo::PageEnd end =
        what_to_do == "say"
            ? tamlo::SayInPage(the_events, what_to_say)
            : tamlo::PlayInPage(the_events, the_mail, [](tamlo::Form1& game) {
                  what_to_do == "sounds" ? tamlo::LearnSounds(game) : game.Form_Load();
              });
    tamlo_page_ended(end.exit_status, ::strdup(end.reason.c_str()), end.restart ? 1 : 0);
    return 0;
}
