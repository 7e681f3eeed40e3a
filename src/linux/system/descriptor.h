// A file descriptor that is closed on the way out.
#pragma once

#include <unistd.h>

#include <utility>

namespace tamlo {

class Descriptor {
  public:
    Descriptor() = default;
    /// Takes over `number`; negative means none.
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() { Close(); }

    explicit operator bool() const { return number_ >= 0; }
    int Number() const { return number_; }
    /// False if the system reports that written data may be lost.
    bool Close() { return number_ < 0 || ::close(std::exchange(number_, -1)) == 0; }

  private:
    int number_ = -1;
};

}  // namespace tamlo
