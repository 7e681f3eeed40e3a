// Chance: first state from the machine's entropy, seedings mixed in.
#include "app/chance/system_random.h"

#include <cstdint>
#include <cstring>

namespace tamlo {

SystemRandom::SystemRandom() {
    std::random_device entropy;
    std::seed_seq first{entropy(), entropy(), entropy(), entropy(), entropy(), entropy()};
    generator_.seed(first);
}

void SystemRandom::Seed(double number) {
    // The old state goes in as well, so that two seedings in one moment do not repeat each other.
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    const std::uint64_t old[] = {generator_(), generator_(), generator_()};
    std::seed_seq mixed{bits,   bits >> 32,   old[0], old[0] >> 32,
                        old[1], old[1] >> 32, old[2], old[2] >> 32};
    generator_.seed(mixed);
}

double SystemRandom::Next() {
    // The 53 bits that a double between 0 and 1 can hold, so that 1 is never reached.
    return static_cast<double>(generator_() >> 11) * 0x1p-53;
}

}  // namespace tamlo
