#pragma once

#include <unistd.h>

#include <optional>
#include <utility>

namespace brindlet {

/// A file descriptor that closes itself.
class Descriptor {
  public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            close();
            number_ = std::exchange(other.number_, -1);
        }
        return *this;
    }
    ~Descriptor() { close(); }

    int get() const { return number_; }
    explicit operator bool() const { return number_ >= 0; }
    void close() {
        if (number_ >= 0) ::close(number_);
        number_ = -1;
    }

  private:
    int number_ = -1;
};

/// Both ends of a pipe, which no program that we start inherits by itself. Neither is one of the
/// three standard streams, even where those are closed: a child's streams can be set one after the
/// other without one of them overwriting an end that is still needed.
struct Pipe {
    Descriptor readEnd;
    Descriptor writeEnd;

    /// None when there are no descriptors left.
    static std::optional<Pipe> make();
};

}  // namespace brindlet
