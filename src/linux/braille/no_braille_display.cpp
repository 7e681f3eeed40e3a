// Built without BRLTTY's header: no display.
#include "reading/braille_display.h"

namespace tamlo {

bool BrailleLibraryInstalled() {
    return false;
}

struct BrailleDisplay::Mailbox {};

BrailleDisplay::BrailleDisplay(Plan) {}
BrailleDisplay::~BrailleDisplay() = default;
void BrailleDisplay::Show(const std::string&) {}
bool BrailleDisplay::AwaitDisplay(std::chrono::milliseconds, const std::function<void()>&) {
    return false;
}
void BrailleDisplay::SetFocus(bool) {}
void BrailleDisplay::GiveBack() {}

}  // namespace tamlo
