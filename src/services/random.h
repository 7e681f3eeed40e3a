// Random numbers.
#pragma once

namespace tamlo {

class Random {
  public:
    virtual ~Random() = default;
    /// Mixes a number (seconds since midnight) into the generator's state. Seeding twice with the
    /// same number gives unrelated draws.
    virtual void Seed(double number) = 0;
    /// Uniform in [0, 1).
    virtual double Next() = 0;
};

}  // namespace tamlo
