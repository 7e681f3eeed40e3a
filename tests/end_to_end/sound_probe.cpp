// Plays a loop without a seam from a folder, "loop", and begins a silent sound, "silence", again
// and again beside it: two hundred times a second, for some seconds (5), or until SIGUSR1. Prints
// when the loop begins, and at the end how many blocks were late and how often the card was opened.
#include <chrono>
#include <csignal>
#include <iostream>
#include <string>
#include <thread>

#include "linux/sound/sound_output.h"

namespace {
volatile std::sig_atomic_t ending = 0;
}

int main(int count, char** arguments) {
    using namespace tamlo;
    std::signal(SIGUSR1, [](int) { ending = 1; });
    SoundOutput output(count > 1 ? arguments[1] : ".");
    output.AwaitOpening();
    const auto device = output.Sound().CreateDevice();
    const auto loop = device->CreateBufferFromFile("loop", {});
    const auto silence = device->CreateBufferFromFile("silence", {});
    loop->Play(PlayMode::looping);
    std::cout << "playing by " << output.Card().driver << std::endl;
    const int changes = 200 * (count > 2 ? std::stoi(arguments[2]) : 5);
    for (int change = 0; change < changes && ending == 0; ++change) {
        silence->SetCurrentPosition(0);
        silence->Play(PlayMode::once);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    std::cout << "late " << output.Card().late << ", openings " << output.Card().openings
              << std::endl;
}
