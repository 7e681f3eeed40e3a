// What the first voice makes of a text, for comparing the sound of names.
#pragma once

#include <string>

namespace tamlo {

/// The phonemes of a UTF-8 text without stress and pauses: the same for texts that sound the same.
/// Empty for a silent text, and for every text when there is no voice (see `CanPronounce`).
std::string Pronunciation(const std::string& text);

bool CanPronounce();

}  // namespace tamlo
