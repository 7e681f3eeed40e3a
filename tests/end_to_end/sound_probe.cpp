// Plays a loop without a seam from a folder, "loop", and begins a silent sound, "silence", again
// and again beside it: two hundred times a second, a thousand times in all. Prints when the loop
// begins and how many blocks were late at the end.
#include <chrono>
#include <iostream>
#include <thread>

#include "linux/sound/sound_output.h"

int main(int count, char** arguments) {
    using namespace tamlo;
    SoundOutput output(count > 1 ? arguments[1] : ".");
    output.AwaitOpening();
    const auto device = output.Sound().CreateDevice();
    const auto loop = device->CreateBufferFromFile("loop", {});
    const auto silence = device->CreateBufferFromFile("silence", {});
    loop->Play(PlayMode::looping);
    std::cout << "playing by " << output.Card().driver << std::endl;
    for (int change = 0; change < 1000; ++change) {
        silence->SetCurrentPosition(0);
        silence->Play(PlayMode::once);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    std::cout << "late " << output.Card().late << std::endl;
}
