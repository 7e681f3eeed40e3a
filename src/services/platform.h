// Everything the game asks of the machine, bundled so that back ends can be mixed.
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
