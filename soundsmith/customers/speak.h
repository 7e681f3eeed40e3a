// A customer's words as the speech engine says them.
#pragma once

#include "cast.h"
#include "sound.h"

namespace tamlo::soundsmith {

// The greeting at the engine's own rate, with the silence around it. Every call runs the engine in
// a new process of its own: an engine that has spoken before says the same words a little
// differently, and the same build shall give the same bytes. Throws std::runtime_error when the
// engine fails or takes longer than 20 seconds.
Sound Speak(const Customer& customer);

}  // namespace tamlo::soundsmith
