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
void BrailleDisplay::SetFocus(bool) {}
void BrailleDisplay::GiveBack() {}

}  // namespace tamlo
