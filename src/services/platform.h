// All services that the game needs from the machine, in one struct, so that back ends can be
// combined freely.
#pragma once

namespace tamlo {

class Speech;
class SoundSystem;
class Events;
class Files;
class Clock;
class Desktop;
class Random;

/// References to the services; all must outlive the game.
struct Platform {
    Speech& speech;
    SoundSystem& sound;
    Events& events;
    Files& files;
    Clock& clock;
    Desktop& desktop;
    Random& random;
};

}  // namespace tamlo
