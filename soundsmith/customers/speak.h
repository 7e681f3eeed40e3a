// A customer's words in the customer's voice.
#pragma once

#include <string_view>

#include "customers/cast.h"
#include "sound.h"

namespace tamlo::soundsmith {

/// The customer's greeting, or `words` if there are any, at the speaker's own rate, with the
/// silence around it. Words are UTF-8 and spelled for the speaker's language. Every engine and
/// every change runs in a new process: an engine that has spoken before says the same words a
/// little differently, and the same build shall give the same bytes. Throws std::runtime_error when
/// a program fails or takes longer than two minutes.
Sound Speak(const Customer& customer, std::string_view words = {});

/// The same without the silence, with the customer's breath and age, in the doorway or through the
/// intercom; `rate` is at least the speaker's.
Sound AtTheDoor(const Customer& customer, int rate, std::string_view words = {});

}  // namespace tamlo::soundsmith
