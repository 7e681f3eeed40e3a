#include "linux/programs/display_farewell.h"

#include <chrono>
#include <thread>

namespace tamlo {
namespace {

using namespace std::chrono_literals;

constexpr auto longest = 2500ms;
// What the card has taken, and not yet played.
constexpr auto on_its_way = 100ms;

void Say(Speech& voice) {
    const auto engine = voice.CreateEngine();
    engine->Speak("", SpeakFlags::purge);
    // Not waited for by the engine, which would ask the lost window for its events.
    engine->Speak("The display has gone. The game ends.", SpeakFlags::queue);
    const auto end = std::chrono::steady_clock::now() + longest;
    do {
        std::this_thread::sleep_for(50ms);
    } while (engine->Status() == RunningState::speaking && std::chrono::steady_clock::now() < end);
    std::this_thread::sleep_for(on_its_way);
}

}  // namespace

DisplayFarewell::DisplayFarewell(DesktopWindow& window, Speech& voice) : window_(window) {
    window_.WhenTheDisplayHasGone([&voice] { Say(voice); });
}

DisplayFarewell::~DisplayFarewell() {
    window_.WhenTheDisplayHasGone({});
}

}  // namespace tamlo
