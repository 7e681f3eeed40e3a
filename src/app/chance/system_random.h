// Chance from a generator that starts differently in every run.
#pragma once

#include <random>

#include "services/random.h"

namespace tamlo {

class SystemRandom : public Random {
  public:
    SystemRandom();
    void Seed(double number) override;
    double Next() override;

  private:
    std::mt19937_64 generator_;
};

}  // namespace tamlo
