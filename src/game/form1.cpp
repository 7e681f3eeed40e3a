#include "game/form1.h"

namespace tamlo {

Form1::Form1(const Platform& services) : platform(services) {}

void Form1::Form_Load(const std::function<void()>& claim) {
    startup(claim);
    mainmenu();
    workday();
}

}  // namespace tamlo
