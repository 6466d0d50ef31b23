#pragma once

#include <utility>
#include <variant>

namespace brindlet {

/// What an operation came to: a value, or the failure that stood in its way.
template <class T, class E>
class [[nodiscard]] Result {
  public:
    // Implicit, so that either can simply be returned.
    Result(T value) : either_(std::in_place_index<0>, std::move(value)) {}
    Result(E failure) : either_(std::in_place_index<1>, std::move(failure)) {}

    explicit operator bool() const { return either_.index() == 0; }
    /// Only when there is a value.
    T& operator*() { return *std::get_if<0>(&either_); }
    const T& operator*() const { return *std::get_if<0>(&either_); }
    T* operator->() { return std::get_if<0>(&either_); }
    const T* operator->() const { return std::get_if<0>(&either_); }
    /// Only when there is none.
    const E& failure() const { return *std::get_if<1>(&either_); }

  private:
    std::variant<T, E> either_;
};

}  // namespace brindlet
